#include "maintenance/list_filler.hpp"

#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/text.hpp"
#include "platform/messages.hpp"

#include <algorithm>

namespace tolvex {

namespace {

bool is_numeric(ColumnKind kind)
{
    return kind == ColumnKind::integer || kind == ColumnKind::floating || kind == ColumnKind::money;
}

// As wide as its field or its caption, with a margin, but not so wide that it hides its neighbours.
int width_of(const Column& column)
{
    constexpr std::size_t margin = 2, widest = 40;
    return static_cast<int>(std::min(std::max(column.size, column.name.size()), widest) + margin);
}

std::vector<ListColumn> columns_of(const Recordset& rows)
{
    std::vector<ListColumn> columns;
    for (const Column& column : rows.columns())
        columns.push_back({trim(column.name), width_of(column), is_numeric(column.kind)});
    return columns;
}

Text shown(const Value& value, ColumnKind kind)
{
    if (value.is_null()) return {};
    if (kind == ColumnKind::date) return format(value.date(), u"YYYY-MM-DD");
    if (kind == ColumnKind::money) return format(value.currency(), u"#,##0.00");
    return value.text();
}

ListRow row_of(const Recordset& rows)
{
    ListRow row;
    for (std::size_t i = 0; i < rows.columns().size(); ++i)
        row.push_back(shown(rows.value(i), rows.columns()[i].kind));
    return row;
}

} // namespace

void LlenaLista(Session& session, FormView& view, TextView list, const Text& sql)
{
    try {
        Recordset rows = shared_connection(session).query(sql);
        view.clear_rows(list);
        view.set_columns(list, columns_of(rows));
        for (; !rows.eof(); rows.move_next()) view.add_row(list, row_of(rows));
    } catch (const std::exception& error) {
        // Deliberate: the blanks at the start.
        show_message(u"      Un error ha Ocurrido - " + words_of(error), u"Seguridad", MessageIcon::critical);
    }
}

} // namespace tolvex
