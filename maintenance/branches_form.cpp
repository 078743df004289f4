#include "maintenance/branches_form.hpp"

#include "core/numbers.hpp"
#include "maintenance/address_rows.hpp"
#include "maintenance/company_rows.hpp"

namespace tolvex {

namespace {

using enum ControlKind;

FormDescription describe()
{
    std::vector<Row> rows = {company_row(),
                             number_row(u"txtIdSucursal", u"Sucursal"),
                             {{text, u"txtNombre", u"Nombre"}},
                             {{combo, u"cmbCertificado1", u"Certificado"}}};
    for (const Row& row : address_rows()) rows.push_back(row);
    return {.name = u"FrmCatSucursales",
            .sections = {{u"", rows}},
            .buttons = {{button, u"Command1", u"&Aceptar"}, {button, u"Command2", u"&Cancelar"}}};
}

std::vector<ShownColumn> shown_columns()
{
    std::vector<ShownColumn> shown = shown_address();
    shown.insert(shown.begin(), {{u"txtIdSucursal", u"nSucursal"},
                                 {u"txtNombre", u"cNombre"},
                                 {u"cmbCertificado1", u"nCertificado"}});
    return shown;
}

std::vector<SavedColumn> saved_columns()
{
    std::vector<SavedColumn> saved = saved_address();
    saved.insert(saved.begin(), {{u"nCertificado", item_number(u"cmbCertificado1")},
                                 {u"cNombre", upper_text(u"txtNombre")}});
    return saved;
}

} // namespace

const FormDescription& FrmCatSucursales::description() const
{
    static const FormDescription form = describe();
    return form;
}

void FrmCatSucursales::load_lists(FormView& view) { fill_certificates(view, u"cmbCertificado1"); }

EditPattern FrmCatSucursales::pattern() const
{
    const Text company = decimal(key().company), number = decimal(key().number);
    return {.new_caption = u"Alta de Sucursal",
            .modify_caption = u"Modificación de Sucursal",
            .save_button = u"Command1",
            .cancel_button = u"Command2",
            .number_control = u"txtIdSucursal",
            .belongs_to_company = true,
            .in_transaction = false,
            .number_column = u"nSucursal",
            .next_number = u"select coalesce(max(nSucursal),0) + 1 as nSucursal from fe_sucursales (nolock) "
                           u"where nEmpresa=" +
                           company,
            .empty_row = u"Select * from fe_sucursales where 1=0",
            .changed_row =
                u"Select * from fe_sucursales where nEmpresa=" + company + u" and nSucursal=" + number,
            .stored_row = u"select s.* from fe_sucursales s(nolock) where s.nEmpresa=" + company +
                          u" and nSucursal=" + number,
            .missing_row = u"La clave de la sucursal no existe o no pertenece a la empresa activa, verifique",
            .shown = shown_columns(),
            .saved_in_new = {{u"nEmpresa", constant(key().company)}},
            .saved = saved_columns()};
}

} // namespace tolvex
