#include "issuing/master_data.hpp"

#include "core/dates.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/messages.hpp"

namespace tolvex {

namespace {

Text text(const Recordset& row, TextView column) { return trim(row[column].text()); }

// Deliberate: a Null flag is an error, unlike a Null text.
bool flag(const Recordset& row, TextView column) { return row[column].boolean(); }

std::int16_t leading_int16(const Recordset& row, TextView column)
{
    return to_int16(leading_number(text(row, column)));
}

std::int32_t leading_int32(const Recordset& row, TextView column)
{
    return to_int32(leading_number(text(row, column)));
}

void read_company(Session& session, const Recordset& row)
{
    session.gnEmpresa = row[u"nempresa"].int16();
    session.gEmpNombre = text(row, u"cNombre");
    session.gEmpCalle = text(row, u"cCalle");
    session.gEmpNumExterior = text(row, u"cNumExterior");
    session.gEmpNumInterior = text(row, u"cNumInterior");
    session.gEmpColonia = text(row, u"cColonia");
    session.gEmpLocalidad = text(row, u"cLocalidad");
    session.gEmpMunicipio = text(row, u"cMunicipio");
    session.gEmpEstado = text(row, u"cEstado");
    session.gEmpPais = text(row, u"cPais");
    session.gEmpCodigoPostal = text(row, u"cCodigoPostal");
    session.gEmpTelefono = text(row, u"cTelefono");
    session.gEmpRfc = text(row, u"cRfc");
    session.gEmpCurp = text(row, u"cCurp");
    session.gMostrarVersion = flag(row, u"nMostrarVersion");
    session.gMostrarSerie = flag(row, u"nMostrarSerie");
    session.gMostrarAnnoAprobacion = flag(row, u"nMostrarAnnoAprobacion");
    session.gMostrarTipoDeComprobante = flag(row, u"nMostrarTipoDeComprobante");
    session.gMostrarFormadePago = flag(row, u"nMostrarFormadePago");
    session.gMostrarCondicionesDePago = flag(row, u"nMostrarCondicionesDePago");
    session.gMostrarSubtotal = flag(row, u"nMostrarSubtotal");
    session.gMostrarDescuento = flag(row, u"nMostrarDescuento");
    session.gMostrarTotal = flag(row, u"nMostrarTotal");
    session.gMostrarNameSpacePosition = flag(row, u"nMostrarNameSpacePosition");
    session.gMostrarxmlns = flag(row, u"nMostrarxmlns");
    session.gMostrarxmlnsxsi = flag(row, u"nMostrarxmlnsxsi");
    session.gMostrarxsischemaLocation = flag(row, u"nMostrarxsischemaLocation");
}

void read_branch(Session& session, const Recordset& row)
{
    session.gnSucursal = row[u"nsucursal"].int16();
    session.gSucNombre = text(row, u"cNombre");
    session.gSucCalle = text(row, u"cCalle");
    session.gSucNumExterior = text(row, u"cNumExterior");
    session.gSucNumInterior = text(row, u"cNumInterior");
    session.gSucColonia = text(row, u"cColonia");
    session.gSucLocalidad = text(row, u"cLocalidad");
    session.gSucMunicipio = text(row, u"cMunicipio");
    session.gSucEstado = text(row, u"cEstado");
    session.gSucPais = text(row, u"cPais");
    session.gSucCodigoPostal = text(row, u"cCodigoPostal");
    session.gSucTelefono = text(row, u"cTelefono");
    session.gSucRfc = text(row, u"cRfc");
    session.gSucCurp = text(row, u"cCurp");
    session.gnCertificado = leading_int16(row, u"nCertificado");
}

void read_certificate(Session& session, const Recordset& row)
{
    session.gRutaCertificado = text(row, u"cRuta_Certificado");
    session.gRutaLlavePrivada = text(row, u"cRuta_LlavePrivada");
    session.gVigenciaDesde = to_date(text(row, u"dVigencia_Cert_Desde"));
    session.gVigenciaHasta = to_date(text(row, u"dVigencia_Cert_Hasta"));
    session.gVigenciaDesdeTxt = text(row, u"cVigencia_Cert_Desde");
    session.gVigenciaHastaTxt = text(row, u"cVigencia_Cert_Hasta");
    session.gSerialCertificado = text(row, u"cSerial_Certificado");
    session.gSerieCertificado = text(row, u"cSerie_Certificado");
    session.gCertificado = text(row, u"cCertificado");
}

void read_folio_range(Session& session, const Recordset& row)
{
    session.gDocumento = text(row, u"cDocumento");
    session.gFolio = text(row, u"cFolio");
    session.gSerie = text(row, u"cSerie");
    session.gNumeroAprobacion = text(row, u"cNumero_Aprobacion");
    session.gAnnoAprobacion = leading_int16(row, u"nAnno");
    session.gFolioDesde = leading_int32(row, u"nDesde");
    session.gFolioHasta = leading_int32(row, u"nHasta");
    session.gStatusFolio = text(row, u"cStatus");
    session.gEsquema = text(row, u"cEsquema");
}

// Loads the first row of the query, if there is one.
bool load_first_row(Session& session, const Text& sql, void (*read)(Session&, const Recordset&))
{
    const Recordset rows = shared_connection(session).query(sql);
    if (rows.eof()) return false;
    read(session, rows);
    return true;
}

} // namespace

bool load_company(Session& session, std::int16_t vlnEmpresa)
{
    const Text sql = u"Select * from FE_EMPRESAS(Nolock) Where nEmpresa = " + decimal(vlnEmpresa);
    // Deliberate: an error leaves True, although the company may be loaded half.
    return trapping(true, [&] { return load_first_row(session, sql, read_company); });
}

bool load_branch(Session& session, std::int16_t vlnEmpresa, std::int16_t vlnSucursal)
{
    // Deliberate: the branch number is quoted, the company number is not.
    const Text sql = u"Select * from FE_SUCURSALES(Nolock) Where nEmpresa = " + decimal(vlnEmpresa) +
                     u" And nSucursal = '" + decimal(vlnSucursal) + u"'";
    return trapping(false, [&] { return load_first_row(session, sql, read_branch); });
}

bool load_certificate(Session& session, std::int16_t vlnEmpresa)
{
    const Text sql = u"Select * from FE_CERTIFICADOS(Nolock) Where nEmpresa = " + decimal(vlnEmpresa) +
                     u" And nCertificado = " + decimal(session.gnCertificado);
    // Deliberate: an error leaves True, although the certificate may be loaded half.
    return trapping(true, [&] { return load_first_row(session, sql, read_certificate); });
}

bool fgCargaDatosFolio(Session& session, const Text& folio_range)
{
    const Text sql = u"Select fe.* from FE_FOLIOS fe(Nolock) Where nfolio= '" + folio_range + u"'";
    forget_error();
    const bool loaded = trapping(false, [&] { return load_first_row(session, sql, read_folio_range); });
    if (!last_error().empty()) show_message(last_error());
    return loaded;
}

std::int16_t fgSiguienteFolio(Session& session, std::int16_t vlnEmpresa, std::int16_t vlnSucursal)
{
    const Text select =
        u"Select f.nUltimoFolio From FE_SUCURSALES s(nolock) \r"
        u"Inner Join  FE_FOLIOS f(Nolock) on (s.nEmpresa = f.nEmpresa And s.nFolio = f.nFolio) \r"
        u" Where s.nEmpresa = " +
        decimal(vlnEmpresa) + u" And s.nSucursal = " + decimal(vlnSucursal);
    const Text update =
        u"Update FE_FOLIOS set nUltimoFolio = nUltimoFolio + 1 From FE_SUCURSALES s(nolock) \r"
        u" Where s.nEmpresa = FE_FOLIOS.nEmpresa And s.nFolio = FE_FOLIOS.nFolio And s.nEmpresa = " +
        decimal(vlnEmpresa) + u" And s.nSucursal = " + decimal(vlnSucursal);
    const auto read_counter = [&]() -> std::int16_t {
        const Recordset rows = shared_connection(session).query(select);
        return rows.eof() ? 0 : to_int16(leading_number(text(rows, u"nUltimoFolio")) + 1);
    };
    // Deliberate: read, then incremented by a second statement without a lock, so two stations can draw one
    // number.
    return trapping(std::int16_t{0}, [&] {
        const std::int16_t folio = read_counter();
        shared_connection(session).execute(update);
        return folio;
    });
}

} // namespace tolvex
