// Tables of text on standard output: for a person, or as JSON for a program.
#pragma once

#include "platform/forms.hpp"

namespace tolvex::console {

void print_table(const std::vector<ListColumn>& columns, const std::vector<ListRow>& rows);
// An array of objects, a column's caption as its key.
void print_json(const std::vector<ListColumn>& columns, const std::vector<ListRow>& rows);

} // namespace tolvex::console
