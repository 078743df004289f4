#include "flat_file/review.hpp"

#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "flat_file/known_records.hpp"
#include "flat_file/value_check.hpp"
#include "issuing/issue.hpp"
#include "platform/files.hpp"

#include <cmath>

namespace tolvex {

namespace {

Text money(double amount) { return format(amount, u"###,###,###,##0.00"); }

// The document that is being put together, as far as its records could be read.
struct Draft
{
    std::size_t first_line; // of its CLIENTE
    Text rfc = {};
    std::int32_t folio_range = 0; // 0 when it could not be read
    double subtotal = 0, rest = 0, total = 0, lines_total = 0;
    int lines = 0;
    bool is_sound = true; // every value could be read
};

class Reviewer
{
public:
    Reviewer(const Session& session, const Lines& lines, const FlatFileOptions& options)
        : lines_(lines), options_(options), known_(session)
    {}

    Review run();

private:
    void review_line(const Text& text);
    void review_order(TextView name);
    void review_record(const Text& text);
    void review_meaning(const Record& record);
    void review_issuer(const Record& record);
    void begin_document(const Record& record);
    void review_key(const Text& folder);
    void add_line(const Record& record);
    void review_node(const Record& record, bool of_lines);
    void review_document(const Record& emite);
    void review_folio(const Record& emite);
    void review_folio_range(bool is_credit_note);
    void review_sums();
    void fault(const Text& text) { add(review_.faults, review_.fault_count, line_, text); }
    void warn(const Text& text) { add(review_.warnings, review_.warning_count, line_, text); }
    static void add(std::vector<LineFinding>& list, std::size_t& count, std::size_t line, const Text& text);

