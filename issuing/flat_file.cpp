#include "issuing/flat_file.hpp"

#include "core/errors.hpp"
#include "issuing/issue.hpp"
#include "issuing/master_data.hpp"
#include "platform/files.hpp"
#include "platform/messages.hpp"
#include "session/configuracion.hpp"
#include "tolvex/tolvex.hpp"

namespace tolvex {

namespace {

// What is wrong with a record, in words for the user.
Error wrong(const Text& reason) { return invalid_call(reason); }

// The values of one record, by position from 1 and with their names for messages.
class Record
{
    bool has(std::size_t i) const { return i < fields_.size() && !fields_[i].empty(); }

    Error wrong_value(std::size_t i, const char16_t* value_name, const Text& expected) const
    {
        return wrong(u"el valor " + decimal(i) + u" de " + name() + u" (" + value_name + u") no es " +
                     expected + u": \"" + text(i) + u"\"");
    }

    template <class Convert>
    auto converted(std::size_t i, const char16_t* value_name, const Text& expected, Convert convert) const
    {
        try {
            return convert(text(i));
        } catch (const Error&) {
            throw wrong_value(i, value_name, expected);
        }
    }

    template <class Integer, Integer (*Convert)(double)>
    static Integer whole_number(const Text& text)
    {
        const double number = to_number(text);
        if (number != round_half_even(number, 0)) throw type_mismatch();
        return Convert(number);
    }

public:
    explicit Record(const Text& line) : fields_(split(line, u'|')) {}

    Text name() const { return upper_case(trim(fields_[0])); }

    void expect_values(std::size_t least, std::size_t most) const
    {
        const std::size_t count = fields_.size() - 1;
        if (count >= least && count <= most) return;
        const Text expected = decimal(least) + (least == most ? u"" : u" a " + decimal(most));
        throw wrong(name() + u" lleva " + expected + u" valores y trae " + decimal(count));
    }

    Text text(std::size_t i, const Text& otherwise = u"") const { return has(i) ? fields_[i] : otherwise; }

    std::int16_t int16(std::size_t i, const char16_t* value_name) const
    {
        return converted(i, value_name, u"un número entero de -32768 a 32767",
                         whole_number<std::int16_t, to_int16>);
    }

    std::int32_t int32(std::size_t i, const char16_t* value_name) const
    {
        return converted(i, value_name, u"un número entero", whole_number<std::int32_t, to_int32>);
    }

    Currency amount(std::size_t i, const char16_t* value_name) const
    {
        return converted(i, value_name, u"un importe", to_currency);
    }

    Currency amount(std::size_t i, const char16_t* value_name, Currency otherwise) const
    {
        return has(i) ? amount(i, value_name) : otherwise;
    }

    // An amount that is handed on as the text it is.
    Text amount_text(std::size_t i, const char16_t* value_name) const
    {
        amount(i, value_name);
        return trim(fields_[i]);
    }

    Date date(std::size_t i, const char16_t* value_name) const
    {
        return converted(i, value_name, u"una fecha aaaa-mm-dd hh:mm:ss", to_date);
    }

    bool boolean(std::size_t i, const char16_t* value_name, bool otherwise) const
    {
        if (!has(i)) return otherwise;
        const Text value = trim(fields_[i]);
        if (value != u"0" && value != u"1") throw wrong_value(i, value_name, u"0 o 1");
        return value == u"1";
    }

private:
    std::vector<Text> fields_;
};

Text decoded(const std::string& bytes)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (!is_valid_utf8(bytes)) return from_windows_1252(bytes);
    return to_text(std::string_view(bytes).substr(bytes.starts_with(mark) ? mark.size() : 0));
}

std::vector<Text> lines_of(const Text& path)
{
    std::vector<Text> lines = split(decoded(files::read(path)), u'\n');
    for (Text& line : lines)
        if (line.ends_with(u'\r')) line.pop_back();
    if (lines.back().empty()) lines.pop_back();
    return lines;
}

bool is_skipped(const Text& line) { return trim(line).empty() || line.starts_with(u'#'); }

// The text without its last name and the separator before it.
Text folder_of(const Text& path)
{
    const auto separator = path.find_last_of(u"\\/");
    return separator == Text::npos ? Text(u".") : path.substr(0, separator);
}

class FlatFile
{
public:
    FlatFile(Session& session, const Text& path, const FlatFileEvents& events)
        : session_(session), folder_(folder_of(path)), events_(events)
    {}

    void run(const Record& record);
    const std::vector<IssuedDocument>& issued() const { return issued_; }

private:
    void load_issuer(const Record& record);
    void stage_receiver(const Record& record);
    void stage_line(const Record& record);
    void stage_addenda(const Record& record);
    void stage_line_addenda(const Record& record);
    void issue(const Record& record);

