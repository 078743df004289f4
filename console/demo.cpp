// The demonstration: a company of its own with a real key pair, four documents issued from flat files, their
// seals verified with openssl.
#include "console/commands.hpp"
#include "console/demo_files.hpp"
#include "core/errors.hpp"
#include "core/values.hpp"
#include "issuing/flat_file.hpp"
#include "platform/batch_runner.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "schema/schema.hpp"
#include "session/configuracion.hpp"
#include "tolvex/tolvex.hpp"

#include <fmt/core.h>

namespace tolvex::console {

namespace {

constexpr TextView certificate_number = u"20001000000100005867";
constexpr TextView company_rfc = u"AES010101AAA";
constexpr TextView key_password = u"12345678a";

// The tax authority spells a certificate's number in the ASCII codes of its serial: digit 2 is the byte 32.
Text serial_in_hex(TextView number)
{
    Text hex;
    for (const char16_t digit : number) {
        hex += u'3';
        hex += digit;
    }
    return hex;
}

// The lines between the BEGIN and END marks of a PEM file.
Text pem_body(const Text& pem)
{
    Text body;
    for (const Text& line : split(pem, u'\n'))
        if (!line.empty() && !line.starts_with(u"-----")) body += line + u"\r\n";
    return body;
}

class Demo
{
public:
    Demo(const Place& place, const Text& folder) : place_(place), folder_(folder) {}

    void run();

private:
    Text path(const Text& name) const { return folder_ + u"\\" + name; }
    void make_folder();
    void open_database();
    void make_certificate();
    void store_master_data();
    void store_addenda_layout();
    void issue(const DemoFile& file);
    void verify_seal(const IssuedDocument& document, const Text& kind);
    void look_up_and_cancel();
    void openssl(const std::vector<Text>& commands);
    void execute(const Text& sql) { shared_connection(session()).execute(sql); }

