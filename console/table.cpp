#include "console/table.hpp"

#include "core/text.hpp"

#include <algorithm>
#include <fmt/core.h>
#include <iostream>
#include <sstream>
#include <toml++/toml.h>

namespace tolvex::console {

namespace {

void widen(std::vector<std::size_t>& widths, const ListRow& row)
{
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
}

// Two blanks between columns, none at the end of the line.
void print_row(const std::vector<ListColumn>& columns, const std::vector<std::size_t>& widths,
               const ListRow& row)
{
    Text line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const Text filler(widths[i] - row[i].size(), u' ');
        line += (i > 0 ? u"  " : u"") + (columns[i].right_aligned ? filler + row[i] : row[i] + filler);
    }
    fmt::print("{}\n", to_utf8(trim_right(line)));
}

} // namespace

void print_table(const std::vector<ListColumn>& columns, const std::vector<ListRow>& rows)
{
    GrowingTable(columns).print(rows);
}

void GrowingTable::print(const std::vector<ListRow>& rows)
{
    const bool first = widths_.empty();
    ListRow captions;
    for (const ListColumn& column : columns_) captions.push_back(column.caption);
    widths_.resize(columns_.size());
    widen(widths_, captions);
    for (const ListRow& row : rows) widen(widths_, row);
    if (first) print_row(columns_, widths_, captions);
    for (const ListRow& row : rows) print_row(columns_, widths_, row);
}

void print_json(const std::vector<ListColumn>& columns, const std::vector<ListRow>& rows)
{
    toml::array all;
    for (const ListRow& row : rows) {
        toml::table object;
        for (std::size_t i = 0; i < columns.size(); ++i)
            object.insert(to_utf8(columns[i].caption), to_utf8(row[i]));
        all.push_back(object);
    }
    std::ostringstream json;
    json << toml::json_formatter(all);
    fmt::print("{}\n", json.str());
}

} // namespace tolvex::console
