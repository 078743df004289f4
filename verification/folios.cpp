#include "verification/folios.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "verification/folio_runs.hpp"

#include <algorithm>
#include <cmath>

namespace tolvex {

namespace {

// Folios are counted within one of these. What stands before a folio's digits is a part of it.
struct Sequence
{
    std::int16_t company = 0;
    Text serie;
    std::int16_t branch = 0;
    Text kind, prefix;

    auto operator<=>(const Sequence&) const = default;
};

struct Folios
{
    FolioRuns taken, doubled;
    std::optional<FolioRun> bounds; // lowest and highest of the days asked for
};

using Ledger = std::map<Sequence, Folios>;

// "A00123" is 123 behind "A"; a folio without digits at its end, or with more than a number holds, is all
// prefix.
std::pair<Text, std::int64_t> split_folio(const Text& folio)
{
    constexpr std::size_t most_digits = 18;
    const Text text = trim(folio);
    std::size_t digits = 0;
    while (digits < text.size() && is_digit(text[text.size() - 1 - digits])) ++digits;
    if (digits == 0 || digits > most_digits) return {text, 0};
    const std::size_t place = text.size() - digits;
    return {text.substr(0, place), std::stoll(to_utf8(text.substr(place)))};
}

bool is_asked_for(const Value& date, const VerifiedRange& range)
{
    if (!range.from && !range.to) return true;
    return trapping(false, [&] {
        const double day = std::floor(date.date().days);
        return (!range.from || day >= std::floor(range.from->days)) &&
               (!range.to || day <= std::floor(range.to->days));
    });
}

void enter(Ledger& ledger, const Recordset& row, const VerifiedRange& range)
{
    const auto number = [&](TextView column) { return to_int16(leading_number(row[column].text())); };
    const auto [prefix, folio] = split_folio(row[u"cDocumento"].text());
    Folios& folios = ledger[{number(u"nEmpresa"), upper_case(trim(row[u"cSerie"].text())),
                             number(u"nSucursal"), row[u"cTipoDocumento"].text(), upper_case(prefix)}];
    if (!folios.taken.add(folio)) folios.doubled.add(folio);
    if (!is_asked_for(row[u"dFecha"], range)) return;
    if (!folios.bounds) folios.bounds = FolioRun{folio, folio};
    folios.bounds->first = std::min(folios.bounds->first, folio);
    folios.bounds->last = std::max(folios.bounds->last, folio);
}

Text of_company(const VerifiedRange& range)
{
    return range.company == 0 ? Text() : u" And nEmpresa=" + decimal(range.company);
}

Ledger read_ledger(Session& session, const VerifiedRange& range)
{
    constexpr int documents_at_a_time = 5'000;
    Ledger ledger;
    std::int64_t last = 0;
    for (int read = documents_at_a_time; read == documents_at_a_time;) {
        read = 0;
        const Text sql = u"Select top " + decimal(documents_at_a_time) +
                         u" nID,cDocumento,cTipoDocumento,nEmpresa,nSucursal,cSerie,dFecha"
                         u" From FE_VENTAS_RESUMEN(nolock) Where nID>" +
                         decimal(last) + of_company(range) + u" Order By nID";
        for (Recordset rows = shared_connection(session).query(sql); !rows.eof(); rows.move_next(), ++read) {
            enter(ledger, rows, range);
            last = static_cast<std::int64_t>(rows[u"nID"].number());
        }
    }
    return ledger;
}

// One row of FE_FOLIOS.
struct Range
{
    std::int32_t number = 0;
    std::int16_t company = 0, branch = 0;
    Text serie;
    std::int64_t last_folio = 0, counter = 0; // its end and where it stands
};

std::vector<Range> read_ranges(Session& session, const VerifiedRange& range)
{
    std::vector<Range> ranges;
    const Text sql = u"Select nFolio,nEmpresa,nSucursal,cSerie,nHasta,nUltimoFolio From FE_FOLIOS(nolock)"
                     u" Where 1=1" +
                     of_company(range) + u" Order By nFolio";
    for (Recordset rows = shared_connection(session).query(sql); !rows.eof(); rows.move_next()) {
        const auto number = [&](TextView column) { return leading_number(rows[column].text()); };
        ranges.push_back({to_int32(number(u"nFolio")), to_int16(number(u"nEmpresa")),
                          to_int16(number(u"nSucursal")), upper_case(trim(rows[u"cSerie"].text())),
                          to_int32(number(u"nHasta")), to_int32(number(u"nUltimoFolio"))});
    }
    return ranges;
}

Text in_words(const FolioRun& run, TextView one, TextView several)
{
    return run.first == run.last ? Text(one)
                                 : Text(several) + u" (" + decimal(run.last - run.first + 1) + u")";
}

Finding finding_of(const Sequence& sequence, const FolioRun& run)
{
    Finding finding;
    finding.fault = Fault::folio;
    finding.serie = sequence.serie;
    finding.folio = sequence.prefix + decimal(run.first);
    if (run.last != run.first) finding.folio += u" a " + sequence.prefix + decimal(run.last);
    finding.kind = sequence.kind;
    finding.company = sequence.company;
    finding.branch = sequence.branch;
    return finding;
}

class FolioVerification
{
public:
    FolioVerification(Ledger ledger, std::vector<Range> ranges,
                      const std::function<void(const Finding&)>& found)
        : ledger_(std::move(ledger)), ranges_(std::move(ranges)), found_(found)
    {}

