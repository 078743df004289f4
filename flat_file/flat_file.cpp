#include "flat_file/flat_file.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "flat_file/known_records.hpp"
#include "flat_file/record.hpp"
#include "issuing/issue.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "platform/messages.hpp"
#include "staging/addenda.hpp"
#include "staging/header.hpp"
#include "staging/lines.hpp"

namespace tolvex {

namespace {

// The records of one file, run one after the other.
class FlatFile
{
public:
    FlatFile(Session& session, const Text& folder, const FlatFileEvents& events)
        : session_(session), folder_(folder), events_(events)
    {}

    void run(const Record& record, std::size_t line);
    const std::vector<IssuedDocument>& issued() const { return issued_; }
    // Whether the last record ended a document whose rows are all there: it must not be issued again.
    bool is_past_a_document() const { return is_past_a_document_; }

private:
    void run_cliente(const Record& record);
    void run_detalle(const Record& record);
    void run_emite(const Record& record, std::size_t line);

    Session& session_;
    const Text folder_;
    const FlatFileEvents& events_;
    std::vector<IssuedDocument> issued_;
    bool has_issuer_ = false;
    bool has_receiver_ = false;
    bool is_past_a_document_ = false;
};

void FlatFile::run(const Record& record, std::size_t line)
{
    is_past_a_document_ = false;
    if (record.is(u"EMISOR")) {
        has_issuer_ = false;
        load_issuer(session_, record.int16(1), record.int16(2));
        has_issuer_ = true;
    }
    if (record.is(u"CLIENTE")) run_cliente(record);
    if (record.is(u"DETALLE")) run_detalle(record);
    if (record.is(u"ADDENDA"))
        stage_addenda(session_, record.text(1), record.int16(2), record.int16(3), record.text(4));
    if (record.is(u"ADDENDADET"))
        stage_line_addenda(session_, record.int32(1), record.text(2), record.int16(3), record.int16(4),
                           record.text(5));
    if (record.is(u"EMITE")) run_emite(record, line);
}

void FlatFile::run_cliente(const Record& r)
{
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
                            .Subtotal = r.amount_text(12),
                            .Descuento = r.amount_text(13),
                            .Impuesto = r.amount_text(14),
                            .Total = r.amount_text(15),
                            .FormaPago = r.int16(16),
                            .ClaveFolio = trim(r.text(17)),
                            .FechaHoraDocto = r.date(18),
                            .RutaDeArchivos = r.text(19, folder_),
                            .IvaRet = r.amount(20, 0),
                            .ISRRet = r.amount(21, 0),
                            .moneda = r.text(22, u"PESOS"),
                            .Paridad = r.amount(23, 1),
                            .vlDatoAdicional = r.text(24),
                            .vlDatoAdicional_2 = r.text(25),
                            .vlDatoAdicional_3 = r.text(26)});
    empty_lines(session_);
    empty_addenda(session_);
    has_receiver_ = true;
}

void FlatFile::run_detalle(const Record& r)
{
    stage_line(session_, {.FolioDocto = r.text(1),
                          .TipoDocumento = r.text(2),
                          .CveProducto = r.text(3),
                          .Producto = r.text(4),
                          .Cantidad = r.amount(5),
                          .Unidad = r.text(6),
                          .PrecioSinIva = r.amount(7),
                          .Iva = r.amount(8),
                          .Importe = r.amount(9),
                          .PorcIva = r.amount(10)});
}

void FlatFile::run_emite(const Record& r, std::size_t line)
{
    if (!has_issuer_) throw wrong(u"EMITE necesita antes un registro EMISOR");
    if (!has_receiver_) throw wrong(u"EMITE necesita antes un registro CLIENTE");
    IssueOptions options;
    options.discards_old_work_files = true;
    options.CtrlFolioInterno = r.boolean(2, options.CtrlFolioInterno);
    options.vlTipoDocumento = r.document_kind(3);
    options.vlTasaDeIva = r.int16(4, options.vlTasaDeIva);
    options.vlGeneraAddenda = r.boolean(5, options.vlGeneraAddenda);

    Text vlnFactura = trim(r.text(1));
    if (events_.begins) events_.begins(line);
    forget_error();
    const std::int64_t start = milliseconds_running();
    const IssueResult result = issue_document(session_, vlnFactura, options);
    is_past_a_document_ = result.stored == Stored::wholly;
    if (result.stored != Stored::nothing && !result.issued) throw wrong(last_error());
    if (!result.issued) throw wrong(u"el documento no se emitió: " + last_error());
    has_receiver_ = false; // the next document begins with its own CLIENTE
    issued_.push_back({session_.gSerie, vlnFactura, result.identifier, session_.gTotal, result.xml_path,
                       last_error(), milliseconds_running() - start, line});
    if (events_.issued) events_.issued(issued_.back());
    // Issuing does not notice a failing openssl; a file must not go on with documents that nobody accepts.
    if (result.sello.empty())
        throw wrong(u"el documento se emitió con el sello vacío: revise openssl y pkey.key.pem en la carpeta "
                    u"de trabajo");
}

