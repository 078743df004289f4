#include "console/master_data/registrar.hpp"

#include "console/output.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "maintenance/branches_form.hpp"
#include "maintenance/certificates_form.hpp"
#include "maintenance/companies_form.hpp"
#include "maintenance/folios_form.hpp"
#include "maintenance/records.hpp"
#include "tolvex/messages.hpp"

#include <algorithm>

namespace tolvex::console {

namespace {

// What the forms say when all went well.
bool tells_success(const Text& text)
{
    return text == u"Se han guardado correctamente los datos" || text == u"Proceso concluido exitosamente";
}

// The number that the file names, or the one that the record has already; 0 for a new one.
std::int16_t number_of(const Entry& entry, std::int16_t found)
{
    return entry.has("numero") ? to_int16(to_number(entry.required("numero"))) : found;
}

// A combo box is picked by what it shows or by its value.
Text value_of_item(const FormInMemory& form, TextView combo, const Text& given)
{
    const auto& items = form.items(combo);
    const auto found = std::find_if(items.begin(), items.end(), [&](const Item& item) {
        return item.value == given || equal_ignoring_case(item.text, trim(given));
    });
    return found == items.end() ? given : found->value;
}

} // namespace

Registrar::Registrar(Session& session) : session_(session)
{
    use_toolkit(&toolkit_);
    set_message_handler([this](const Message& message) {
        if (message.buttons == MessageButtons::yes_no) return MessageAnswer::yes;
        if (!tells_success(message.text)) complaints_.push_back(message.text);
        return MessageAnswer::ok;
    });
}

Registrar::~Registrar()
{
    set_message_handler(nullptr);
    use_toolkit(nullptr);
}

void Registrar::fill(FormInMemory& form, const std::vector<KeyOfControl>& controls, const Entry& entry)
{
    require_open(form);
    for (const auto& [key, control] : controls) {
        if (!entry.has(key)) continue;
        const Text& value = entry.required(key);
        switch (form.kind(control)) {
        case ControlKind::combo:
            form.pick(control, value_of_item(form, control, value));
            break;
        case ControlKind::check:
            form.tick(control, value == u"1");
            break;
        default:
            form.type(control, value);
        }
    }
}

// A form that could not read its record has said why and closed.
void Registrar::require_open(const FormInMemory& form)
{
    if (!form.is_open()) throw invalid_call(join(std::exchange(complaints_, {}), u"; "));
}

// A form that saved is closed. What it said on the way is told either way.
void Registrar::save(FormInMemory& form, TextView save_button)
{
    form.click(save_button);
    const std::vector<Text> said = std::exchange(complaints_, {});
    if (form.is_open()) throw invalid_call(said.empty() ? Text(u"no se guardó") : join(said, u"; "));
    for (const Text& text : said) say_warning(text);
}

std::int16_t Registrar::save_company(const Entry& entry)
{
    const std::int16_t number = number_of(entry, find_company(session_, entry.required("rfc")));
    FrmCatEmpresas behaviour(session_, {0, number}, nullptr);
    FormInMemory form(behaviour);
    fill(form, company_controls(), entry);
    save(form, u"Command1");
    return number > 0 ? number : find_company(session_, entry.required("rfc"));
}

std::int16_t Registrar::save_branch(std::int16_t company, const Entry& entry)
{
    const std::int16_t number = number_of(entry, find_branch(session_, company, entry.required("nombre")));
    FrmCatSucursales behaviour(session_, {company, number}, nullptr);
    FormInMemory form(behaviour);
    fill(form, branch_controls(), entry);
    save(form, u"Command1");
    return number > 0 ? number : find_branch(session_, company, entry.required("nombre"));
}

std::int16_t Registrar::save_folio_range(std::int16_t company, const Entry& entry)
{
    const auto find = [&] {
        return find_folio_range(session_, company, entry.required("documento"), entry.required("serie"),
                                entry.required("desde"));
    };
    const std::int16_t number = number_of(entry, find());
    FrmCatSerieyFolios behaviour(session_, {company, number}, nullptr);
    FormInMemory form(behaviour);
    require_open(form);
    if (number == 0 && !entry.has("sucursal")) form.pick(u"CboSucursal", u"0");
    fill(form, folio_controls(), entry);
    save(form, u"Command1");
    return number > 0 ? number : find();
}

std::int16_t Registrar::save_certificate(std::int16_t company, const Entry& entry,
                                         const CertificateFiles& files)
{
    const Text certificate_number = number_of_certificate(company, files);
    const std::int16_t number = number_of(entry, find_certificate(session_, company, certificate_number));
    FrmCatCertificados behaviour(session_, {company, number}, nullptr);
    FormInMemory form(behaviour);
    choose_certificate(form, files);
    toolkit_.next_file = files.key;
    if (!files.key.empty()) form.click(u"cmdLlavePrivada");
    fill(form, certificate_controls(), entry);
    if (!form.is_enabled(u"Command2")) {
        const std::vector<Text> said = std::exchange(complaints_, {});
        throw invalid_call(said.empty() ? Text(u"falta la llave privada del certificado")
                                        : join(said, u"; "));
    }
    save(form, u"Command2");
    return number > 0 ? number : find_certificate(session_, company, certificate_number);
}

// Read from the file by a form that is then left without saving.
Text Registrar::number_of_certificate(std::int16_t company, const CertificateFiles& files)
{
    FrmCatCertificados behaviour(session_, {company, 0}, nullptr);
    FormInMemory form(behaviour);
    choose_certificate(form, files);
    const Text number = form.text(u"txtSerie");
    const std::vector<Text> said = std::exchange(complaints_, {});
    if (number.empty())
        throw invalid_call(u"no se pudo leer el certificado " + files.certificate +
                           (said.empty() ? Text() : u": " + join(said, u"; ")));
    return number;
}

void Registrar::choose_certificate(FormInMemory& form, const CertificateFiles& files)
{
    require_open(form);
    toolkit_.next_folder = files.seal_folder;
    form.click(u"Command1");
    toolkit_.next_file = files.certificate;
    form.click(u"cmdCertificado");
}

} // namespace tolvex::console
