#include "database/recordset.hpp"

#include "core/text.hpp"
#include "database/errors.hpp"

#include <algorithm>

namespace tolvex {

Recordset::Recordset(std::unique_ptr<Cursor> cursor) : cursor_(std::move(cursor)), on_row_(cursor_->next()) {}

void Recordset::move_next()
{
    if (!on_row_) throw no_current_row();
    on_row_ = cursor_->next();
}

Value Recordset::operator[](TextView column) const { return value(position_of(columns(), column)); }

Value Recordset::value(std::size_t column) const
{
    if (!on_row_) throw no_current_row();
    return cursor_->value(column);
}

std::size_t position_of(const std::vector<Column>& columns, TextView name)
{
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& column) {
        return equal_ignoring_case(column.name, name);
    });
    if (found == columns.end()) throw no_such_column(name);
    return found - columns.begin();
}

} // namespace tolvex