    const Lines& lines_;
    const FlatFileOptions& options_;
    KnownRecords known_;
    Review review_;
    std::size_t line_ = 0;
    std::int16_t company_ = 0; // 0 without an issuer that is there
    bool has_issuer_ = false;
    std::map<Text, bool> has_key_; // by folder
    std::optional<Draft> draft_;
};

Text name_of(const Text& line) { return upper_case(trim(line.substr(0, line.find(u'|')))); }

Review Reviewer::run()
{
    for (line_ = 1; line_ <= lines_.count(); ++line_) {
        const Text text = lines_.text(line_);
        if (counts(text, line_, options_)) review_line(text);
    }
    if (draft_) {
        line_ = draft_->first_line;
        fault(u"a este documento le falta su EMITE");
    }
    // The worst first: warnings get the room that faults leave.
    review_.warnings.resize(std::min(review_.warnings.size(), Review::most_findings - review_.faults.size()),
                            LineFinding{});
    return std::move(review_);
}

void Reviewer::add(std::vector<LineFinding>& list, std::size_t& count, std::size_t line, const Text& text)
{
    if (++count <= Review::most_findings) list.push_back({line, text});
}

void Reviewer::review_line(const Text& text)
{
    const Text name = name_of(text);
    review_order(name);
    const std::size_t faults_before = review_.fault_count;
    if (const std::size_t letter = lines_.bad_letter(line_))
        fault(u"la letra " + decimal(static_cast<std::int64_t>(letter)) +
              u" no es UTF-8, y el resto del archivo sí: guárdelo otra vez como UTF-8");
    else
        review_record(text);
    if (draft_ && review_.fault_count > faults_before) draft_->is_sound = false;
    if (name == u"EMITE") draft_.reset();
}

void Reviewer::review_record(const Text& text)
{
    try {
        Record record(text);
        if (options_.plain_text)
            for (const std::size_t i : record.make_plain())
                warn(record.value_in_words(i) + u" se escribe «" + record.text(i) + u"»");
        for (const Text& each : oddities_of_values(record)) warn(each);
        if (record.is(u"EMITE")) review_folio(record);
        const std::vector<Text> faults = faults_of_values(record);
        for (const Text& each : faults) fault(each);
        if (faults.empty()) review_meaning(record);
    } catch (const Error& error) {
        fault(error.description());
    }
}

void Reviewer::review_meaning(const Record& record)
{
    if (record.is(u"EMISOR")) review_issuer(record);
    if (record.is(u"CLIENTE")) begin_document(record);
    if (record.is(u"DETALLE")) add_line(record);
    if (record.is(u"ADDENDA")) review_node(record, false);
    if (record.is(u"ADDENDADET")) review_node(record, true);
    if (record.is(u"EMITE")) review_document(record);
}

void Reviewer::review_order(TextView name)
{
    if (name == u"EMISOR") has_issuer_ = true;
    if (name == u"CLIENTE") {
        if (draft_) fault(u"el documento de la línea " + decimal(draft_->first_line) + u" no tiene EMITE");
        draft_ = Draft{line_};
    } else if (name == u"EMITE") {
        ++review_.document_count;
        if (!has_issuer_) fault(u"EMITE necesita antes un registro EMISOR");
        if (!draft_)
            fault(u"EMITE necesita antes un registro CLIENTE");
        else if (draft_->lines == 0)
            fault(u"el documento no lleva ningún DETALLE");
    } else if (name == u"DETALLE" || name == u"ADDENDA" || name == u"ADDENDADET") {
        if (!draft_)
            fault(Text(name) + u" está fuera de un documento: va entre su CLIENTE y su EMITE");
        else if (name == u"DETALLE")
            ++draft_->lines;
    }
}

void Reviewer::review_issuer(const Record& record)
{
    company_ = 0;
    const std::int16_t company = record.int16(1);
    const Text& lacking = known_.fault_of_issuer(company, record.int16(2));
    if (!lacking.empty()) return fault(lacking);
    company_ = company;
}

void Reviewer::begin_document(const Record& record)
{
    if (!draft_->is_sound) return;
    review_key(record.text(19, options_.folder));
    draft_->rfc = without(trim(record.text(1)), u'-');
    draft_->folio_range = record.int32(17);
    draft_->subtotal = record.amount(12).units();
    draft_->rest = record.amount(14).units() - record.amount(13).units() - record.amount(20, 0).units() -
                   record.amount(21, 0).units();
    draft_->total = record.amount(15).units();
}

// Without it the document would be issued with an empty seal.
void Reviewer::review_key(const Text& folder)
{
    const auto [found, is_new] = has_key_.try_emplace(folder);
    if (is_new) found->second = files::exists(folder + u"\\pkey.key.pem");
    if (!found->second)
        fault(u"falta la llave pkey.key.pem en la carpeta de trabajo " + files::native_path(folder));
}

void Reviewer::add_line(const Record& record)
{
    if (draft_ && draft_->is_sound) draft_->lines_total += record.amount(9).units();
}

// A value of a node that the receiver's addenda lacks would be left out without a word.
void Reviewer::review_node(const Record& record, bool of_lines)
{
    if (!draft_ || draft_->rfc.empty()) return;
    const std::size_t first = of_lines ? 3 : 2;
    const std::int16_t nRama = record.int16(first), nPadre = record.int16(first + 1);
    if (!known_.has_node(draft_->rfc, of_lines, nRama, nPadre))
        fault(u"la addenda del receptor " + draft_->rfc + u" no tiene " +
              (of_lines ? u"en sus renglones " : u"") + u"la rama " + decimal(nRama) + u" del padre " +
              decimal(nPadre));
}

void Reviewer::review_document(const Record& emite)
{
    if (!draft_ || !draft_->is_sound) return;
    review_folio_range(emite.document_kind(3) == u"egreso");
    review_sums();
}

void Reviewer::review_folio(const Record& emite)
{
    if (trim(emite.text(2)) == u"1") return; // from the range's counter
    const Text folio = trim(emite.text(1));
    const Text advice =
        u": escriba uno como 00000120, o CtrlFolioInterno 1 para tomar el siguiente del rango";
    if (folio.empty()) return fault(emite.value_in_words(1) + u" está vacío" + advice);
    try {
        folio_number(folio);
    } catch (const Error&) {
        fault(emite.value_in_words(1) + u" no tiene un número de folio: \"" + folio + u"\"" + advice);
    }
}

void Reviewer::review_folio_range(bool is_credit_note)
{
    const KnownRecords::FolioRange& range = known_.folio_range(draft_->folio_range);
    const Text number = u"el rango de folios " + decimal(draft_->folio_range);
    if (range.company == 0) return fault(u"no existe " + number);
    if (company_ != 0 && range.company != company_)
        warn(number + u" es de la empresa " + decimal(range.company) + u", y emite la " + decimal(company_));
    if (equal_ignoring_case(range.kind, is_credit_note ? u"FACTURAS" : u"NOTAS DE CREDITO"))
        warn(number + u" es de " + range.kind + u", y el documento es " +
             (is_credit_note ? u"una nota de crédito" : u"una factura"));
}

void Reviewer::review_sums()
{
    constexpr double a_cent = 0.0101; // and the noise of binary fractions
    const double total = draft_->subtotal + draft_->rest;
    if (std::fabs(draft_->total - total) > a_cent)
        warn(u"el Total es " + money(draft_->total) + u" y sus partes suman " + money(total));
    if (draft_->lines > 0 && std::fabs(draft_->subtotal - draft_->lines_total) > a_cent * draft_->lines)
        warn(u"el Subtotal es " + money(draft_->subtotal) + u" y sus renglones suman " +
             money(draft_->lines_total));
}

} // namespace

Text LineFinding::in_words() const
{
    return u"Línea " + decimal(static_cast<std::int64_t>(line)) + u": " + text;
}

bool counts(const Text& text, std::size_t line, const FlatFileOptions& options)
{
    return !is_skipped(text) && (line >= options.from_line || name_of(text) == u"EMISOR");
}

Review review_flat_file(const Session& session, const Lines& lines, const FlatFileOptions& options)
{
    return Reviewer(session, lines, options).run();
}

} // namespace tolvex