    void tell_doubles()
    {
        for (const auto& [sequence, folios] : ledger_) {
            if (!folios.bounds) continue;
            for (const FolioRun& run : folios.doubled.within(*folios.bounds)) tell_double(sequence, run);
        }
    }

    void tell_gaps()
    {
        for (const auto& [sequence, folios] : ledger_) {
            if (!folios.bounds || !sequence.prefix.empty()) continue;
            for (const FolioRun& gap : folios.taken.gaps(*folios.bounds))
                for (const FolioRun& run : missing_of(sequence, gap)) tell_gap(sequence, run);
        }
    }

    void tell_counters()
    {
        for (const Range& range : ranges_) {
            if (range.counter <= 0) continue; // its documents bring folios of their own
            const auto own = highest(range, true), of_any_branch = highest(range, false);
            if (own && *own > range.counter) tell_counter_behind(range, *own);
            if (of_any_branch && *of_any_branch < range.counter) tell_counter_ahead(range, *of_any_branch);
        }
    }

private:
    // Where only one range has the serie, branches and kinds of document share its folios.
    std::vector<FolioRun> missing_of(const Sequence& sequence, const FolioRun& gap) const
    {
        const auto ranges_of_serie = std::ranges::count_if(ranges_, [&](const Range& range) {
            return range.company == sequence.company && range.serie == sequence.serie;
        });
        std::vector<FolioRun> missing{gap};
        if (ranges_of_serie != 1) return missing;
        for (const auto& [other, folios] : ledger_) {
            if (other.company != sequence.company || other.serie != sequence.serie || !other.prefix.empty())
                continue;
            std::vector<FolioRun> left;
            for (const FolioRun& run : missing)
                std::ranges::copy(without(run, folios.taken.within(run)), std::back_inserter(left));
            missing = std::move(left);
        }
        return missing;
    }

    std::optional<std::int64_t> highest(const Range& range, bool own_branch) const
    {
        std::optional<std::int64_t> highest;
        for (const auto& [sequence, folios] : ledger_) {
            if (sequence.company != range.company || sequence.serie != range.serie ||
                !sequence.prefix.empty() || (own_branch && sequence.branch != range.branch))
                continue;
            const auto here = folios.taken.highest_up_to(range.last_folio);
            if (here && (!highest || *here > *highest)) highest = here;
        }
        return highest;
    }

    void tell_double(const Sequence& sequence, const FolioRun& run) const
    {
        Finding finding = finding_of(sequence, run);
        finding.what = in_words(run, u"lo llevan dos documentos o más", u"los llevan dos documentos o más");
        finding.remedy = u"cancele los que sobren y emítalos de nuevo con otro folio";
        found_(finding);
    }

    void tell_gap(const Sequence& sequence, const FolioRun& run) const
    {
        Finding finding = finding_of(sequence, run);
        finding.what =
            in_words(run, u"no hay documento con este folio", u"no hay documentos con estos folios");
        finding.remedy = u"si no se borró con «tolvex borra», busque su XML en Facturas y sus registros en un"
                         u" respaldo de la base de datos";
        found_(finding);
    }

    Finding finding_of_counter(const Range& range, const FolioRun& run) const
    {
        Sequence sequence;
        sequence.company = range.company;
        sequence.branch = range.branch;
        sequence.serie = range.serie;
        return finding_of(sequence, run);
    }

    void tell_counter_behind(const Range& range, std::int64_t highest) const
    {
        Finding finding = finding_of_counter(range, {highest, highest});
        finding.what = u"el contador del rango de folios " + decimal(range.number) + u" va en " +
                       decimal(range.counter) + u" y ya se emitió hasta éste";
        finding.remedy =
            u"póngale " + decimal(highest) + u" a «Último Folio» del rango, o se repetirán folios";
        found_(finding);
    }

    void tell_counter_ahead(const Range& range, std::int64_t highest) const
    {
        Finding finding = finding_of_counter(range, {highest + 1, range.counter});
        finding.what = u"el contador del rango de folios " + decimal(range.number) + u" va en " +
                       decimal(range.counter) + u" y el último documento es el " + decimal(highest);
        finding.remedy =
            u"si no se borraron con «tolvex borra», busque su XML en Facturas y sus registros en un"
            u" respaldo de la base de datos";
        found_(finding);
    }

    const Ledger ledger_;
    const std::vector<Range> ranges_;
    const std::function<void(const Finding&)>& found_;
};

} // namespace

void verify_folios(Session& session, const VerifiedRange& range,
                   const std::function<void(const Finding&)>& found)
{
    Ledger ledger = read_ledger(session, range);
    FolioVerification verification(std::move(ledger), read_ranges(session, range), found);
    verification.tell_doubles();
    verification.tell_gaps();
    if (!range.from && !range.to) verification.tell_counters(); // they stand where the last day left them
}

} // namespace tolvex
