#include "flat_file/flat_file.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "flat_file/lines.hpp"
#include "flat_file/record.hpp"
#include "issuing/issue.hpp"
#include "issuing/master_data.hpp"
#include "platform/messages.hpp"
#include "staging/addenda.hpp"
#include "staging/header.hpp"
#include "staging/lines.hpp"

namespace tolvex {

namespace {

// The text without its last name and the separator before it.
Text folder_of(const Text& path)
{
    const auto separator = path.find_last_of(u"\\/");
    return separator == Text::npos ? Text(u".") : path.substr(0, separator);
}

// The records of one file, run one after the other.
class FlatFile
{
public:
    FlatFile(Session& session, const Text& path, const FlatFileEvents& events)
        : session_(session), folder_(folder_of(path)), events_(events)
    {}

    void run(const Record& record);
    const std::vector<IssuedDocument>& issued() const { return issued_; }

private:
    void run_emisor(const Record& record);
    void run_cliente(const Record& record);
    void run_detalle(const Record& record);
    void run_addenda(const Record& record);
    void run_addendadet(const Record& record);
    void run_emite(const Record& record);

    Session& session_;
    const Text folder_;
    const FlatFileEvents& events_;
    std::vector<IssuedDocument> issued_;
    bool has_issuer_ = false;
    bool has_receiver_ = false;
};

void FlatFile::run(const Record& record)
{
    const Text name = record.name();
    if (name == u"EMISOR") return run_emisor(record);
    if (name == u"CLIENTE") return run_cliente(record);
    if (name == u"DETALLE") return run_detalle(record);
    if (name == u"ADDENDA") return run_addenda(record);
    if (name == u"ADDENDADET") return run_addendadet(record);
    if (name == u"EMITE") return run_emite(record);
    throw wrong(u"no se conoce el registro \"" + name + u"\"");
}

// A load that trapped an error half-way still says True; here that counts as a failure.
void require(bool loaded, const Text& what)
{
    if (!last_error().empty()) throw wrong(u"no se pudo cargar " + what + u": " + last_error());
    if (!loaded) throw wrong(u"no existe " + what);
}

void FlatFile::run_emisor(const Record& record)
{
    record.expect_values(2, 2);
    const std::int16_t nEmpresa = record.int16(1, u"nEmpresa");
    const std::int16_t nSucursal = record.int16(2, u"nSucursal");
    forget_error();
    has_issuer_ = false;
    require(load_company(session_, nEmpresa), u"la empresa " + decimal(nEmpresa));
    require(load_branch(session_, nEmpresa, nSucursal), u"la sucursal " + decimal(nSucursal));
    require(load_certificate(session_, nEmpresa), u"el certificado " + decimal(session_.gnCertificado));
    has_issuer_ = true;
}

void FlatFile::run_cliente(const Record& r)
{
    r.expect_values(19, 26);
    stage_header(session_, {.Rfc = r.text(1),
                            .Nombre = r.text(2),
                            .Calle = r.text(3),
                            .NumeroExt = r.text(4),
                            .NumeroInt = r.text(5),
                            .Colonia = r.text(6),
                            .Localidad = r.text(7),
                            .Estado = r.text(8),
                            .Municipio = r.text(9),
                            .Pais = r.text(10),
                            .CodigoPos = r.text(11),
                            .Subtotal = r.amount_text(12, u"Subtotal"),
                            .Descuento = r.amount_text(13, u"Descuento"),
                            .Impuesto = r.amount_text(14, u"Impuesto"),
                            .Total = r.amount_text(15, u"Total"),
                            .FormaPago = r.int16(16, u"FormaPago"),
                            .ClaveFolio = trim(r.text(17)),
                            .FechaHoraDocto = r.date(18, u"FechaHoraDocto"),
                            .RutaDeArchivos = r.text(19, folder_),
                            .IvaRet = r.amount(20, u"IvaRet", 0),
                            .ISRRet = r.amount(21, u"ISRRet", 0),
                            .moneda = r.text(22, u"PESOS"),
                            .Paridad = r.amount(23, u"Paridad", 1),
                            .vlDatoAdicional = r.text(24),
                            .vlDatoAdicional_2 = r.text(25),
                            .vlDatoAdicional_3 = r.text(26)});
    empty_lines(session_);
    empty_addenda(session_);
    has_receiver_ = true;
}

void FlatFile::run_detalle(const Record& r)
{
    r.expect_values(10, 10);
    stage_line(session_, {.FolioDocto = r.text(1),
                          .TipoDocumento = r.text(2),
                          .CveProducto = r.text(3),
                          .Producto = r.text(4),
                          .Cantidad = r.amount(5, u"Cantidad"),
                          .Unidad = r.text(6),
                          .PrecioSinIva = r.amount(7, u"PrecioSinIva"),
                          .Iva = r.amount(8, u"Iva"),
                          .Importe = r.amount(9, u"Importe"),
                          .PorcIva = r.amount(10, u"PorcIva")});
}

void FlatFile::run_addenda(const Record& r)
{
    r.expect_values(3, 4);
    stage_addenda(session_, r.text(1), r.int16(2, u"nRama"), r.int16(3, u"nPadre"), r.text(4));
}

void FlatFile::run_addendadet(const Record& r)
{
    r.expect_values(4, 5);
    stage_line_addenda(session_, r.int32(1, u"nRenglon"), r.text(2), r.int16(3, u"nRama"),
                       r.int16(4, u"nPadre"), r.text(5));
}

void FlatFile::run_emite(const Record& r)
{
    r.expect_values(0, 5);
    if (!has_issuer_) throw wrong(u"EMITE necesita antes un registro EMISOR");
    if (!has_receiver_) throw wrong(u"EMITE necesita antes un registro CLIENTE");
    IssueOptions options;
    options.discards_old_work_files = true;
    options.CtrlFolioInterno = r.boolean(2, u"CtrlFolioInterno", options.CtrlFolioInterno);
    options.vlTipoDocumento = trim(r.text(3, options.vlTipoDocumento));
    if (!r.text(4).empty()) options.vlTasaDeIva = r.int16(4, u"vlTasaDeIva");
    options.vlGeneraAddenda = r.boolean(5, u"vlGeneraAddenda", options.vlGeneraAddenda);

    Text vlnFactura = trim(r.text(1));
    forget_error();
    const IssueResult result = issue_document(session_, vlnFactura, options);
    if (result.stored != Stored::nothing && !result.issued) throw wrong(last_error());
    if (!result.issued) throw wrong(u"el documento no se emitió: " + last_error());
    has_receiver_ = false; // the next document begins with its own CLIENTE
    issued_.push_back({session_.gSerie, vlnFactura, result.xml_path, last_error()});
    if (events_.issued) events_.issued(issued_.back());
    // Issuing does not notice a failing openssl; a file must not go on with documents that nobody accepts.
    if (result.sello.empty())
        throw wrong(u"el documento se emitió con el sello vacío: revise openssl y pkey.key.pem en la carpeta "
                    u"de trabajo");
}

} // namespace

Text FlatFileResult::series_and_folios() const
{
    std::vector<Text> list;
    for (const IssuedDocument& document : documents) list.push_back(document.series + document.folio);
    return join(list, u",");
}

FlatFileResult issue_flat_file_records(Session& session, const Text& path, const FlatFileEvents& events)
{
    FlatFileResult result;
    std::size_t line = 0;
    FlatFile file(session, path, events);
    try {
        const std::vector<Text> lines = lines_of_file(path);
        while (line < lines.size()) {
            const Text& text = lines[line++];
            if (!is_skipped(text)) file.run(Record(text));
            if (events.line_done) events.line_done(line, lines.size());
        }
    } catch (const std::exception& error) {
        const Text place = line == 0 ? Text() : u"Línea " + decimal(static_cast<std::int64_t>(line)) + u": ";
        result.failure = place + words_of(error);
    }
    result.documents = file.issued();
    return result;
}

Text issue_flat_file(Session& session, const Text& folder, const Text& name, const ConnectionData& data)
{
    const std::shared_ptr<Connection> shared = session.gConexion;
    const Text path = folder.empty() || folder.ends_with(u'\\') || folder.ends_with(u'/')
                          ? folder + name
                          : folder + u"\\" + name;
    FlatFileResult result;
    try {
        session.gConexion = std::make_shared<Connection>();
        open_connection(*session.gConexion, data);
        read_dates_as_year_month_day(*session.gConexion);
        result = issue_flat_file_records(session, path, {});
    } catch (const std::exception& error) {
        result.failure = words_of(error);
    }
    session.gConexion = shared;
    if (!result.failure.empty()) {
        remember_error(result.failure);
        show_message(result.failure, u"Facturación Electronica", MessageIcon::exclamation);
    }
    return result.series_and_folios();
}

} // namespace tolvex
