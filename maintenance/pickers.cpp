#include "maintenance/pickers.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "maintenance/branches_form.hpp"
#include "maintenance/certificates_form.hpp"
#include "maintenance/companies_form.hpp"
#include "maintenance/folios_form.hpp"
#include "maintenance/list_filler.hpp"
#include "session/configuracion.hpp"

namespace tolvex {

namespace {

using enum ControlKind;

constexpr TextView list_name = u"LstLQS3";

template <class EditForm_>
std::unique_ptr<Form> edit_form(Session& session, RecordKey key, std::function<void()> saved)
{
    return std::make_unique<EditForm_>(session, key, std::move(saved));
}

// What tells one picker from another.
struct Kind
{
    TextView form_name, caption;
    bool of_company;
    Text query; // ends where the company's number follows
    std::unique_ptr<Form> (*edit)(Session&, RecordKey, std::function<void()>);
};

const Kind companies = {u"FrmMuestraEmpresas", u"Maestro de Empresas", false,
                        u"Select nEmpresa as Id,cNombre as Empresa,cRfc From FE_EMPRESAS",
                        edit_form<FrmCatEmpresas>};

const Kind branches = {u"frmMuestraSucursales", u"Maestro de sucursales", true,
                       u"select s.nSucursal,s.cNombre,s.cRfc ,s.nEmpresa,e.cNombre as cNombreEmpresa\r"
                       u" from fe_sucursales s (nolock) join fe_empresas e(nolock) on "
                       u"(s.nEmpresa=e.nEmpresa) where s.nEmpresa =",
                       edit_form<FrmCatSucursales>};

const Kind certificates = {u"frmMuestraCertificados", u"Maestro de Certificados", true,
                           u"select s.nCertificado,s.cDescripcion,s.nEmpresa,e.cNombre as cNombreEmpresa\r"
                           u" from fe_Certificados s (nolock) join fe_empresas e(nolock) on "
                           u"(s.nEmpresa=e.nEmpresa) where s.nEmpresa =",
                           edit_form<FrmCatCertificados>};

const Kind folios = {u"frmMuestraSeriesyFolios", u"Maestro de Series y Folios", true,
                     u"select s.nFolio,s.cDocumento,s.cSerie,s.cNumero_Aprobacion\r"
                     u" from fe_Folios s (nolock) where s.nEmpresa =",
                     edit_form<FrmCatSerieyFolios>};

class Picker : public Form
{
public:
    Picker(Session& session, const Kind& kind, std::int16_t company)
        : session_(session), kind_(kind), company_(company), description_(describe())
    {}

    const FormDescription& description() const override { return description_; }

    void load(FormView& view) override
    {
        view.set_caption(Text(kind_.caption));
        if (kind_.of_company) show_company(view);
        refill(view);
    }

    void clicked(FormView& view, TextView key) override
    {
        if (upper_case(key) == u"NUEVO") edit(view, 0);
        if (upper_case(key) == u"MODIFICAR") modify(view);
    }

    void row_activated(FormView& view, TextView) override { modify(view); }

private:
    FormDescription describe() const
    {
        std::vector<Row> rows;
        if (kind_.of_company) rows.push_back({{label, u"lblEmpresa"}});
        rows.push_back({{.kind = list, .name = list_name, .lines = 15}});
        return {.name = kind_.form_name,
                .tools = {{u"Nuevo", u"Nuevo", Icon::new_record},
                          {u"Modificar", u"Modificar", Icon::edit_record}},
                .sections = {{u"", rows}},
                .resizable = true,
                .enter_moves = false};
    }

    void show_company(FormView& view)
    {
        const Text sql = u"select cNombre from fe_empresas (nolock) where nempresa=" + decimal(company_);
        view.set_text(u"lblEmpresa", u"Empresa " + decimal(company_) + u": " +
                                         trim(fgValorCampo(session_, u"cNombre", sql).text()));
    }

    void refill(FormView& view)
    {
        LlenaLista(session_, view, list_name, kind_.query + (kind_.of_company ? decimal(company_) : Text()));
    }

    // The selected record, whose number is its first column.
    void modify(FormView& view)
    {
        const auto row = view.selected_row(list_name);
        const double number = row && !row->empty() ? leading_number(row->front()) : 0;
        if (number > 0) edit(view, to_int16(number));
    }

    void edit(FormView& view, std::int16_t number)
    {
        const auto form = kind_.edit(session_, {company_, number}, [&] { refill(view); });
        toolkit().show_modal(*form);
        refill(view);
    }

    Session& session_;
    const Kind& kind_;
    const std::int16_t company_;
    const FormDescription description_;
};

} // namespace

std::unique_ptr<Form> companies_picker(Session& session)
{
    return std::make_unique<Picker>(session, companies, std::int16_t{0});
}

std::unique_ptr<Form> branches_picker(Session& session, std::int16_t company)
{
    return std::make_unique<Picker>(session, branches, company);
}

std::unique_ptr<Form> certificates_picker(Session& session, std::int16_t company)
{
    return std::make_unique<Picker>(session, certificates, company);
}

std::unique_ptr<Form> folios_picker(Session& session, std::int16_t company)
{
    return std::make_unique<Picker>(session, folios, company);
}

} // namespace tolvex
