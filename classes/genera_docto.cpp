#include "flat_file/flat_file.hpp"
#include "issuing/issue.hpp"
#include "issuing/master_data.hpp"
#include "issuing/stored_documents.hpp"
#include "printing/frm_gen_imprimir_en_crystal.hpp"
#include "tolvex/classes.hpp"

namespace tolvex {

bool GeneraDocto::GetDatosSucursal(std::int16_t vlnEmpresa, std::int16_t vlnSucursal)
{
    return load_branch(session(), vlnEmpresa, vlnSucursal);
}

bool GeneraDocto::GetDatosCertificado(std::int16_t vlnEmpresa)
{
    return load_certificate(session(), vlnEmpresa);
}

bool GeneraDocto::GetDatosEmpresa(std::int16_t vlnEmpresa) { return load_company(session(), vlnEmpresa); }

bool GeneraDocto::GeneraFacturaElectronica(Text& vlnFactura, bool CtrlFolioInterno,
                                           const Text& vlTipoDocumento, std::int16_t vlTasaDeIva,
                                           bool vlGeneraAddenda)
{
    const IssueOptions options{CtrlFolioInterno, vlTipoDocumento, vlTasaDeIva, vlGeneraAddenda};
    return issue_document(session(), vlnFactura, options).issued;
}

void GeneraDocto::Main() {}

// Deliberate: branch and kind are not used, the layout alone decides what a credit note looks like.
void GeneraDocto::ImprimeDocuento(const Text& FolioDocto, std::int16_t Empresa, std::int16_t, bool,
                                  const Text& vlArchivoReporte, bool GenerarPDF,
                                  std::int16_t vlNumeroDeCopias)
{
    print_document(session(), {FolioDocto, Empresa}, vlArchivoReporte, GenerarPDF, vlNumeroDeCopias);
}

void GeneraDocto::ImprimeDocuentoConVisor(const Text& FolioDocto, std::int16_t Empresa, std::int16_t, bool,
                                          const Text& vlArchivoReporte)
{
    show_document(session(), {FolioDocto, Empresa}, vlArchivoReporte);
}

bool GeneraDocto::CancelaFacturaElectronica(const Text& FolioDocto, Date FechaCancelacion,
                                            std::int16_t Empresa, std::int16_t Sucursal, bool NotadeCredito)
{
    return cancel_document(session(), {FolioDocto, Empresa, Sucursal}, FechaCancelacion, NotadeCredito);
}

bool GeneraDocto::BorraFacturaElectronica(std::int16_t Empresa, std::int16_t Sucursal, const Text& FolioDocto)
{
    return delete_document(session(), {FolioDocto, Empresa, Sucursal});
}

bool GeneraDocto::fgObtenFolioFactura(const Text& Caja, Text& FolioFactura)
{
    return next_folio_of_range(session(), Caja, FolioFactura);
}

Text GeneraDocto::GeneraFacturaElectronicaDesdeArchivoPlano(const Text& prtRutaArchivo,
                                                            const Text& prtArchivo, const Text& prtUsuario,
                                                            const Text& prtContraseña,
                                                            const Text& prtServidor,
                                                            const Text& prtBaseDeDatos)
{
    return issue_flat_file(session(), prtRutaArchivo, prtArchivo,
                           {prtUsuario, prtContraseña, prtBaseDeDatos, prtServidor});
}

} // namespace tolvex
