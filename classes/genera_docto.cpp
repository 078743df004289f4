#include "classes/call.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "flat_file/flat_file.hpp"
#include "issuing/issue.hpp"
#include "issuing/master_data.hpp"
#include "issuing/stored_documents.hpp"
#include "printing/frm_gen_imprimir_en_crystal.hpp"
#include "tolvex/classes.hpp"

namespace tolvex {

namespace {

Text of_company(std::int16_t company) { return u" de la empresa " + decimal(company); }

// The statements that cancel and delete do not notice that there is no such document.
void tell_if_missing(Session& session, const DocumentKey& key, const Text& kind, TextView name)
{
    quietly([&] {
        found(count_documents(session, key, kind) > 0,
              Text(name) + u" " + key.folio + of_company(key.company) + u", sucursal " + decimal(key.branch));
    });
}

} // namespace

bool GeneraDocto::GetDatosSucursal(std::int16_t vlnEmpresa, std::int16_t vlnSucursal)
{
    return found(load_branch(begin_call(), vlnEmpresa, vlnSucursal),
                 u"la sucursal " + decimal(vlnSucursal) + of_company(vlnEmpresa));
}

bool GeneraDocto::GetDatosCertificado(std::int16_t vlnEmpresa)
{
    Session& session = begin_call();
    return found(load_certificate(session, vlnEmpresa),
                 u"el certificado " + decimal(session.gnCertificado) + of_company(vlnEmpresa));
}

bool GeneraDocto::GetDatosEmpresa(std::int16_t vlnEmpresa)
{
    return found(load_company(begin_call(), vlnEmpresa), u"la empresa " + decimal(vlnEmpresa));
}

bool GeneraDocto::GeneraFacturaElectronica(Text& vlnFactura, bool CtrlFolioInterno,
                                           const Text& vlTipoDocumento, std::int16_t vlTasaDeIva,
                                           bool vlGeneraAddenda)
{
    const IssueOptions options{CtrlFolioInterno, vlTipoDocumento, vlTasaDeIva, vlGeneraAddenda};
    return issue_document(begin_call(), vlnFactura, options).issued;
}

void GeneraDocto::Main() { begin_call(); }

// Deliberate: branch and kind are not used, the layout alone decides what a credit note looks like.
void GeneraDocto::ImprimeDocuento(const Text& FolioDocto, std::int16_t Empresa, std::int16_t, bool,
                                  const Text& vlArchivoReporte, bool GenerarPDF,
                                  std::int16_t vlNumeroDeCopias)
{
    print_document(begin_call(), {FolioDocto, Empresa}, vlArchivoReporte, GenerarPDF, vlNumeroDeCopias);
}

void GeneraDocto::ImprimeDocuentoConVisor(const Text& FolioDocto, std::int16_t Empresa, std::int16_t, bool,
                                          const Text& vlArchivoReporte)
{
    show_document(begin_call(), {FolioDocto, Empresa}, vlArchivoReporte);
}

bool GeneraDocto::CancelaFacturaElectronica(const Text& FolioDocto, Date FechaCancelacion,
                                            std::int16_t Empresa, std::int16_t Sucursal, bool NotadeCredito)
{
    Session& session = begin_call();
    const DocumentKey key{FolioDocto, Empresa, Sucursal};
    if (NotadeCredito)
        tell_if_missing(session, key, u"N", u"la nota de crédito");
    else
        tell_if_missing(session, key, u"F", u"la factura");
    return cancel_document(session, key, FechaCancelacion, NotadeCredito);
}

bool GeneraDocto::BorraFacturaElectronica(std::int16_t Empresa, std::int16_t Sucursal, const Text& FolioDocto)
{
    Session& session = begin_call();
    const DocumentKey key{FolioDocto, Empresa, Sucursal};
    tell_if_missing(session, key, u"", u"el documento");
    return delete_document(session, key);
}

bool GeneraDocto::fgObtenFolioFactura(const Text& Caja, Text& FolioFactura)
{
    return found(next_folio_of_range(begin_call(), Caja, FolioFactura),
                 u"el rango de folios " + Caja + u", o ya no le quedan folios");
}

Text GeneraDocto::GeneraFacturaElectronicaDesdeArchivoPlano(const Text& prtRutaArchivo,
                                                            const Text& prtArchivo, const Text& prtUsuario,
                                                            const Text& prtContraseña,
                                                            const Text& prtServidor,
                                                            const Text& prtBaseDeDatos)
{
    return issue_flat_file(begin_call(), prtRutaArchivo, prtArchivo,
                           {prtUsuario, prtContraseña, prtBaseDeDatos, prtServidor});
}

} // namespace tolvex
