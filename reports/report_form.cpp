#include "reports/report_form.hpp"

#include "core/dates.hpp"
#include "core/display_patterns.hpp"
#include "core/numbers.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "platform/messages.hpp"
#include "reports/monthly_report.hpp"
#include "session/configuracion.hpp"

#include <algorithm>

namespace tolvex {

namespace {

using enum ControlKind;

constexpr int first_year = 2010, last_year = 2020;
constexpr TextView attention = u"Atención";

const FormDescription form = {
    .name = u"frmReporteFE",
    .sections = {{u"",
                  {{{combo, u"CBoEmpresas", u"Empresa:"}},
                   {{combo, u"cmbMes", u"Mes:", 14}, {combo, u"cmbAnio", u"Año:", 8}},
                   {{text, u"Text1", u"Carpeta:"}, {button, u"cmdCarpeta", u"Examinar…", 12}},
                   {{.kind = text, .name = u"txtArchivo", .caption = u"Archivo:", .read_only = true}}}}},
    .buttons = {{button, u"Command1", u"&Generar"}}};

std::vector<Item> months()
{
    std::vector<Item> items;
    for (const TextView name : {u"Enero", u"Febrero", u"Marzo", u"Abril", u"Mayo", u"Junio", u"Julio",
                                u"Agosto", u"Septiembre", u"Octubre", u"Noviembre", u"Diciembre"})
        items.push_back({Text(name), format(static_cast<double>(items.size() + 1), u"00")});
    return items;
}

std::vector<Item> years()
{
    std::vector<Item> items;
    for (int year = first_year; year <= last_year; ++year) items.push_back({decimal(year), decimal(year)});
    return items;
}

class frmReporteFE : public Form
{
public:
    frmReporteFE(Session& session, const Text& folder) : session_(session), folder_(folder) {}

    const FormDescription& description() const override { return form; }

    void load(FormView& view) override
    {
        view.set_caption(u"Reporte mensual de folios utilizados");
        view.set_text(u"Text1", folder_);
        fill_lists(view);
        look_up_rfc(view);
        show_path(view);
    }

    void item_chosen(FormView& view, TextView control) override
    {
        if (control == u"CBoEmpresas") look_up_rfc(view);
        show_path(view);
    }

    void clicked(FormView& view, TextView control) override
    {
        if (control == u"cmdCarpeta") choose_folder(view);
        show_path(view);
        if (control == u"Command1") write_report(view);
    }

private:
    // The first company and today's month are chosen.
    void fill_lists(FormView& view)
    {
        std::vector<Item> companies;
        Recordset rows =
            shared_connection(session_).query(u"Select nEmpresa,cNombre from  fe_Empresas(nolock)");
        for (; !rows.eof(); rows.move_next())
            companies.push_back({rows[u"cNombre"].text(), rows[u"nEmpresa"].text()});
        view.fill(u"CBoEmpresas", companies);
        if (!companies.empty()) view.choose(u"CBoEmpresas", companies.front().value);
        const Date today = local_now();
        view.fill(u"cmbMes", months());
        view.choose(u"cmbMes", format(today, u"mm"));
        view.fill(u"cmbAnio", years());
        view.choose(u"cmbAnio", decimal(std::clamp(year_of(today), first_year, last_year)));
    }

    void look_up_rfc(FormView& view)
    {
        const Text company = view.chosen(u"CBoEmpresas");
        if (company.empty()) return;
        rfc_ = company_rfc(session_, company).text();
    }

    void choose_folder(FormView& view)
    {
        const Text folder = fgSeleccionaCarpeta(view.window(), u"Seleccione directorio");
        if (!folder.empty()) view.set_text(u"Text1", folder);
    }

    Text path(const FormView& view) const
    {
        return plCreaNombreArchivo(view.text(u"Text1"), rfc_, view.chosen(u"cmbMes"),
                                   view.chosen(u"cmbAnio"));
    }

    void show_path(FormView& view) { view.set_text(u"txtArchivo", files::native_path(path(view))); }

    void write_report(FormView& view)
    {
        if (!files::folder_exists(trim(view.text(u"Text1"))))
            return show_message(u"No se encontro una ruta valida para el archivo, verifique", Text(attention),
                                MessageIcon::critical);
        if (!while_busy(view, [&] { return write_file(view); }))
            return show_message(u"No se encontro información para mostrar, verifique", Text(attention),
                                MessageIcon::information);
        show_message(u"Se ha creado el siguiente archivo :\r\n" + files::native_path(path(view)),
                     Text(component_title), MessageIcon::information);
    }

    bool write_file(FormView& view)
    {
        const Text company = view.chosen(u"CBoEmpresas");
        if (company.empty()) return false;
        const ReportedMonth month = {to_int16(to_number(company)), view.chosen(u"cmbAnio"),
                                     view.chosen(u"cmbMes")};
        return write_monthly_report(shared_connection(session_), month, path(view));
    }

    Session& session_;
    const Text folder_;
    Text rfc_; // of the chosen company
};

} // namespace

void show_report(Session& session, const ConnectionData& data, const Text& folder)
{
    replace_shared_connection(session, data);
    const Text where = trim(folder).empty() ? files::program_folder() : folder;
    toolkit().show(std::make_unique<frmReporteFE>(session, where));
}

} // namespace tolvex