// The text without its last name and the separator before it.
Text folder_of(const Text& path)
{
    const auto separator = path.find_last_of(u"\\/");
    return separator == Text::npos ? Text(u".") : path.substr(0, separator);
}

// A message box holds no more.
constexpr std::size_t most_shown = 20;

Text faults_in_words(const Review& review, std::size_t most)
{
    std::vector<Text> texts;
    for (const LineFinding& fault : review.faults)
        if (texts.size() < most) texts.push_back(fault.in_words());
    if (review.fault_count > texts.size())
        texts.push_back(u"… y " + decimal(review.fault_count - texts.size()) + u" faltas más");
    texts.push_back(u"No se emitió nada: corrija el archivo y emítalo otra vez.");
    return join(texts, u"\n");
}

Text joined(const Text& folder, const Text& name)
{
    const bool ends = folder.empty() || folder.ends_with(u'\\') || folder.ends_with(u'/');
    return ends ? folder + name : folder + u"\\" + name;
}

// What a host's file comes to: its documents, or what the message says.
struct Outcome
{
    Text documents, message, error;
};

Outcome reviewed_and_issued(Session& session, const Text& path)
{
    const Lines lines(files::read(path));
    const FlatFileOptions options = {.folder = folder_of(path)};
    const Review review = review_flat_file(session, lines, options);
    if (review.fault_count > 0)
        return {{}, faults_in_words(review, most_shown), faults_in_words(review, Review::most_findings)};
    const FlatFileResult result = issue_flat_file_records(session, lines, options, {});
    if (result.failure.empty()) return {result.series_and_folios(), {}, {}};
    const Text message = result.failure + u". " + result.progress();
    return {result.series_and_folios(), message, message};
}

} // namespace

Text FlatFileResult::series_and_folios() const
{
    std::vector<Text> list;
    for (const IssuedDocument& document : documents) list.push_back(document.series + document.folio);
    return join(list, u",");
}

Text FlatFileResult::progress() const
{
    const Text rest = u"; lo que falta comienza en la línea " + decimal(static_cast<std::int64_t>(next_line));
    if (documents.empty()) return u"No se emitió ningún documento" + rest;
    const Text last = documents.back().series + documents.back().folio;
    if (documents.size() == 1) return u"Se emitió un documento, " + last + rest;
    return u"Se emitieron " + decimal(static_cast<std::int64_t>(documents.size())) +
           u" documentos, el último " + last + rest;
}

FlatFileResult issue_flat_file_records(Session& session, const Lines& lines, const FlatFileOptions& options,
                                       const FlatFileEvents& events)
{
    FlatFileResult result;
    FlatFile file(session, options.folder, events);
    result.next_line = options.from_line;
    std::size_t line = 1;
    try {
        for (; line <= lines.count(); ++line) {
            if (const Text text = lines.text(line); counts(text, line, options)) {
                Record record(text);
                if (options.plain_text) record.make_plain();
                file.run(record, line);
                if (file.is_past_a_document()) {
                    result.next_line = line + 1;
                    if (line < lines.count() && events.must_stop && events.must_stop())
                        throw wrong(u"se interrumpió después de este documento");
                }
            }
            if (events.line_done) events.line_done(line, lines.count());
        }
    } catch (const std::exception& error) {
        result.failure = LineFinding{line, words_of(error)}.in_words();
        if (file.is_past_a_document()) result.next_line = line + 1;
    }
    result.documents = file.issued();
    return result;
}

Text issue_flat_file(Session& session, const Text& folder, const Text& name, const ConnectionData& data)
{
    const std::shared_ptr<Connection> shared = session.gConexion;
    const Text path = joined(folder, name);
    Outcome outcome;
    try {
        session.gConexion = std::make_shared<Connection>();
        open_connection(*session.gConexion, data);
        read_dates_as_year_month_day(*session.gConexion);
        outcome = reviewed_and_issued(session, path);
    } catch (const std::exception& error) {
        outcome.message = outcome.error = words_of(error);
    }
    session.gConexion = shared;
    if (!outcome.message.empty()) {
        show_message(outcome.message, u"Facturación Electronica", MessageIcon::exclamation);
        remember_error(outcome.error);
    }
    return outcome.documents;
}

} // namespace tolvex
