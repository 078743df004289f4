#include "maintenance/companies_form.hpp"

#include "core/numbers.hpp"
#include "maintenance/address_rows.hpp"

namespace tolvex {

namespace {

using enum ControlKind;

// Deliberate: the form has no control for these switches of the original string; every save sets them to 1.
constexpr TextView switches[] = {
    u"nMostrarVersion",           u"nMostrarSerie",       u"nMostrarAnnoAprobacion",
    u"nMostrarTipoDeComprobante", u"nMostrarFormadePago", u"nMostrarCondicionesDePago",
    u"nMostrarSubtotal",          u"nMostrarDescuento",   u"nMostrarTotal",
    u"nMostrarNameSpacePosition", u"nMostrarxmlns",       u"nMostrarxmlnsxsi",
    u"nMostrarxsischemaLocation"};

FormDescription describe()
{
    std::vector<Row> rows = address_rows();
    rows.insert(rows.begin(), {{text, u"txtNombre", u"Nombre"}});
    rows.insert(rows.begin(),
                {{.kind = text, .name = u"txtId", .caption = u"Empresa", .width = 8, .read_only = true},
                 {label, u"lblNuevo", u"Nuevo"}});
    return {.name = u"FrmCatEmpresas",
            .sections = {{u"", rows}},
            .buttons = {{button, u"Command1", u"&Aceptar"}, {button, u"Command2", u"&Cancelar"}}};
}

std::vector<ShownColumn> shown_columns()
{
    std::vector<ShownColumn> shown = shown_address();
    shown.insert(shown.begin(), {{u"txtId", u"nEmpresa"}, {u"txtNombre", u"cNombre"}});
    return shown;
}

std::vector<SavedColumn> saved_columns()
{
    std::vector<SavedColumn> saved = saved_address();
    saved.insert(saved.begin(), {u"cNombre", upper_text(u"txtNombre")});
    for (const TextView name : switches) saved.push_back({name, constant(std::int16_t{1})});
    return saved;
}

} // namespace

const FormDescription& FrmCatEmpresas::description() const
{
    static const FormDescription form = describe();
    return form;
}

EditPattern FrmCatEmpresas::pattern() const
{
    const Text number = decimal(key().number);
    return {.new_caption = u"Alta de Empresas",
            .modify_caption = u"Modificación de Empresas",
            .save_button = u"Command1",
            .cancel_button = u"Command2",
            .number_control = u"txtId",
            .belongs_to_company = false,
            .in_transaction = true,
            .number_column = u"nEmpresa",
            .next_number = u"select coalesce(max(nempresa),0) + 1 as nEmpresa from fe_empresas (nolock)",
            .empty_row = u"Select * from fe_empresas where 1=0",
            .changed_row = u"Select * from fe_empresas where nEmpresa=" + number,
            .stored_row = u"select * from fe_empresas (nolock) where nEmpresa=" + number,
            .missing_row = u"La clave de la empresa no existe, verifique",
            .shown = shown_columns(),
            .saved_in_new = {},
            .saved = saved_columns()};
}

} // namespace tolvex
