// How the staged tables grow and are emptied: the count says what is valid, never the table's size.
#pragma once

#include "core/errors.hpp"
#include "session/session.hpp"

#include <limits>

namespace tolvex {

// The new last row. Throws Error 6 past the largest 32-bit count.
template <class Row>
Row& add_row(std::vector<Row>& rows, std::int32_t& count)
{
    if (count == std::numeric_limits<std::int32_t>::max()) throw overflow();
    ++count;
    rows.resize(static_cast<std::size_t>(count) + 1);
    return rows.back();
}

// Deliberate: row 1 keeps its old content until it is overwritten.
template <class Row>
void empty_rows(std::vector<Row>& rows, std::int32_t& count)
{
    rows.resize(2);
    count = 0;
}

} // namespace tolvex
