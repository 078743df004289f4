// Tables of text on standard output: for a person, or as JSON for a program.
#pragma once

#include "platform/forms.hpp"

namespace tolvex::console {

void print_table(const std::vector<ListColumn>& columns, const std::vector<ListRow>& rows);

// A table that is printed piece by piece. A column is as wide as what was printed of it until then.
class GrowingTable
{
public:
    explicit GrowingTable(std::vector<ListColumn> columns) : columns_(std::move(columns)) {}
    void print(const std::vector<ListRow>& rows);

private:
    const std::vector<ListColumn> columns_;
    std::vector<std::size_t> widths_; // none before the first piece
};

// An array of objects, a column's caption as its key.
void print_json(const std::vector<ListColumn>& columns, const std::vector<ListRow>& rows);

} // namespace tolvex::console
