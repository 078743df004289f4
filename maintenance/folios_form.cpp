#include "maintenance/folios_form.hpp"

#include "core/numbers.hpp"
#include "maintenance/company_rows.hpp"

namespace tolvex {

namespace {

using enum ControlKind;

const FormDescription form = {
    .name = u"FrmCatSerieyFolios",
    .sections = {{u"",
                  {company_row(),
                   number_row(u"txtIdFoliol", u"Id Folio"),
                   {{combo, u"CboSucursal", u"Sucursal"}},
                   {{combo, u"CboCertificado", u"Certificado"}},
                   {{combo, u"CboDocumento", u"Documento", 24}, {text, u"txtSerie", u"Serie", 10}},
                   {{text, u"TxtAprobacion", u"Núm. aprobación", 14},
                    {text, u"txtAnno", u"Año aprobación", 6}}}},
                 {u"Rango asignado",
                  {{{text, u"txtDesde", u"Desde:", 12}, {text, u"txtHasta", u"Hasta", 12}},
                   {{text, u"txtUltimo", u"Ultimo Folio", 12}}}}},
    .buttons = {{button, u"Command1", u"&Aceptar"}, {button, u"Command2", u"&Cancelar"}}};

} // namespace

const FormDescription& FrmCatSerieyFolios::description() const { return form; }

void FrmCatSerieyFolios::load_lists(FormView& view)
{
    // Deliberate: cut at 20 characters.
    fill_from(view, u"CboSucursal",
              u"select nSucursal,cNombre from fe_Sucursales(nolock) where nempresa=" + decimal(key().company),
              u"No existen Sucursales configuradas para la empresa activa, verifique",
              {{u"<TODAS LAS SUCURSALE>", u"0"}});
    fill_certificates(view, u"CboCertificado");
    view.fill(u"CboDocumento", {{u"FACTURAS", u"FD"}, {u"NOTAS DE CREDITO", u"NC"}});
}

EditPattern FrmCatSerieyFolios::pattern() const
{
    const Text company = decimal(key().company), number = decimal(key().number);
    const Text columns =
        u"Select nFolio , nEmpresa, nSucursal, nCertificado, cDocumento, cFolio, cSerie, cNumero_Aprobacion, "
        u"nAnno, nDesde, nHasta, cStatus, cEsquema, nUltimoFolio from fe_Folios";
    return {.new_caption = u"Alta de Series y Folios",
            .modify_caption = u"Modificación de Series y Folios",
            .save_button = u"Command1",
            .cancel_button = u"Command2",
            .number_control = u"txtIdFoliol",
            .belongs_to_company = true,
            .in_transaction = false,
            .number_column = u"nFolio",
            .next_number = u"select coalesce(max(nFolio),0) + 1 as nFolio from fe_Folios (nolock)",
            .empty_row = columns + u" where 1=0",
            .changed_row = columns + u" where nFolio=" + number,
            .stored_row =
                u"select s.* from fe_Folios s(nolock) where s.nEmpresa=" + company + u" and nFolio=" + number,
            // Deliberate: it speaks of the company, although the record is a folio range.
            .missing_row = u"La clave de la Empresa no existe o no pertenece a la empresa activa, verifique",
            .shown = {{u"txtIdFoliol", u"nFolio"},
                      {u"CboSucursal", u"nSucursal"},
                      {u"CboCertificado", u"nCertificado"},
                      {u"CboDocumento", u"cFolio"},
                      {u"txtSerie", u"cSerie"},
                      {u"TxtAprobacion", u"cNumero_Aprobacion"},
                      {u"txtAnno", u"nAnno"},
                      {u"txtDesde", u"nDesde"},
                      {u"txtHasta", u"nHasta"},
                      {u"txtUltimo", u"nultimofolio"}},
            .saved_in_new = {},
            .saved = {{u"nEmpresa", constant(key().company)},
                      {u"nSucursal", item_number(u"CboSucursal")},
                      {u"nCertificado", item_number(u"CboCertificado")},
                      {u"cDocumento", item_text(u"CboDocumento")},
                      {u"cFolio", item_value(u"CboDocumento")},
                      {u"cSerie", upper_text(u"txtSerie")},
                      {u"cNumero_Aprobacion", upper_text(u"TxtAprobacion")},
                      {u"nAnno", whole_number_16(u"txtAnno")},
                      {u"nDesde", whole_number_32(u"txtDesde")},
                      {u"nHasta", whole_number_32(u"txtHasta")},
                      {u"cStatus", constant(u"USANDO")},
                      {u"cEsquema", constant(u"1")},
                      {u"nultimofolio", whole_number_32(u"txtUltimo")}}};
}

} // namespace tolvex
