#include "schema/schema.hpp"

#include "core/errors.hpp"
#include "core/text.hpp"
#include "database/connection_keywords.hpp"
#include "schema/scripts.hpp"

#include <algorithm>

namespace tolvex {

namespace {

struct Table
{
    Text name;
    std::vector<Text> columns;
};

Text first_word(TextView line)
{
    const Text trimmed = trim(line);
    return trimmed.substr(0, trimmed.find(u' '));
}

// The table that a batch creates, as sql_server/tables.sql lays it out: a line with its name, then a line per
// column.
Table table_of(const Text& batch)
{
    const TextView create = u"CREATE TABLE dbo.";
    Table table;
    for (const Text& line : split(batch, u'\n')) {
        if (const auto found = line.find(create); found != Text::npos)
            table.name = first_word(TextView(line).substr(found + create.size()));
        else if (const Text word = first_word(line);
                 !table.name.empty() && !word.empty() && word != u")" && word != u"CONSTRAINT")
            table.columns.push_back(word);
    }
    return table;
}

bool has_column(const std::vector<Column>& columns, const Text& name)
{
    return std::any_of(columns.begin(), columns.end(),
                       [&](const Column& column) { return equal_ignoring_case(column.name, name); });
}

std::vector<Text> missing_from_table(Connection& connection, const Table& table)
{
    std::vector<Text> missing;
    try {
        const Recordset rows = connection.query(u"Select * From " + table.name + u" Where 1=0");
        for (const Text& column : table.columns)
            if (!has_column(rows.columns(), column)) missing.push_back(table.name + u"." + column);
    } catch (const Error& error) {
        missing.push_back(table.name + u": " + error.description());
    }
    return missing;
}

std::vector<Text> missing_function(Connection& connection)
{
    try {
        connection.query(u"Select Letra=dbo.fg_Numero2Letra(1,'PESOS')");
        return {};
    } catch (const Error& error) {
        return {u"dbo.fg_Numero2Letra: " + error.description()};
    }
}

} // namespace

Text schema_script()
{
    return to_text(schema::tables) + to_text(schema::indexes) + to_text(schema::fg_numero2letra);
}

std::vector<Text> batches(const Text& script)
{
    std::vector<Text> all;
    Text batch;
    for (const Text& line : split(script, u'\n')) {
        if (!equal_ignoring_case(trim(without(line, u'\r')), u"GO")) {
            batch += line + u"\n";
            continue;
        }
        all.push_back(batch);
        batch.clear();
    }
    if (!trim(replace_all(batch, u"\n", u"")).empty()) all.push_back(batch);
    return all;
}

void create_schema(Connection& connection)
{
    if (asks_for_embedded(connection.connection_string)) return;
    for (const Text& batch : batches(schema_script())) connection.execute(batch);
}

std::vector<Text> missing_from_schema(Connection& connection)
{
    connection.query(u"Select 1 as nUno");
    std::vector<Text> all;
    const auto add = [&](const std::vector<Text>& missing) {
        all.insert(all.end(), missing.begin(), missing.end());
    };
    for (const Text& batch : batches(to_text(schema::tables)))
        if (const Table table = table_of(batch); !table.name.empty())
            add(missing_from_table(connection, table));
    add(missing_function(connection));
    return all;
}

} // namespace tolvex
