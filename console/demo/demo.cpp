// The demonstration: a company of its own with a real key pair, four documents issued from flat files, their
// seals verified with openssl.
#include "console/command.hpp"
#include "console/demo/demo_files.hpp"
#include "console/master_data/registration.hpp"
#include "console/output.hpp"
#include "core/code_pages.hpp"
#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "flat_file/flat_file.hpp"
#include "issuing/stored_documents.hpp"
#include "maintenance/records.hpp"
#include "platform/batch_runner.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "platform/given_answers.hpp"
#include "printing/default_layout.hpp"
#include "printing/document_report.hpp"
#include "schema/sample_addenda.hpp"
#include "schema/schema.hpp"

#include <set>

namespace tolvex::console {

namespace {

constexpr TextView certificate_number = u"20001000000100005867";
constexpr TextView demo_rfc = u"DEM110101AAA"; // nobody's: by it the records of the demonstration are known
constexpr TextView key_password = u"12345678a";

// What an order of openssl is about; what follows may hold a password.
Text first_word(const Text& order) { return order.substr(0, order.find(u' ')); }

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

Error foreign(const Text& name)
{
    return invalid_call(u"La carpeta tiene algo que no es de la demostración, " + name +
                        u"; indique otra con --carpeta");
}

class Demo
{
public:
    Demo(const Place& place, const Text& folder) : place_(place), folder_(folder) {}

    void run();

private:
    Text path(const Text& name) const { return folder_ + u"\\" + name; }
    void make_folder();
    bool is_own_folder() const;
    void refuse_files_of_others() const;
    void open_database();
    void make_certificate();
    void register_master_data();
    void find_numbers();
    void issue(const DemoFile& file);
    void verify_seal(const IssuedDocument& document, const Text& kind);
    void look_up_and_cancel();
    void print_documents();
    void openssl(const std::vector<Text>& commands);

    Text filled_in(const char* text) const;

