// Where in the data an expression stands: a data set, a data region, an instance of a group, a single row.
#pragma once

#include "printing/composing/data_table.hpp"

namespace tolvex::printing {

struct Scope
{
    Text name; // of the data set, data region or group
    const DataTable* table = nullptr;
    const RowOrder* order = nullptr; // shared with the scopes around it, except in the cells of a matrix
    std::uint32_t begin = 0, end = 0;
    const Scope* parent = nullptr;
    const Scope* column = nullptr; // the instance of a column group, in a matrix
    const Group* group = nullptr;
    const Scope* previous = nullptr; // the instance of the group before this one

    bool empty() const { return begin == end; }
    std::uint32_t size() const { return end - begin; }
    const Variant& value(std::uint32_t position, int field) const
    {
        return table->value((*order)[position], static_cast<std::size_t>(field));
    }
};

// The scope of that name around another one, in any letter case; null when there is none.
const Scope* scope_named(const Scope* innermost, TextView name);

} // namespace tolvex::printing