    Session& session_;
    const Text folder_;
    const FlatFileEvents& events_;
    std::vector<IssuedDocument> issued_;
    DocumentValues document_;
    bool has_issuer_ = false;
    bool has_receiver_ = false;
};

void FlatFile::run(const Record& record)
{
    const Text name = record.name();
    if (name == u"EMISOR") return load_issuer(record);
    if (name == u"CLIENTE") return stage_receiver(record);
    if (name == u"DETALLE") return stage_line(record);
    if (name == u"ADDENDA") return stage_addenda(record);
    if (name == u"ADDENDADET") return stage_line_addenda(record);
    if (name == u"EMITE") return issue(record);
    throw wrong(u"no se conoce el registro \"" + name + u"\"");
}

// A load that trapped an error half-way still says True; here that counts as a failure.
void require(bool loaded, const Text& what)
{
    if (!last_error().empty()) throw wrong(u"no se pudo cargar " + what + u": " + last_error());
    if (!loaded) throw wrong(u"no existe " + what);
}

void FlatFile::load_issuer(const Record& record)
{
    record.expect_values(2, 2);
    const std::int16_t nEmpresa = record.int16(1, u"nEmpresa");
    const std::int16_t nSucursal = record.int16(2, u"nSucursal");
    forget_error();
    has_issuer_ = false;
    require(GetDatosEmpresa(session_, nEmpresa), u"la empresa " + decimal(nEmpresa));
    require(GetDatosSucursal(session_, nEmpresa, nSucursal), u"la sucursal " + decimal(nSucursal));
    require(GetDatosCertificado(session_, nEmpresa), u"el certificado " + decimal(session_.gnCertificado));
    has_issuer_ = true;
}

void FlatFile::stage_receiver(const Record& r)
{
    r.expect_values(19, 26);
    Cliente().SetDatosClientes(r.text(1), r.text(2), r.text(3), r.text(4), r.text(5), r.text(6), r.text(7),
                               r.text(8), r.text(9), r.text(10), r.text(11), r.amount_text(12, u"Subtotal"),
                               r.amount_text(13, u"Descuento"), r.amount_text(14, u"Impuesto"),
                               r.amount_text(15, u"Total"), r.int16(16, u"FormaPago"), trim(r.text(17)),
                               r.date(18, u"FechaHoraDocto"), r.text(19, folder_), r.amount(20, u"IvaRet", 0),
                               r.amount(21, u"ISRRet", 0), r.text(22, u"PESOS"), r.amount(23, u"Paridad", 1),
                               r.text(24), r.text(25), r.text(26));
    DetFacturas().InicializaDetalleFactura();
    Addenda().InicializaAddenda();
    has_receiver_ = true;
}

void FlatFile::stage_line(const Record& r)
{
    r.expect_values(10, 10);
    DetFacturas().SetDetalleDocto(r.text(1), r.text(2), r.text(3), r.text(4), r.amount(5, u"Cantidad"),
                                  r.text(6), r.amount(7, u"PrecioSinIva"), r.amount(8, u"Iva"),
                                  r.amount(9, u"Importe"), r.amount(10, u"PorcIva"));
}

void FlatFile::stage_addenda(const Record& r)
{
    r.expect_values(3, 4);
    Addenda().SetAddenda(r.text(1), r.int16(2, u"nRama"), r.int16(3, u"nPadre"), r.text(4));
}

void FlatFile::stage_line_addenda(const Record& r)
{
    r.expect_values(4, 5);
    Addenda().SetAddendaDet(r.int32(1, u"nRenglon"), r.text(2), r.int16(3, u"nRama"), r.int16(4, u"nPadre"),
                            r.text(5));
}

void FlatFile::issue(const Record& r)
{
    r.expect_values(0, 5);
    if (!has_issuer_) throw wrong(u"EMITE necesita antes un registro EMISOR");
    if (!has_receiver_) throw wrong(u"EMITE necesita antes un registro CLIENTE");
    IssueOptions options;
    options.CtrlFolioInterno = r.boolean(2, u"CtrlFolioInterno", options.CtrlFolioInterno);
    options.vlTipoDocumento = trim(r.text(3, options.vlTipoDocumento));
    if (!r.text(4).empty()) options.vlTasaDeIva = r.int16(4, u"vlTasaDeIva");
    options.vlGeneraAddenda = r.boolean(5, u"vlGeneraAddenda", options.vlGeneraAddenda);

    Text vlnFactura = trim(r.text(1));
    forget_error();
    if (!issue_document(session_, document_, vlnFactura, options))
        throw wrong(u"el documento no se emitió: " + last_error());
    has_receiver_ = false; // the next document begins with its own CLIENTE
    issued_.push_back({session_.gSerie, vlnFactura, document_.xml_path});
    if (events_.issued) events_.issued(issued_.back());
    // Issuing does not notice a failing openssl; a file must not go on with documents that nobody accepts.
    if (document_.sello.empty())
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
        const std::vector<Text> lines = lines_of(path);
        while (line < lines.size()) {
            const Text& text = lines[line++];
            if (!is_skipped(text)) file.run(Record(text));
            if (events.line_done) events.line_done(line, lines.size());
        }
    } catch (const std::exception& error) {
        const Text place = line == 0 ? Text() : u"Línea " + decimal(static_cast<std::int64_t>(line)) + u": ";
        result.failure = place + to_text(error.what());
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
        open_connection(*session.gConexion, data.user, data.password, data.database, data.server);
        result = issue_flat_file_records(session, path, {});
    } catch (const std::exception& error) {
        result.failure = to_text(error.what());
    }
    session.gConexion = shared;
    if (!result.failure.empty()) {
        remember_error(result.failure);
        show_message(result.failure, u"Facturación Electronica", MessageIcon::exclamation);
    }
    return result.series_and_folios();
}

} // namespace tolvex