    const Place place_;
    const Text folder_;
    std::int16_t company_ = 0, branch_ = 0, invoices_ = 0, credit_notes_ = 0; // numbers of the records
    std::vector<IssuedDocument> issued_;
};

void Demo::run()
{
    make_folder();
    open_database();
    make_certificate();
    register_master_data();
    for (const DemoFile& file : demo_files) issue(file);
    look_up_and_cancel();
    print_documents();
    print_line(u"\nTodo está en " + folder_ + u":");
    print_line(u"  base de datos     " + to_text(place_.database) + u" (empresa " + decimal(company_) +
               u", sucursal " + decimal(branch_) + u", rangos de folios " + decimal(invoices_) + u" y " +
               decimal(credit_notes_) + u")");
    print_line(u"  Facturas/         los documentos XML");
    print_line(
        u"  FacturaElec_*.pdf los documentos impresos; con otro formato: tolvex imprime FOLIO --reporte FORMATO");
    print_line(
        u"  certificado.cer   el certificado; pkey.key.pem es su llave y llave.key la misma con contraseña " +
        Text(key_password));
    print_line(u"  *.txt             los archivos planos; emita otro con: tolvex emite ARCHIVO" +
               to_text(options_of(place_)));
}

void Demo::make_folder()
{
    if (folder_.find(u' ') != Text::npos)
        throw invalid_call(
            u"La carpeta no puede llevar blancos, pues las líneas de sello.bat no los admiten: " + folder_);
    if (!files::folder_exists(folder_)) files::create_folder(folder_);
    if (!is_own_folder()) refuse_files_of_others();
    files::write(path(u"maestros.toml"), master_data);
}

// An earlier demonstration left its master data there.
bool Demo::is_own_folder() const
{
    const Text file = path(u"maestros.toml");
    return files::exists(file) && to_text(files::read(file)).find(demo_rfc) != Text::npos;
}

// A key or a document of that name would be replaced.
void Demo::refuse_files_of_others() const
{
    std::vector<Text> names = {u"maestros.toml", u"llave.key", u"certificado.cer", u"certificado.pem",
                               u"pkey.key.pem"};
    for (const DemoFile& file : demo_files) names.push_back(to_text(file.name));
    for (const Text& name : names)
        if (files::exists(path(name))) throw foreign(name);
    if (files::folder_exists(path(u"Facturas"))) throw foreign(u"Facturas");
}

void Demo::open_database()
{
    connect_or_create(place_);
    create_schema(shared_connection(session()));
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
        throw invalid_call(u"openssl no pudo ejecutar su orden «" + first_word(commands.back()) +
                           u"» (código " + decimal(exit_code) + u"): revise que esté instalado");
}

void Demo::make_certificate()
{
    if (files::exists(path(u"llave.key")) && files::exists(path(u"certificado.cer"))) return;
    const Text plain_key = path(u"llave.tmp"), request = path(u"solicitud.tmp");
    files::write(request, certificate_request);
    openssl({u"genrsa -out " + plain_key + u" 2048",
             u"req -x509 -new -sha1 -config " + request + u" -key " + plain_key + u" -set_serial 0x" +
                 serial_in_hex(certificate_number) + u" -days 1460 -outform DER -out " +
                 path(u"certificado.cer"),
             u"pkcs8 -topk8 -v1 PBE-SHA1-3DES -in " + plain_key + u" -outform DER -passout pass:" +
                 Text(key_password) + u" -out " + path(u"llave.key")});
    files::remove(plain_key);
    files::remove(request);
    print_line(u"Llave y certificado " + Text(certificate_number) + u" hechos con openssl");
}

// As an installation script would: the master data from a file, the key's password typed by nobody.
void Demo::register_master_data()
{
    const Text file = path(u"maestros.toml");
    {
        const GivenAnswers answers(to_utf8(key_password) + "\n");
        register_companies(entries_in(files::read(file)), file);
    }
    find_numbers();
    store_sample_addenda(shared_connection(session()));
    openssl({u"x509 -inform DER -in " + path(u"certificado.cer") + u" -out " + path(u"certificado.pem")});
}

void Demo::find_numbers()
{
    company_ = find_company(session(), Text(demo_rfc));
    branch_ = find_branch(session(), company_, u"MATRIZ");
    invoices_ = find_folio_range(session(), company_, u"FACTURAS", u"A", u"1");
    credit_notes_ = find_folio_range(session(), company_, u"NOTAS DE CREDITO", u"NC", u"1");
}

Text Demo::filled_in(const char* text) const
{
    Text filled = to_text(text);
    for (const auto& [mark, value] : {std::pair{u"{FECHA}", format(local_now(), u"yyyy-mm-dd hh:mm:ss")},
                                      {u"{EMISOR}", decimal(company_) + u"|" + decimal(branch_)},
                                      {u"{FACTURAS}", decimal(invoices_)},
                                      {u"{NOTAS}", decimal(credit_notes_)}})
        filled = replace_all(filled, mark, value);
    return filled;
}

void Demo::issue(const DemoFile& file)
{
    const Text name = to_text(file.name);
    files::write(path(name), to_utf8(filled_in(file.content)));
    const Lines lines(files::read(path(name)));
    const FlatFileResult result = issue_flat_file_records(session(), lines, {.folder = folder_}, {});
    if (!result.failure.empty()) throw invalid_call(files::native_path(path(name)) + u": " + result.failure);
    for (const IssuedDocument& document : result.documents) {
        print_line(u"\n" + name + u": " + document.series + document.folio);
        print_line(u"  " + files::native_path(document.xml_path));
        verify_seal(document, document.series == u"NC" ? u"N" : u"F");
        issued_.push_back(document);
    }
}

// Checks the stored seal of the stored original string against the certificate, with openssl alone.
void Demo::verify_seal(const IssuedDocument& document, const Text& kind)
{
    const StoredDocument stored = read_document(session(), {document.folio, company_, branch_}, kind);
    files::write(path(u"cadena.tmp"), bytes_of_text(stored.original_string));
    files::write(path(u"sello.tmp"), bytes_of_text(stored.sello));
    openssl({u"x509 -in " + path(u"certificado.pem") + u" -noout -pubkey > " + path(u"publica.tmp"),
             u"enc -base64 -d -A -in " + path(u"sello.tmp") + u" -out " + path(u"firma.tmp"),
             u"dgst -sha1 -verify " + path(u"publica.tmp") + u" -signature " + path(u"firma.tmp") + u" " +
                 path(u"cadena.tmp") + u" > " + path(u"resultado.tmp")});
    print_line(u"  openssl dgst -verify: " +
               trim(without(to_text(files::read(path(u"resultado.tmp"))), u'\n')));
    print_line(u"  " + stored.amount_in_words);
    for (const char16_t* name : {u"cadena.tmp", u"sello.tmp", u"publica.tmp", u"firma.tmp", u"resultado.tmp"})
        files::remove(path(name));
}

void Demo::look_up_and_cancel()
{
    Text next;
    next_folio_of_range(session(), decimal(invoices_), next);
    print_line(u"\nSiguiente folio del rango " + decimal(invoices_) + u": " + next);
    const IssuedDocument& first = issued_.front();
    if (!cancel_document(session(), {first.folio, company_, branch_}, local_now(), false))
        throw invalid_call(last_error());
    print_line(u"Cancelada la factura " + first.series + first.folio);
}

// An invoice and a credit note of one folio share a file, each on its own pages.
void Demo::print_documents()
{
    const printing::Layout layout = printing::parse_layout(layouts::factura);
    session().gRutaDeArchivos = folder_;
    std::set<Text> folios;
    for (const IssuedDocument& document : issued_) folios.insert(document.folio);
    for (const Text& folio : folios) {
        const Text file = report_pdf_path(session(), folio);
        export_document(layout, shared_connection(session()), {folio, company_}, file);
        print_line(u"Impresa en PDF: " + files::native_path(file));
    }
}

class DemoCommand : public Command
{
public:
    const char* name() const override { return "demo"; }
    const char* purpose() const override
    {
        return "Prepara una empresa de prueba y emite documentos de verdad";
    }
    const char* example() const override { return "tolvex demo --carpeta prueba"; }

    void declare(Options& options) override
    {
        options.option("--carpeta", folder_, "Carpeta de trabajo; en ella hace su base de datos, tolvex.db");
    }

    std::vector<std::string> refused_options(const Place& place) const override
    {
        if (!is_embedded(place)) return {};
        return {"--bd", "--usuario", "--clave"};
    }

    // On the embedded database in the folder, or on the server that the place names.
    int run(const Place& place) override
    {
        const Text path = files::absolute_path(to_text(folder_));
        Demo(is_embedded(place) ? Place{"sqlite:", to_utf8(files::native_path(path + u"\\tolvex.db")), "", ""}
                                : place,
             path)
            .run();
        return 0;
    }

private:
    std::string folder_ = "demo";
};

} // namespace

std::unique_ptr<Command> demo_command() { return std::make_unique<DemoCommand>(); }

} // namespace tolvex::console
