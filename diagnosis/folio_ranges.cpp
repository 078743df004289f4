#include "diagnosis/folio_ranges.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"

#include <algorithm>

namespace tolvex {

namespace {

constexpr TextView register_range = u" con «tolvex maestros» o la ventana de folios";

struct Range
{
    std::int32_t number = 0;
    std::int16_t branch = 0;
    Text kind, serie;
    std::int64_t first = 0, last = 0, counter = 0;

    std::int64_t left() const { return last - counter; }
    bool is_used_up() const { return left() <= 0; }
    bool is_nearly_used_up() const { return left() * 10 <= last - first; }
};

std::vector<Range> read_ranges(Connection& connection, std::int16_t company, std::int16_t branch)
{
    std::vector<Range> ranges;
    const Text sql =
        u"Select nFolio,nSucursal,cDocumento,cSerie,nDesde,nHasta,nUltimoFolio From FE_FOLIOS(nolock)"
        u" Where nEmpresa=" +
        decimal(company) + (branch == 0 ? Text() : u" And nSucursal=" + decimal(branch)) +
        u" Order By nFolio";
    for (Recordset rows = connection.query(sql); !rows.eof(); rows.move_next()) {
        const auto number = [&](TextView column) { return leading_number(rows[column].text()); };
        ranges.push_back({to_int32(number(u"nFolio")), to_int16(number(u"nSucursal")),
                          trim(rows[u"cDocumento"].text()), trim(rows[u"cSerie"].text()),
                          to_int32(number(u"nDesde")), to_int32(number(u"nHasta")),
                          to_int32(number(u"nUltimoFolio"))});
    }
    return ranges;
}

// Another range of the branch goes on with that kind of document.
bool has_successor(const Range& range, const std::vector<Range>& ranges)
{
    return std::ranges::any_of(ranges, [&](const Range& other) {
        return other.number != range.number && other.branch == range.branch &&
               equal_ignoring_case(other.kind, range.kind) && !other.is_used_up();
    });
}

Observation observed(const Range& range, const std::vector<Range>& ranges, std::int16_t company)
{
    const Text about = u"empresa " + decimal(company) + u", rango de folios " + decimal(range.number),
               name = range.kind + u" serie " + range.serie + u" de la sucursal " + decimal(range.branch),
               all = name + u", del " + decimal(range.first) + u" al " + decimal(range.last);
    if (range.is_used_up() && has_successor(range, ranges))
        return {Verdict::well, about, all + u": agotado, y otro rango sigue"};
    if (range.is_used_up())
        return {Verdict::wrong, about, all + u": agotado; registre el siguiente" + Text(register_range)};
    if (range.counter + 1 < range.first)
        return {Verdict::warning, about,
                all + u": el contador va en " + decimal(range.counter) + u" y daría el folio " +
                    decimal(range.counter + 1) + u"; póngale " + decimal(range.first - 1) +
                    u" a «Último Folio» del rango, si es él quien da los folios"};
    const Text left = all + u": quedan " + decimal(range.left());
    if (range.is_nearly_used_up() && !has_successor(range, ranges))
        return {Verdict::warning, about, left + u"; registre el siguiente" + Text(register_range)};
    return {Verdict::well, about, left};
}

} // namespace

void look_at_folio_ranges(Connection& connection, std::int16_t company, std::int16_t branch, const Tell& tell)
{
    const std::vector<Range> ranges = read_ranges(connection, company, branch);
    for (const Range& range : ranges) tell(observed(range, ranges, company));
    if (ranges.empty())
        tell({Verdict::wrong, u"empresa " + decimal(company),
              u"no tiene rangos de folios; registre uno" + Text(register_range)});
}

} // namespace tolvex
