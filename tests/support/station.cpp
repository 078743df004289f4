#include "support/station.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "database/connection_keywords.hpp"
#include "session/opening.hpp"

namespace tolvex::testing {

Station::Station(const Text& server, const std::function<void()>& prepare) : server_(server)
{
    session() = Session();
    forget_error();
    set_message_handler([this](const Message& message) {
        messages.push_back(message);
        return message.buttons == MessageButtons::ok ? MessageAnswer::ok : MessageAnswer::yes;
    });
    std::filesystem::copy(TOLVEX_SOURCE_DIR "/tests/datos/llave.pem", folder() / "pkey.key.pem");
    open_database();
    if (!server_.empty()) prepare();
    Connection& connection = shared_connection(session());
    connection.begin_transaction(); // one flush instead of seven
    store_master_data();
    connection.commit();
}

Station::~Station()
{
    session() = Session();
    set_message_handler(nullptr);
    set_root_layout(RootLayout::standard);
    set_sealing(Sealing::openssl_program);
}

// A string of another form than that of hosts, with another driver or a port of its own, opens as it is.
void Station::open_database()
{
    const auto value = [&](const char16_t* name) { return keyword(server_, name); };
    const ConnectionData data =
        server_.empty() ? ConnectionData{u"", u"", database_path(), u"sqlite:"}
                        : ConnectionData{value(u"uid"), value(u"pwd"), value(u"database"), value(u"server")};
    if (server_.empty() || server_ == connection_string(data)) {
        ConfigFE().SetDatosConexion(data.user, data.password, data.database, data.server);
        ConfigFE().AbrirConexion();
        return;
    }
    Connection& connection = shared_connection(session());
    connection.connection_string = server_;
    connection.open();
    read_dates_as_year_month_day(connection);
}

void Station::store_master_data()
{
    execute(
        u"Insert Into FE_EMPRESAS(nEmpresa,cNombre,cCalle,cNumExterior,cNumInterior,cColonia,cLocalidad"
        u",cMunicipio,cEstado,cPais,cCodigoPostal,cTelefono,cRfc,cCurp) Values(1,' ABARROTES LA ESPERANZA '"
        u",'ALHÓNDIGA','15','B','CENTRO','MARFIL','GUANAJUATO','GTO','MÉXICO','36000',Null,'AES010101AAA','"
        u"CURP')");
    execute(u"Insert Into FE_SUCURSALES(nEmpresa,nSucursal,nCertificado,nFolio,cNombre,cCalle,cRfc) "
            u"Values(1,1,1,1,'MATRIZ','ALHÓNDIGA','AES010101AAA')");
    execute(u"Insert Into FE_SUCURSALES(nEmpresa,nSucursal,cNombre) Values(1,2,'PLAZA')");
    execute(
        u"Insert Into FE_CERTIFICADOS(nEmpresa,nCertificado,cRuta_Certificado,cRuta_LlavePrivada"
        u",dVigencia_Cert_Desde,dVigencia_Cert_Hasta,cVigencia_Cert_Desde,cVigencia_Cert_Hasta"
        u",cSerial_Certificado,cSerie_Certificado,cCertificado) Values(1,1,'C:\\sello.cer','C:\\sello.key'"
        u",'2010-10-22 16:04:00','2012-10-21','22-10-2010','21-10-2012','3230','20001000000100005867'"
        u",'MIIB CERT IFICADO==')");
    for (const TextView range : {u"1,1,1,1,'FACTURAS','FD','A','2011',2011,1,100,'USANDO','1',Null",
                                 u"2,1,1,1,'NOTAS','NC','NC','2012',2011,1,100,'USANDO','1',7",
                                 u"3,1,1,1,'FACTURAS','FD','B','2013',2011,1,5,'USANDO','1',5"})
        execute(u"Insert Into FE_FOLIOS(nFolio,nEmpresa,nSucursal,nCertificado,cDocumento,cFolio,cSerie"
                u",cNumero_Aprobacion,nAnno,nDesde,nHasta,cStatus,cEsquema,nUltimoFolio) Values(" +
                Text(range) + u")");
}

void Station::load_issuer()
{
    forget_error();
    ASSERT_TRUE(genera_docto.GetDatosEmpresa(1));
    ASSERT_TRUE(genera_docto.GetDatosSucursal(1, 1));
    ASSERT_TRUE(genera_docto.GetDatosCertificado(1));
    ASSERT_EQ(last_error(), u"");
}

void Station::stage(Receiver r)
{
    if (r.RutaDeArchivos.empty()) r.RutaDeArchivos = folder_text();
    Cliente().SetDatosClientes(r.Rfc, r.Nombre, r.Calle, r.NumeroExt, r.NumeroInt, r.Colonia, r.Localidad,
                               r.Estado, r.Municipio, r.Pais, r.CodigoPos, r.Subtotal, r.Descuento,
                               r.Impuesto, r.Total, r.FormaPago, r.ClaveFolio, r.FechaHoraDocto,
                               r.RutaDeArchivos, r.IvaRet, r.ISRRet, r.moneda, r.Paridad, r.vlDatoAdicional,
                               r.vlDatoAdicional_2, r.vlDatoAdicional_3);
}

void Station::stage_lines()
{
    DetFacturas lines;
    lines.InicializaDetalleFactura();
    lines.SetDetalleDocto(u"A00123", u"F", u"CAF-01", u" Café de altura, 1 kg ", 5, u" KG ", 180, 144, 900,
                          16);
    lines.SetDetalleDocto(u"A00123", u"F", u"PAN-07", u"Pan", 2.5, u"PZA", 188.005, 64, 470.015, 16);
}

void Station::stage_document(const Receiver& receiver)
{
    load_issuer();
    stage(receiver);
    stage_lines();
}

bool Station::issue(Text folio, const Text& kind, bool addenda)
{
    return genera_docto.GeneraFacturaElectronica(folio, false, kind, 16, addenda);
}

bool Station::issue_from_counter()
{
    Text folio;
    return genera_docto.GeneraFacturaElectronica(folio, true, u"ingreso", 16, false);
}

void Station::execute(const Text& sql) { shared_connection(session()).execute(sql); }

Value Station::answer(const Text& sql)
{
    const Recordset rows = shared_connection(session()).query(sql);
    return rows.eof() ? Value() : rows.value(0);
}

int Station::count(const Text& table, const Text& condition)
{
    return answer(u"Select count(*) From " + table + u"(nolock) Where " + condition).int32();
}

Value Station::counter(int range)
{
    return answer(u"Select nUltimoFolio From FE_FOLIOS Where nFolio=" + decimal(range));
}

void Station::add_layout(const Text& table, std::initializer_list<Text> rows)
{
    for (const Text& row : rows)
        execute(u"Insert Into " + table +
                u"(crfccte,nRama,nPadre,cNombre,cTipo,cValor) Values('PEGM800101AB1'," + row + u")");
}

std::string Station::work_files() const
{
    std::string names;
    for (const char* name : {"sello.bat", "sello.txt", "fi_md5.txt", "utf8.txt"})
        if (exists(name)) names += (names.empty() ? "" : " ") + std::string(name);
    return names;
}

} // namespace tolvex::testing