    const Place place_;
    const Text folder_;
    std::vector<IssuedDocument> issued_;
};

void say(const Text& line) { fmt::print("{}\n", to_utf8(line)); }

void Demo::run()
{
    make_folder();
    open_database();
    make_certificate();
    store_master_data();
    store_addenda_layout();
    for (const DemoFile& file : demo_files) issue(file);
    look_up_and_cancel();
    disconnect();
    say(u"\nTodo está en " + folder_ + u":");
    say(u"  base de datos     " + to_text(place_.database) +
        u" (empresa 1, sucursal 1, certificado 1, rangos de folios 1 y 2)");
    say(u"  Facturas/         los documentos XML");
    say(u"  certificado.cer   el certificado; pkey.key.pem es su llave y llave.key la misma con contraseña " +
        Text(key_password));
    say(u"  *.txt             los archivos planos; emita otro con: tolvex emite ARCHIVO --bd " +
        to_text(place_.database));
}

void Demo::make_folder()
{
    if (folder_.find(u' ') != Text::npos)
        throw invalid_call(u"La carpeta no puede llevar blancos, pues las líneas de sello.bat no los admiten: " +
                            folder_);
    if (!files::folder_exists(folder_)) files::create_folder(folder_);
}

// The demonstration replaces company 1; it must be its own.
void Demo::open_database()
{
    connect(place_);
    create_schema(shared_connection(session()));
    const Value rfc =
        fgValorCampo(session(), u"cRfc", u"Select cRfc From FE_EMPRESAS(nolock) Where nEmpresa=1");
    if (!rfc.is_null() && trim(rfc.text()) != company_rfc)
        throw invalid_call(u"La base de datos ya tiene una empresa 1 que no es la de la demostración: use otra base");
}

// Runs openssl commands through the batch runner; throws when the last one fails.
void Demo::openssl(const std::vector<Text>& commands)
{
    const Text batch = path(u"demo.bat");
    Text lines;
    for (const Text& command : commands) lines += u"openssl " + command + u"\r\n";
    files::write(batch, batch_file_bytes(lines));
    const int exit_code = run_batch_file(batch, WindowStyle::hidden);
    files::remove(batch);
    if (exit_code != 0)
        throw invalid_call(u"openssl no pudo ejecutar su orden (código " + decimal(exit_code) +
                            u"): revise que esté instalado: " + commands.back());
}

void Demo::make_certificate()
{
    if (files::exists(path(u"pkey.key.pem")) && files::exists(path(u"certificado.cer"))) return;
    const Text plain_key = path(u"llave.tmp");
    openssl({u"genrsa -out " + plain_key + u" 2048",
             u"req -x509 -new -sha1 -key " + plain_key + u" -set_serial 0x" +
                 serial_in_hex(certificate_number) +
                 u" -days 1460 -subj \"/C=MX/O=Abarrotes La Esperanza/CN=Abarrotes La Esperanza\" -outform "
                 u"DER -out " +
                 path(u"certificado.cer"),
             u"pkcs8 -topk8 -v1 PBE-SHA1-3DES -in " + plain_key + u" -outform DER -passout pass:" +
                 Text(key_password) + u" -out " + path(u"llave.key"),
             u"pkcs8 -inform DER -in " + path(u"llave.key") + u" -passin pass:" + Text(key_password) +
                 u" -out " + path(u"pkey.key.pem")});
    files::remove(plain_key);
    say(u"Llave y certificado " + Text(certificate_number) + u" hechos con openssl");
}

void Demo::store_master_data()
{
    openssl({u"x509 -inform DER -in " + path(u"certificado.cer") + u" -out " + path(u"certificado.pem")});
    const Text body = pem_body(to_text(files::read(path(u"certificado.pem"))));
    const Text from = format(local_now(), u"yyyy-mm-dd"),
               until = format(Date{local_now().days + 1460}, u"yyyy-mm-dd");

    execute(u"Delete FE_EMPRESAS Where nEmpresa=1");
    execute(
        u"Insert Into "
        u"FE_EMPRESAS(nEmpresa,cNombre,cCalle,cNumExterior,cNumInterior,cColonia,cLocalidad,cMunicipio"
        u",cEstado,cPais,cCodigoPostal,cTelefono,cRfc,cCurp,nMostrarVersion,nMostrarSerie,"
        u"nMostrarAnnoAprobacion"
        u",nMostrarTipoDeComprobante,nMostrarFormadePago,nMostrarCondicionesDePago,nMostrarSubtotal"
        u",nMostrarDescuento,nMostrarTotal,nMostrarNameSpacePosition,nMostrarxmlns,nMostrarxmlnsxsi"
        u",nMostrarxsischemaLocation) Values(1,'ABARROTES LA ESPERANZA, S.A. DE C.V.','CALLE DE LA "
        u"ALHÓNDIGA','15','',"
        u"'CENTRO','GUANAJUATO','GUANAJUATO','GUANAJUATO','MÉXICO','36000','4737320000','AES010101AAA','',"
        u"1,1,1,1,1,1,1,1,1,1,1,1,1)");
    execute(u"Delete FE_SUCURSALES Where nEmpresa=1 And nSucursal=1");
    execute(u"Insert Into "
            u"FE_SUCURSALES(nEmpresa,nSucursal,nCertificado,nFolio,cNombre,cCalle,cNumExterior,cColonia"
            u",cLocalidad,cMunicipio,cEstado,cPais,cCodigoPostal,cRfc) Values(1,1,1,1,'MATRIZ','CALLE DE LA "
            u"ALHÓNDIGA',"
            u"'15','CENTRO','GUANAJUATO','GUANAJUATO','GUANAJUATO','MÉXICO','36000','AES010101AAA')");
    execute(u"Delete FE_CERTIFICADOS Where nEmpresa=1 And nCertificado=1");
    execute(
        u"Insert Into FE_CERTIFICADOS(nEmpresa,nCertificado,cDescripcion,cRuta_Certificado,cRuta_LlavePrivada"
        u",dVigencia_Cert_Desde,dVigencia_Cert_Hasta,cSerial_Certificado,cSerie_Certificado,cCertificado"
        u",nDiasDeAviso,bVerificaVigencia,cRutaArchivoSelloDigital) Values(1,1,'SELLO DE LA MATRIZ','" +
        path(u"certificado.cer") + u"','" + path(u"llave.key") + u"','" + from + u"','" + until +
        u"','serial=" + serial_in_hex(certificate_number) + u"','" + Text(certificate_number) + u"','" +
        body + u"',15,1,'" + folder_ + u"')");
    // The ranges keep their counters from one demonstration to the next.
    for (const Text& range : {Text(u"1,1,1,1,'FACTURAS','FD','A','2011',2011"),
                              Text(u"2,1,1,1,'NOTAS DE CREDITO','NC','NC','2012',2011")})
        if (fgValorCampo(session(), u"nFolio",
                         u"Select nFolio From FE_FOLIOS(nolock) Where nFolio=" + range.substr(0, 1))
                .is_null())
            execute(u"Insert Into FE_FOLIOS(nFolio,nEmpresa,nSucursal,nCertificado,cDocumento,cFolio,cSerie"
                    u",cNumero_Aprobacion,nAnno,nDesde,nHasta,cStatus,cEsquema) Values(" +
                    range + u",1,100000,'USANDO','1')");
}

// Pedido with its order number, and for every line a Partida with its code.
void Demo::store_addenda_layout()
{
    execute(u"Delete fe_ctl_adendas Where crfccte='TIE010203ABC'");
    execute(u"Delete fe_ctl_adendasDet Where crfccte='TIE010203ABC'");
    for (const TextView row : {u"1,0,'Pedido','E',''", u"2,1,'ordenCompra','A',''", u"3,1,'Det@lle','E',''"})
        execute(
            u"Insert Into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre,cTipo,cValor) Values('TIE010203ABC'," +
            Text(row) + u")");
    for (const TextView row : {u"4,3,'Partida','E',''", u"5,4,'codigo','A','sin código'"})
        execute(u"Insert Into fe_ctl_adendasDet(crfccte,nRama,nPadre,cNombre,cTipo,cValor) "
                u"Values('TIE010203ABC'," +
                Text(row) + u")");
}

void Demo::issue(const DemoFile& file)
{
    const Text name = to_text(file.name);
    const Text moment = format(local_now(), u"yyyy-mm-dd hh:mm:ss");
    files::write(path(name), to_utf8(replace_all(to_text(file.content), u"{FECHA}", moment)));
    const FlatFileResult result = issue_flat_file_records(session(), path(name), {});
    if (!result.failure.empty()) throw invalid_call(files::native_path(path(name)) + u": " + result.failure);
    for (const IssuedDocument& document : result.documents) {
        say(u"\n" + name + u": " + document.series + document.folio);
        say(u"  " + files::native_path(document.xml_path));
        verify_seal(document, document.series == u"NC" ? u"N" : u"F");
        issued_.push_back(document);
    }
}

// Checks the stored seal of the stored original string against the certificate, with openssl alone.
void Demo::verify_seal(const IssuedDocument& document, const Text& kind)
{
    const Recordset row = shared_connection(session()).query(
        u"Select cCadenaOriginal,cSelloDigital,nImporteConLetra From FE_VENTAS_RESUMEN(nolock)"
        u" Where cDocumento='" +
        document.folio + u"' And cTipoDocumento='" + kind + u"' Order By nID Desc");
    files::write(path(u"cadena.tmp"), bytes_of_text(row[u"cCadenaOriginal"].text()));
    files::write(path(u"sello.tmp"), bytes_of_text(row[u"cSelloDigital"].text()));
    openssl({u"x509 -in " + path(u"certificado.pem") + u" -noout -pubkey > " + path(u"publica.tmp"),
             u"enc -base64 -d -A -in " + path(u"sello.tmp") + u" -out " + path(u"firma.tmp"),
             u"dgst -sha1 -verify " + path(u"publica.tmp") + u" -signature " + path(u"firma.tmp") + u" " +
                 path(u"cadena.tmp") + u" > " + path(u"resultado.tmp")});
    say(u"  openssl dgst -verify: " + trim(without(to_text(files::read(path(u"resultado.tmp"))), u'\n')));
    say(u"  " + row[u"nImporteConLetra"].text());
    for (const char16_t* name : {u"cadena.tmp", u"sello.tmp", u"publica.tmp", u"firma.tmp", u"resultado.tmp"})
        files::remove(path(name));
}

void Demo::look_up_and_cancel()
{
    Text next;
    GeneraDocto().fgObtenFolioFactura(u"1", next);
    say(u"\nSiguiente folio del rango 1: " + next);
    const IssuedDocument& first = issued_.front();
    if (!GeneraDocto().CancelaFacturaElectronica(first.folio, local_now(), 1, 1))
        throw invalid_call(last_error());
    say(u"Cancelada la factura " + first.series + first.folio);
}

} // namespace

int demo(const Place& place, const std::string& folder)
{
    const Text path = files::absolute_path(to_text(folder));
    const bool embedded = place.server == "sqlite:";
    Demo(embedded ? Place{"sqlite:", to_utf8(path) + "/tolvex.db", "", ""} : place, path).run();
    return 0;
}

} // namespace tolvex::console
