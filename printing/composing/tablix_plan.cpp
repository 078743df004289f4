#include "printing/composing/tablix_plan.hpp"

#include "core/errors.hpp"
#include "printing/composing/rows.hpp"

#include <algorithm>
#include <limits>

namespace tolvex::printing {

namespace {

const Tablix& tablix_of(const ReportItem& item)
{
    return *std::get<std::shared_ptr<const Tablix>>(item.content);
}

int last_index(const auto& instances) { return static_cast<int>(instances.size()) - 1; }

bool has_groups(const std::vector<TablixMember>& members)
{
    return std::any_of(members.begin(), members.end(),
                       [](const TablixMember& member) { return member.group || has_groups(member.members); });
}

// The sizes of the headers on the branch that has most of them.
std::vector<double> header_sizes(const std::vector<TablixMember>& members)
{
    std::vector<double> most;
    for (const TablixMember& member : members) {
        std::vector<double> sizes = header_sizes(member.members);
        if (member.header) sizes.insert(sizes.begin(), member.header->size);
        if (sizes.size() > most.size()) most = std::move(sizes);
    }
    return most;
}

// The rows that a table goes over: its data set's, or those of the region around it when that reads the same.
const Scope* source(const Report& report, const Tablix& tablix, const Scope* around)
{
    const Scope* named = report.data_set(tablix.data_set);
    if (!tablix.data_set.empty() && !named)
        throw invalid_call(u"No existe el conjunto de datos «" + tablix.data_set + u"»");
    if (around && (tablix.data_set.empty() || around->table == named->table)) return around;
    if (named) return named;
    throw invalid_call(u"El reporte no tiene conjuntos de datos");
}

} // namespace

TablixPlan::TablixPlan(const Canvas& canvas, const ReportItem& item, const Scope* around)
    : canvas_(canvas), tablix_(tablix_of(item))
{
    const Scope& rows = *source(canvas.report(), tablix_, around);
    Scope& region = scopes_.emplace_back(rows);
    region.name = item.name;
    region.parent = &rows;
    region.group = nullptr;
    region.previous = nullptr;
    region.column = nullptr;
    RowOrder& order = orders_.emplace_back(rows.order->begin() + rows.begin, rows.order->begin() + rows.end);
    region.order = &order;
    region.begin = 0;
    region.end = static_cast<std::uint32_t>(order.size());
    keep_filtered(canvas.report(), tablix_.filters, region, order);
    sort_rows(canvas.report(), tablix_.sorting, region, order);
    region_ = &region;

    row_header_widths_ = header_sizes(tablix_.row_members);
    column_header_heights_ = header_sizes(tablix_.column_members);
    int next = 0;
    number_leaves(tablix_.column_members, next);
    next = 0;
    number_leaves(tablix_.row_members, next);
    expand_columns(tablix_.column_members,
                   has_groups(tablix_.column_members) ? &with_order_of_its_own(region) : nullptr, 0);
    for (const ColumnInstance& column : columns_)
        if (column.scope && column.scope->group) rank_rows(*column.scope->order);
    expand_rows(tablix_.row_members, {&region, 0, -1});
    move_new_pages();
}

void TablixPlan::number_leaves(const std::vector<TablixMember>& members, int& next)
{
    for (const TablixMember& member : members) {
        if (member.members.empty()) leaves_[&member] = next++;
        number_leaves(member.members, next);
    }
}

bool TablixPlan::is_hidden(const TablixMember& member, const Scope* scope) const
{
    return is_true(member.hidden, canvas_.environment(scope), member.place);
}

const Scope& TablixPlan::with_order_of_its_own(const Scope& scope)
{
    Scope& own = scopes_.emplace_back(scope);
    own.order = &orders_.emplace_back(*scope.order);
    return own;
}

std::vector<const Scope*> TablixPlan::instances(const TablixMember& member, const Scope& around)
{
    const Report& report = canvas_.report();
    auto& order = const_cast<RowOrder&>(*around.order); // one of orders_
    std::vector<Scope> found;
    Scope instance = around;
    instance.name = member.group->name;
    instance.parent = &around;
    instance.column = nullptr;
    instance.group = &*member.group;
    auto begin = around.begin;
    for (const std::uint32_t end : part_rows(report, *member.group, member.sorting, around, order)) {
        instance.begin = begin;
        instance.end = begin = end;
        found.push_back(instance);
    }
    keep_filtered(report, member.group->filters, found);
    std::vector<const Scope*> all;
    for (Scope& each : found) {
        each.previous = all.empty() ? nullptr : all.back();
        if (!is_hidden(member, &each)) all.push_back(&scopes_.emplace_back(each));
    }
    return all;
}

// --- rows ------------------------------------------------------------------------------------------------

void TablixPlan::expand_rows(const std::vector<TablixMember>& members, Branch branch)
{
    bool grouped = false;
    for (const TablixMember& member : members) {
        const int first = last_index(rows_) + 1;
        if (member.group) {
            Branch own = branch;
            // Groups side by side each order the rows in their way.
            if (grouped) own.scope = &with_order_of_its_own(*branch.scope);
            expand_row_groups(member, own);
            grouped = true;
            continue;
        }
        expand_row_member(member, branch);
        if (member.repeat_on_new_page && member.keep_with_group == KeepWithGroup::after &&
            last_index(rows_) >= first)
            branch.repeated = last_index(rows_);
    }
}

void TablixPlan::expand_row_groups(const TablixMember& member, const Branch& branch)
{
    const PageBreak& page_break = member.group->page_break;
    const bool at_start = page_break.location == Break::start || page_break.location == Break::start_and_end;
    const bool at_end = page_break.location == Break::end || page_break.location == Break::start_and_end;
    bool between = false;
    for (const Scope* instance : instances(member, *branch.scope)) {
        want_new_page(*member.group, instance,
                      at_start || (between && page_break.location == Break::between));
        const int first = last_index(rows_) + 1;
        expand_row_instance(member, {instance, branch.offset, branch.repeated});
        if (last_index(rows_) < first) continue;
        between = true;
        RowInstance& first_row = rows_[static_cast<std::size_t>(first)];
        if (member.keep_together)
            first_row.kept_rows = std::max(first_row.kept_rows, last_index(rows_) - first + 1);
        if (!member.group->document_map_label.is_empty())
            first_row.group_labels.insert(first_row.group_labels.begin(), instance);
        want_new_page(*member.group, instance, at_end);
    }
}

// A group that begins a page takes the header rows above it along, one that ends a page the footer rows
// below.
void TablixPlan::move_new_pages()
{
    const auto move = [this](std::size_t from, std::size_t to) {
        RowInstance& row = rows_[from];
        if (!std::exchange(row.new_page, false)) return;
        const bool resets = std::exchange(row.resets_page_number, false);
        (to < rows_.size() ? rows_[to].new_page : new_page_) = true;
        (to < rows_.size() ? rows_[to].resets_page_number : resets_page_number_) |= resets;
    };
    for (std::size_t i = 0; i < rows_.size(); ++i)
        if (rows_[i].member->keep_with_group == KeepWithGroup::before) move(i, i + 1);
    for (std::size_t i = rows_.size(); i-- > 1;)
        if (rows_[i - 1].member->keep_with_group == KeepWithGroup::after) move(i, i - 1);
}

void TablixPlan::want_new_page(const Group& group, const Scope* scope, bool wanted)
{
    const ScopeEnvironment here = canvas_.environment(scope);
    if (!wanted || is_true(group.page_break.disabled, here, {})) return;
    new_page_ = true;
    if (is_true(group.page_break.reset_page_number, here, {})) resets_page_number_ = true;
}

void TablixPlan::expand_row_member(const TablixMember& member, const Branch& branch)
{
    if (is_hidden(member, branch.scope) || (member.hide_if_no_rows && branch.scope->empty())) return;
    expand_row_instance(member, branch);
}

void TablixPlan::expand_row_instance(const TablixMember& member, const Branch& branch)
{
    const auto header = row_headers_.size();
    Branch below = branch;
    if (member.header) {
        row_headers_.push_back({&member, branch.scope, last_index(rows_) + 1, -1, branch.offset});
        below.offset += member.header->size;
        row_headers_width_ = std::max(row_headers_width_, below.offset);
    }
    if (member.members.empty()) {
        RowInstance& row = rows_.emplace_back();
        row.row = leaves_.at(&member);
        row.member = &member;
        row.scope = branch.scope;
        row.repeated = branch.repeated;
        row.new_page = std::exchange(new_page_, false);
        row.resets_page_number = std::exchange(resets_page_number_, false);
    } else {
        expand_rows(member.members, below);
    }
    if (member.header) row_headers_[header].last = last_index(rows_);
}

// --- columns ---------------------------------------------------------------------------------------------

void TablixPlan::expand_columns(const std::vector<TablixMember>& members, const Scope* scope, double offset)
{
    bool grouped = false;
    for (const TablixMember& member : members) {
        if (!member.group) {
            if (!is_hidden(member, scope ? scope : region_)) expand_column_member(member, scope, offset);
            continue;
        }
        const Scope& around = grouped ? with_order_of_its_own(*scope) : *scope;
        grouped = true;
        for (const Scope* instance : instances(member, around))
            expand_column_member(member, instance, offset);
    }
}

void TablixPlan::expand_column_member(const TablixMember& member, const Scope* scope, double offset)
{
    const auto header = column_headers_.size();
    double below = offset;
    if (member.header) {
        column_headers_.push_back({&member, scope ? scope : region_, last_index(columns_) + 1, -1, offset});
        below += member.header->size;
        column_headers_height_ = std::max(column_headers_height_, below);
    }
    if (member.members.empty()) {
        const int column = leaves_.at(&member);
        const double left = columns_.empty() ? 0 : columns_.back().left + columns_.back().width;
        columns_.push_back({column, scope, left, tablix_.column_widths.at(static_cast<std::size_t>(column))});
    } else {
        expand_columns(member.members, scope, below);
    }
    if (member.header) column_headers_[header].last = last_index(columns_);
}

double TablixPlan::width() const
{
    return row_headers_width_ + (columns_.empty() ? 0 : columns_.back().left + columns_.back().width);
}

void TablixPlan::rank_rows(const RowOrder& order)
{
    auto& ranks = ranks_[&order];
    if (!ranks.empty()) return;
    ranks.assign(region_->table->row_count(), std::numeric_limits<std::uint32_t>::max());
    for (std::uint32_t at = 0; at < region_->end; ++at) ranks[order[at]] = at;
}

// --- cells -----------------------------------------------------------------------------------------------

const Scope* TablixPlan::cell_scope(const RowInstance& row, const ColumnInstance& column,
                                    CellScope& own) const
{
    if (!column.scope || !column.scope->group) return row.scope;
    const auto& ranks = ranks_.at(column.scope->order);
    own.order.clear();
    for (auto at = row.scope->begin; at < row.scope->end; ++at) {
        const std::uint32_t data_row = (*row.scope->order)[at];
        if (ranks[data_row] >= column.scope->begin && ranks[data_row] < column.scope->end)
            own.order.push_back(data_row);
    }
    own.scope = *row.scope;
    own.scope.name.clear();
    own.scope.group = nullptr;
    own.scope.previous = nullptr;
    own.scope.parent = row.scope;
    own.scope.column = column.scope;
    own.scope.order = &own.order;
    own.scope.begin = 0;
    own.scope.end = static_cast<std::uint32_t>(own.order.size());
    return &own.scope;
}

} // namespace tolvex::printing
