#include "printing/composing/rows.hpp"

#include "core/errors.hpp"
#include "printing/composing/scope_environment.hpp"
#include "printing/expressions/operators.hpp"

#include <algorithm>
#include <map>
#include <numeric>

namespace tolvex::printing {

namespace {

using Keys = std::vector<Variant>;

bool less(const Keys& a, const Keys& b)
{
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](const Variant& x, const Variant& y) { return compare(x, y) < 0; });
}

bool is_of_rank(const Filter& filter)
{
    return filter.comparison.starts_with(u"Top") || filter.comparison.starts_with(u"Bottom");
}

bool passes(const Filter& filter, const Environment& here)
{
    const Variant value = filter.value.evaluate(here);
    Keys operands;
    for (const Expression& operand : filter.operands) {
        const Variant each = operand.evaluate(here);
        if (const auto* list = each.get_if<Variant::List>())
            operands.insert(operands.end(), list->begin(), list->end());
        else
            operands.push_back(each);
    }
    if (operands.empty()) throw invalid_call(u"Un filtro no dice con qué se compara");
    const int order = compare(value, operands[0]);
    if (filter.comparison == u"Equal") return order == 0;
    if (filter.comparison == u"NotEqual") return order != 0;
    if (filter.comparison == u"GreaterThan") return order > 0;
    if (filter.comparison == u"GreaterThanOrEqual") return order >= 0;
    if (filter.comparison == u"LessThan") return order < 0;
    if (filter.comparison == u"LessThanOrEqual") return order <= 0;
    if (filter.comparison == u"Like")
        return is_like(lower_case(value.text()), lower_case(operands[0].text()));
    if (filter.comparison == u"Between")
        return operands.size() > 1 && order >= 0 && compare(value, operands[1]) <= 0;
    if (filter.comparison == u"In")
        return std::any_of(operands.begin(), operands.end(),
                           [&](const Variant& each) { return compare(value, each) == 0; });
    throw invalid_call(u"No existe el filtro " + filter.comparison);
}

Keys keys_of(const std::vector<Expression>& expressions, const Environment& here)
{
    Keys keys;
    keys.reserve(expressions.size());
    for (const Expression& each : expressions) keys.push_back(each.evaluate(here));
    return keys;
}

// Orders places by keys that each is asked for once.
void sort_by(const std::vector<Sorting>& sorting, std::vector<std::pair<Keys, std::uint32_t>>& keyed)
{
    std::stable_sort(keyed.begin(), keyed.end(), [&](const auto& a, const auto& b) {
        for (std::size_t i = 0; i < sorting.size(); ++i) {
            const int order = compare(a.first[i], b.first[i]);
            if (order != 0) return sorting[i].descending ? order > 0 : order < 0;
        }
        return false;
    });
}

Keys sorting_keys(const std::vector<Sorting>& sorting, const Environment& here)
{
    Keys keys;
    for (const Sorting& each : sorting) keys.push_back(each.value.evaluate(here));
    return keys;
}

// Which of so many values "the n highest" (or lowest, or percent) names, in their order; those that tie with
// the last are among them.
std::vector<std::uint32_t> ranked(const Filter& filter, double n, const std::vector<Variant>& values)
{
    const double wanted =
        filter.comparison.ends_with(u"Percent") ? static_cast<double>(values.size()) * n / 100 : n;
    std::vector<std::pair<Keys, std::uint32_t>> keyed;
    for (std::uint32_t i = 0; i < values.size(); ++i) keyed.emplace_back(Keys{values[i]}, i);
    sort_by({{Expression(), filter.comparison.starts_with(u"Top")}}, keyed);
    std::vector<std::uint32_t> kept;
    for (std::size_t i = 0; i < keyed.size(); ++i) {
        const bool ties = i > 0 && compare(keyed[i].first[0], keyed[i - 1].first[0]) == 0;
        if (!(static_cast<double>(i) < wanted) && !(ties && wanted > 0)) break;
        kept.push_back(keyed[i].second);
    }
    std::sort(kept.begin(), kept.end());
    return kept;
}

double rank_of(const Filter& filter, const Environment& here)
{
    if (filter.operands.empty()) throw invalid_call(u"Un filtro no dice con qué se compara");
    return filter.operands[0].evaluate(here).number();
}

