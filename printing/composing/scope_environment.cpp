#include "printing/composing/scope_environment.hpp"

#include "core/errors.hpp"

#include <algorithm>
#include <set>

namespace tolvex::printing {

namespace {

constexpr int deepest_reference = 50; // a field, item or variable that names itself goes no deeper

// Counts how deep calculated values refer to each other.
class Depth
{
public:
    explicit Depth(TextView name)
    {
        if (++depth_ > deepest_reference) {
            --depth_;
            throw invalid_call(Text(name) + u" se refiere a sí mismo");
        }
    }
    ~Depth() { --depth_; }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;

private:
    inline static thread_local int depth_ = 0;
};

Error unknown(TextView what, TextView name) { return invalid_call(Text(what) + u" «" + Text(name) + u"»"); }

// The item that an aggregate of a page header or footer goes over; empty when it goes over none.
Text report_item_of(const AggregateCall& call)
{
    Text item;
    call.argument.for_each_mention([&item](Expression::Mention mention, const Text& name) {
        if (mention == Expression::Mention::report_item) item = name;
    });
    return item;
}

// The data region around all others, which a running value goes through when it names no scope.
const Scope* outermost_region(const Scope* scope)
{
    while (scope->parent && scope->parent->parent) scope = scope->parent;
    return scope;
}

bool is_around(const Scope* inner, const Scope& scope)
{
    while (inner && inner != &scope) inner = inner->parent;
    return inner;
}

// The rows from the beginning of a scope to the end of one within it. Each data region between them has an
// order of its own: before its own rows come those before the instance that it stands in.
std::vector<Scope> rows_up_to_here(const Scope& here, const Scope& scope)
{
    std::vector<Scope> parts;
    auto end = here.end;
    for (const Scope* inner = &here; inner;) {
        const Scope* root = inner;
        while (root != &scope && root->parent && root->parent->order == inner->order) root = root->parent;
        Scope part = *root;
        part.end = end;
        if (inner->order == scope.order) part.begin = scope.begin;
        if (part.begin < part.end) parts.insert(parts.begin(), part);
        if (inner->order == scope.order) break;
        inner = root->parent;
        if (inner) end = inner->begin;
    }
    return parts;
}

std::int64_t depth_of(const Scope* scope)
{
    std::int64_t depth = -1;
    for (; scope; scope = scope->parent) ++depth;
    return depth;
}

} // namespace

Variant ScopeEnvironment::field(TextView name) const
{
    if (!scope_) throw unknown(u"No hay un conjunto de datos para el campo", name);
    const int place = scope_->table->field(name);
    if (place < 0) throw unknown(u"No existe el campo", name);
    if (scope_->empty()) return {};
    const Field& field = scope_->table->definition().fields[static_cast<std::size_t>(place)];
    if (field.column.empty()) return Depth(name), field.value.evaluate(*this);
    return scope_->value(scope_->begin, place);
}

bool ScopeEnvironment::has_field(TextView name) const
{
    const int place = scope_ ? scope_->table->field(name) : -1;
    if (place < 0) return false;
    const Field& field = scope_->table->definition().fields[static_cast<std::size_t>(place)];
    return field.column.empty() || scope_->table->is_given(place);
}

Variant ScopeEnvironment::parameter(TextView name) const
{
    const Variant* value = report_.parameter(name);
    if (!value) throw unknown(u"No existe el parámetro", name);
    return *value;
}

Variant ScopeEnvironment::global(TextView name) const
{
    const PageNumbers& numbers = report_.composition().numbers;
    if (name == u"PageNumber") return numbers.page;
    if (name == u"TotalPages") return numbers.total;
    if (name == u"OverallPageNumber") return numbers.overall_page;
    if (name == u"OverallTotalPages") return numbers.overall_total;
    if (name == u"ExecutionTime") return now();
    if (name == u"ReportName") return report_.layout().name;
    if (name == u"Language") return culture().name;
    if (name == u"RenderFormat.Name") return u"PDF";
    if (name == u"RenderFormat.IsInteractive") return false;
    return u""; // what only a report server knows
}

Variant ScopeEnvironment::report_item(TextView name) const
{
    if (current_page_item_) return *current_page_item_;
    const LayoutIndex::TextBox* box = report_.index().text_box(name);
    if (!box) throw unknown(u"No existe el elemento", name);
    if (page_items_) {
        const Variant* value = on_page(name);
        return value ? *value : Variant();
    }
    const Depth depth(name);
    const auto& paragraphs = std::get<Textbox>(box->item->content).paragraphs;
    if (paragraphs.empty() || paragraphs.front().runs.empty()) return {};
    const Scope* its_own = box->scope.empty() ? nullptr : scope_named(scope_, box->scope);
    return paragraphs.front().runs.front().value.evaluate(
        ScopeEnvironment(report_, its_own ? its_own : scope_));
}

Variant ScopeEnvironment::variable(TextView name) const
{
    const Depth depth(name);
    for (const Scope* scope = scope_; scope; scope = scope->parent) {
        if (!scope->group) continue;
        for (const Variable& variable : scope->group->variables)
            if (equal_ignoring_case(variable.name, name))
                return variable.value.evaluate(ScopeEnvironment(report_, scope));
    }
    if (const Variable* variable = report_.variable(name))
        return variable->value.evaluate(ScopeEnvironment(report_, report_.outermost()));
    throw unknown(u"No existe la variable", name);
}

std::int64_t ScopeEnvironment::level(std::optional<Text> scope) const
{
    return depth_of(scope ? scope_named(scope_, *scope) : scope_);
}

const Scope& ScopeEnvironment::scope_of(const AggregateCall& call) const
{
    const Scope* scope = call.scope ? scope_named(scope_, *call.scope) : scope_;
    const bool runs =
        call.function == AggregateFunction::running_value || call.function == AggregateFunction::row_number;
    if (runs && scope && !call.scope) scope = outermost_region(scope);
    if (!scope && call.scope) scope = report_.data_set(*call.scope);
    // A subtotal shows the cells of a matrix: the inner group that they name is then the whole subtotal.
    if (!scope && scope_ && report_.index().has_group(*call.scope)) scope = scope_;
    if (scope) return *scope;
    throw call.scope ? unknown(u"No existe aquí el ámbito", *call.scope)
                     : invalid_call(u"No hay un conjunto de datos sobre el cual calcular");
}

const Variant* ScopeEnvironment::on_page(TextView name) const
{
    if (!page_items_) return nullptr;
    for (const auto& [item, value] : *page_items_)
        if (equal_ignoring_case(item->name, name)) return &value;
    return nullptr;
}

Variant ScopeEnvironment::aggregate(const AggregateCall& call) const
{
    if (page_items_ && !report_item_of(call).empty()) return over_page_items(call);
    const Scope& scope = scope_of(call);
    switch (call.function) {
    case AggregateFunction::count_rows:
        return std::int64_t{scope.size()};
    case AggregateFunction::running_value:
        return running_value(call, scope);
    case AggregateFunction::row_number: {
        std::int64_t count = 0;
        for (const Scope& part : rows_up_to_here(*scope_, scope)) count += part.size();
        return count;
    }
    case AggregateFunction::previous:
        return previous(call, scope);
    default:
        return over_rows(call, scope);
    }
}

Variant ScopeEnvironment::over_page_items(const AggregateCall& call) const
{
    const Text name = report_item_of(call);
    Accumulator accumulator(call.function);
    ScopeEnvironment here = *this;
    for (const auto& [item, value] : *page_items_) {
        if (!equal_ignoring_case(item->name, name)) continue;
        here.current_page_item_ = &value;
        accumulator.add(call.argument.evaluate(here));
    }
    return accumulator.result();
}

Variant ScopeEnvironment::over_rows(const AggregateCall& call, const Scope& scope) const
{
    Accumulator accumulator(call.function);
    if (call.function == AggregateFunction::first || call.function == AggregateFunction::last) {
        if (scope.empty()) return {};
        const auto at = call.function == AggregateFunction::first ? scope.begin : scope.end - 1;
        return call.argument.evaluate(*RowEnvironment(report_, scope, at));
    }
    add_rows(accumulator, call, scope);
    return accumulator.result();
}

Variant ScopeEnvironment::running_value(const AggregateCall& call, const Scope& scope) const
{
    if (scope_->column) return running_in_matrix(call, scope);
    const std::vector<Scope> parts = rows_up_to_here(*scope_, scope);
    if (parts.size() == 1) return running_on(call, parts.front());
    Accumulator accumulator(call.running);
    for (const Scope& part : parts) add_rows(accumulator, call, part);
    return accumulator.result();
}

// What the rows have come to is kept: a long table is gone through once.
Variant ScopeEnvironment::running_on(const AggregateCall& call, const Scope& rows) const
{
    Report::Running& running = report_.running(call, rows);
    if (rows.end < running.upto) { // an earlier row again: from the beginning
        running.accumulator = Accumulator(call.running);
        running.upto = rows.begin;
    }
    Scope next = rows;
    next.begin = std::exchange(running.upto, rows.end);
    add_rows(running.accumulator, call, next);
    return running.accumulator.result();
}

// In a cell of a matrix, down its column for a scope of the columns, else along its row.
Variant ScopeEnvironment::running_in_matrix(const AggregateCall& call, const Scope& scope) const
{
    const Scope &row = *scope_->parent, &column = *scope_->column;
    const Scope& line = is_around(&column, scope) ? scope : row;
    const Scope& across = &line == &row ? column : row;
    const std::set<std::uint32_t> rows(line.order->begin() + line.begin, line.order->begin() + line.end);
    RowOrder order;
    for (const Scope& part : rows_up_to_here(across, *outermost_region(&across)))
        std::copy_if(part.order->begin() + part.begin, part.order->begin() + part.end,
                     std::back_inserter(order), [&rows](std::uint32_t each) { return rows.contains(each); });
    Scope upto = *scope_;
    upto.order = &order;
    upto.end = static_cast<std::uint32_t>(order.size());
    Accumulator accumulator(call.running);
    add_rows(accumulator, call, upto);
    return accumulator.result();
}

void ScopeEnvironment::add_rows(Accumulator& accumulator, const AggregateCall& call, const Scope& rows) const
{
    RowEnvironment row(report_, rows, rows.begin);
    for (auto at = rows.begin; at < rows.end; ++at) {
        row.move_to(at);
        accumulator.add(call.argument.evaluate(*row));
    }
}

Variant ScopeEnvironment::previous(const AggregateCall& call, const Scope& scope) const
{
    const Scope& within = call.scope || !scope_->parent ? scope : *scope_->parent;
    if (scope_->previous && scope_->previous->begin >= within.begin)
        return call.argument.evaluate(ScopeEnvironment(report_, scope_->previous));
    const bool is_first = scope_->group && !call.scope && !scope_->previous;
    if (is_first || scope_->begin <= within.begin) return {};
    return call.argument.evaluate(*RowEnvironment(report_, within, scope_->begin - 1));
}

Variant ScopeEnvironment::lookup(const LookupCall& call) const
{
    const Scope* rows = report_.data_set(call.data_set);
    if (!rows) throw unknown(u"No existe el conjunto de datos", call.data_set);
    const Variant source = call.source.evaluate(*this);
    Variant::List matches;
    RowEnvironment row(report_, *rows, rows->begin);
    for (auto at = rows->begin; at < rows->end; ++at) {
        row.move_to(at);
        if (compare(call.destination.evaluate(*row), source) != 0) continue;
        matches.push_back(call.result.evaluate(*row));
        if (!call.every_match) return matches.front();
    }
    return call.every_match ? Variant(std::move(matches)) : Variant();
}

RowEnvironment::RowEnvironment(const Report& report, const Scope& scope, std::uint32_t position)
    : row_(scope), environment_(report, &row_)
{
    row_.name.clear();
    row_.parent = &scope;
    row_.column = nullptr;
    row_.group = nullptr;
    row_.previous = nullptr;
    move_to(position);
}

void RowEnvironment::move_to(std::uint32_t position)
{
    row_.begin = position;
    row_.end = position < row_.parent->end ? position + 1 : position;
}

} // namespace tolvex::printing
