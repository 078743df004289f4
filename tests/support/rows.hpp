// Rows of a query as one text, to compare them whole.
#pragma once

#include "database/connection.hpp"

namespace tolvex::testing {

// Rows joined by "/", their columns by "|", after the column's name when it is asked for.
inline Text rows_as_text(Connection& connection, const Text& sql, bool with_names = false)
{
    Text all;
    for (Recordset rows = connection.query(sql); !rows.eof(); rows.move_next()) {
        if (!all.empty()) all += u"/";
        for (std::size_t i = 0; i < rows.columns().size(); ++i) {
            if (i > 0) all += u"|";
            if (with_names) all += rows.columns()[i].name + u"=";
            all += rows.value(i).is_null() ? u"Null" : rows.value(i).text();
        }
    }
    return all;
}

} // namespace tolvex::testing
