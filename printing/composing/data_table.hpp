// The rows that a data set of a layout gives.
#pragma once

#include "printing/rdl/layout.hpp"

#include <cstdint>
#include <unordered_map>

namespace tolvex::printing {

// A value for each field of the data set in each row; calculated fields have none. A value that repeats from
// row to row, as joins give it, is kept once.
class DataTable
{
public:
    explicit DataTable(const DataSet& definition);

    const DataSet& definition() const { return definition_; }
    std::size_t row_count() const { return row_count_; }
    const Variant& value(std::uint32_t row, std::size_t field) const;
    // Place of a field by its name, in any letter case; -1 when there is none.
    int field(TextView name) const;
    // False for a field that the layout declares and the query did not give.
    bool is_given(int field) const { return columns_[static_cast<std::size_t>(field)].given; }

    void set_given(std::size_t field) { columns_[field].given = true; }
    void add(std::size_t field, Variant value);
    void end_row() { ++row_count_; }

private:
    struct Column
    {
        std::vector<Variant> values;
        std::vector<std::uint32_t> places; // of each row's value
        bool given = false;
    };

    const DataSet& definition_;
    std::vector<Column> columns_;
    std::size_t row_count_ = 0;
    mutable std::unordered_map<Text, int> fields_; // as layouts spell them
};

// Places of rows, in the order in which they are shown.
using RowOrder = std::vector<std::uint32_t>;

} // namespace tolvex::printing
