#include "database/updatable_recordset.hpp"

#include "core/errors.hpp"
#include "core/text.hpp"
#include "database/connection.hpp"
#include "database/errors.hpp"

#include <algorithm>
#include <cmath>

namespace tolvex {

namespace {

std::vector<Value> row_of(const Recordset& rows)
{
    std::vector<Value> row;
    for (std::size_t i = 0; i < rows.columns().size(); ++i) row.push_back(rows.value(i));
    return row;
}

// What follows a word of a statement, up to the next WHERE or the end.
Text text_after(TextView sql, TextView word)
{
    const Text upper = upper_case(sql);
    const auto start = upper.find(word);
    if (start == Text::npos) return {};
    const auto from = start + word.size();
    const auto end = std::min(upper.find(u" WHERE ", from), upper.size());
    return trim(sql.substr(from, end - from));
}

// Ties to even.
std::int64_t nearest_whole(double number)
{
    constexpr double beyond = 9.2e18;
    if (!(std::abs(number) < beyond)) throw overflow();
    return static_cast<std::int64_t>(std::nearbyint(number));
}

// The value as the kind of the column that takes it, so that a bad one is refused when it is set and every
// driver stores the same. Throws Error 13, or 6 for a number out of range.
Value as_kind(const Value& value, ColumnKind kind)
{
    if (value.is_null()) return value;
    switch (kind) {
    case ColumnKind::text:
        return value.text();
    case ColumnKind::integer:
        return nearest_whole(value.number());
    case ColumnKind::floating:
        return value.number();
    case ColumnKind::money:
        return value.currency();
    case ColumnKind::date:
        return value.date();
    case ColumnKind::bit:
        return value.boolean();
    case ColumnKind::binary:
        break;
    }
    return value;
}

} // namespace

UpdatableRecordset::UpdatableRecordset(Connection& connection, const Text& sql)
    : connection_(connection), table_(text_after(sql, u" FROM ")), condition_(text_after(sql, u" WHERE "))
{
    const Recordset rows = connection.query(sql);
    columns_ = rows.columns();
    if (!rows.eof()) current_ = row_of(rows);
}

Value UpdatableRecordset::operator[](TextView column) const
{
    if (!current_) throw no_current_row();
    return (*current_)[position_of(columns_, column)];
}

const Column& UpdatableRecordset::column(TextView name) const
{
    return columns_[position_of(columns_, name)];
}

void UpdatableRecordset::add_new()
{
    adding_ = true;
    changes_.clear();
}

void UpdatableRecordset::set(TextView column, const Value& value)
{
    if (!adding_ && !current_) throw no_current_row();
    const std::size_t position = position_of(columns_, column);
    std::erase_if(changes_, [&](const auto& change) { return change.first == position; });
    changes_.emplace_back(position, as_kind(value, columns_[position].kind));
}

void UpdatableRecordset::update()
{
    std::vector<Text> names, marks, assignments;
    std::vector<Value> values;
    for (const auto& [column, value] : changes_) {
        const Text& name = columns_[column].name;
        names.push_back(name);
        marks.push_back(u"?");
        assignments.push_back(name + u"=?");
        values.push_back(value);
    }
    const Text sql =
        adding_
            ? u"Insert Into " + table_ + u"(" + join(names, u",") + u") Values(" + join(marks, u",") + u")"
            : u"Update " + table_ + u" Set " + join(assignments, u",") + u" Where " + condition_;
    connection_.execute(sql, values);
    changes_.clear();
    adding_ = false;
}

} // namespace tolvex
