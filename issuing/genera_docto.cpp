#include "core/errors.hpp"
#include "issuing/flat_file.hpp"
#include "issuing/issue.hpp"
#include "issuing/master_data.hpp"
#include "issuing/stored_documents.hpp"
#include "tolvex/tolvex.hpp"

namespace tolvex {

GeneraDocto::GeneraDocto() : document_(std::make_unique<DocumentValues>()) {}
GeneraDocto::~GeneraDocto() = default;
GeneraDocto::GeneraDocto(GeneraDocto&&) noexcept = default;
GeneraDocto& GeneraDocto::operator=(GeneraDocto&&) noexcept = default;

bool GeneraDocto::GetDatosSucursal(std::int16_t vlnEmpresa, std::int16_t vlnSucursal)
{
    return tolvex::GetDatosSucursal(session(), vlnEmpresa, vlnSucursal);
}

bool GeneraDocto::GetDatosCertificado(std::int16_t vlnEmpresa)
{
    return tolvex::GetDatosCertificado(session(), vlnEmpresa);
}

bool GeneraDocto::GetDatosEmpresa(std::int16_t vlnEmpresa)
{
    return tolvex::GetDatosEmpresa(session(), vlnEmpresa);
}

bool GeneraDocto::GeneraFacturaElectronica(Text& vlnFactura, bool CtrlFolioInterno,
                                           const Text& vlTipoDocumento, std::int16_t vlTasaDeIva,
                                           bool vlGeneraAddenda)
{
    return issue_document(session(), *document_, vlnFactura,
                          {CtrlFolioInterno, vlTipoDocumento, vlTasaDeIva, vlGeneraAddenda});
}

void GeneraDocto::Main() {}

void GeneraDocto::ImprimeDocuento(const Text&, std::int16_t, std::int16_t, bool, const Text&, bool,
                                  std::int16_t)
{
    throw not_available(u"La impresión de documentos");
}

void GeneraDocto::ImprimeDocuentoConVisor(const Text&, std::int16_t, std::int16_t, bool, const Text&)
{
    throw not_available(u"La vista previa de documentos");
}

bool GeneraDocto::CancelaFacturaElectronica(const Text& FolioDocto, Date FechaCancelacion,
                                            std::int16_t Empresa, std::int16_t Sucursal, bool NotadeCredito)
{
    return tolvex::CancelaFacturaElectronica(session(), FolioDocto, FechaCancelacion, Empresa, Sucursal,
                                             NotadeCredito);
}

bool GeneraDocto::BorraFacturaElectronica(std::int16_t Empresa, std::int16_t Sucursal, const Text& FolioDocto)
{
    return tolvex::BorraFacturaElectronica(session(), Empresa, Sucursal, FolioDocto);
}

bool GeneraDocto::fgObtenFolioFactura(const Text& Caja, Text& FolioFactura)
{
    return tolvex::fgObtenFolioFactura(session(), Caja, FolioFactura);
}

Text GeneraDocto::GeneraFacturaElectronicaDesdeArchivoPlano(const Text& prtRutaArchivo,
                                                            const Text& prtArchivo, const Text& prtUsuario,
                                                            const Text& prtContraseña,
                                                            const Text& prtServidor,
                                                            const Text& prtBaseDeDatos)
{
    return issue_flat_file(session(), prtRutaArchivo, prtArchivo,
                           {prtUsuario, prtContraseña, prtServidor, prtBaseDeDatos});
}

} // namespace tolvex