void keep_ranked(const Report& report, const Filter& filter, Scope& scope, RowOrder& order)
{
    std::vector<Variant> values;
    RowEnvironment row(report, scope, scope.begin);
    for (auto at = scope.begin; at < scope.end; ++at) {
        row.move_to(at);
        values.push_back(filter.value.evaluate(*row));
    }
    auto end = scope.begin;
    for (const std::uint32_t i : ranked(filter, rank_of(filter, ScopeEnvironment(report, &scope)), values))
        order[end++] = order[scope.begin + i];
    scope.end = end;
}

} // namespace

RowOrder all_rows(const DataTable& table)
{
    RowOrder order(table.row_count());
    std::iota(order.begin(), order.end(), 0U);
    return order;
}

void keep_filtered(const Report& report, const std::vector<Filter>& filters, Scope& scope, RowOrder& order)
{
    for (const Filter& filter : filters) {
        if (is_of_rank(filter)) {
            keep_ranked(report, filter, scope, order);
            continue;
        }
        auto kept = scope.begin;
        RowEnvironment row(report, scope, scope.begin);
        for (auto at = scope.begin; at < scope.end; ++at) {
            row.move_to(at);
            if (passes(filter, *row)) order[kept++] = order[at];
        }
        scope.end = kept;
    }
}

void keep_filtered(const Report& report, const std::vector<Filter>& filters, std::vector<Scope>& instances)
{
    for (const Filter& filter : filters) {
        if (instances.empty()) return;
        if (!is_of_rank(filter)) {
            std::erase_if(instances, [&](const Scope& each) {
                return !passes(filter, ScopeEnvironment(report, &each));
            });
            continue;
        }
        std::vector<Variant> values;
        for (const Scope& each : instances)
            values.push_back(filter.value.evaluate(ScopeEnvironment(report, &each)));
        std::vector<Scope> kept;
        const double n = rank_of(filter, ScopeEnvironment(report, instances.front().parent));
        for (const std::uint32_t i : ranked(filter, n, values)) kept.push_back(instances[i]);
        instances = std::move(kept);
    }
}

void sort_rows(const Report& report, const std::vector<Sorting>& sorting, const Scope& scope, RowOrder& order)
{
    if (sorting.empty()) return;
    std::vector<std::pair<Keys, std::uint32_t>> keyed;
    RowEnvironment row(report, scope, scope.begin);
    for (auto at = scope.begin; at < scope.end; ++at) {
        row.move_to(at);
        keyed.emplace_back(sorting_keys(sorting, *row), order[at]);
    }
    sort_by(sorting, keyed);
    for (std::size_t i = 0; i < keyed.size(); ++i) order[scope.begin + i] = keyed[i].second;
}

namespace {

// The rows of each instance, instances in the order of their first rows.
std::vector<RowOrder> instances_of(const Report& report, const Group& group, const Scope& scope,
                                   const RowOrder& order)
{
    std::vector<RowOrder> instances;
    std::map<Keys, std::size_t, decltype(&less)> known(&less);
    RowEnvironment row(report, scope, scope.begin);
    for (auto at = scope.begin; at < scope.end; ++at) {
        row.move_to(at);
        const auto [place, is_new] = known.try_emplace(keys_of(group.by, *row), instances.size());
        if (is_new) instances.emplace_back();
        instances[place->second].push_back(order[at]);
    }
    return instances;
}

} // namespace

std::vector<std::uint32_t> part_rows(const Report& report, const Group& group,
                                     const std::vector<Sorting>& sorting, const Scope& scope, RowOrder& order)
{
    std::vector<std::uint32_t> ends;
    if (group.by.empty()) {
        sort_rows(report, sorting, scope, order);
        for (auto at = scope.begin; at < scope.end; ++at) ends.push_back(at + 1);
        return ends;
    }
    const std::vector<RowOrder> instances = instances_of(report, group, scope, order);
    std::vector<std::pair<Keys, std::uint32_t>> keyed;
    for (std::uint32_t i = 0; i < instances.size(); ++i) {
        Scope instance = scope;
        instance.name = group.name;
        instance.group = &group;
        instance.parent = &scope;
        instance.order = &instances[i];
        instance.begin = 0;
        instance.end = static_cast<std::uint32_t>(instances[i].size());
        keyed.emplace_back(sorting_keys(sorting, ScopeEnvironment(report, &instance)), i);
    }
    sort_by(sorting, keyed);
    auto end = scope.begin;
    for (const auto& [keys, i] : keyed) {
        std::copy(instances[i].begin(), instances[i].end(), order.begin() + end);
        ends.push_back(end += static_cast<std::uint32_t>(instances[i].size()));
    }
    return ends;
}

} // namespace tolvex::printing
