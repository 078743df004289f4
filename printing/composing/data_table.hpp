// The rows that a data set of a layout gives.
#pragma once

#include "printing/rdl/layout.hpp"

#include <cstdint>
#include <unordered_map>

namespace tolvex::printing {

// Rows of values in the order of the data set's fields; calculated fields have no place in them.
struct DataTable
{
    const DataSet* definition = nullptr;
    std::vector<std::vector<Variant>> rows;
    std::vector<bool> given; // per field: the query gave its column

    // Place of a field by its name, in any letter case; -1 when there is none.
    int field(TextView name) const;

private:
    mutable std::unordered_map<Text, int> places_; // as layouts spell them
};

// Places of rows, in the order in which they are shown.
using RowOrder = std::vector<std::uint32_t>;

} // namespace tolvex::printing
