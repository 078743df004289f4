#include "database/embedded/completion.hpp"

#include "core/errors.hpp"
#include "core/text.hpp"
#include "database/embedded/schema.hpp"

namespace tolvex::embedded {

namespace {

// A transaction that is undone unless it is committed.
class Transaction
{
public:
    explicit Transaction(Database& database) : database_(database) { database_.run("BEGIN IMMEDIATE"); }
    ~Transaction()
    {
        if (database_.in_transaction()) quietly([&] { database_.run("ROLLBACK"); });
    }
    Transaction(const Transaction&) = delete;
    void commit() { database_.run("COMMIT"); }

private:
    Database& database_;
};

std::string quoted(const std::string& text, char quote)
{
    std::string inside;
    for (const char character : text) inside += std::string(character == quote ? 2 : 1, character);
    return quote + inside + quote;
}

std::string name(const std::string& text) { return quoted(text, '"'); }
std::string literal(const std::string& text) { return quoted(text, '\''); }

std::string joined(const std::vector<std::string>& names)
{
    std::string all;
    for (const std::string& each : names) all += (all.empty() ? "" : ",") + name(each);
    return all;
}

std::vector<std::string> first_columns(const std::vector<std::vector<std::string>>& rows)
{
    std::vector<std::string> all;
    for (const auto& row : rows) all.push_back(row.front());
    return all;
}

std::vector<std::string> tables_of(Database& database)
{
    return first_columns(
        database.rows("SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite_%'"));
}

// Those with a statement of their own; keys bring theirs along.
std::vector<std::string> indexes_of(Database& database, const std::string& table)
{
    return first_columns(
        database.rows("SELECT name FROM sqlite_master WHERE type='index' AND sql IS NOT NULL "
                      "AND tbl_name=" +
                      literal(table)));
}

// The statement that makes a table, view or index; empty when there is none of that name.
std::string statement_of(Database& database, const std::string& object)
{
    return database.answer("SELECT sql FROM sqlite_master WHERE name=" + literal(object) + " COLLATE NOCASE");
}

bool is_table(Database& database, const std::string& object)
{
    return database.answer("SELECT count(*) FROM sqlite_master WHERE type='table' AND name=" +
                           literal(object) + " COLLATE NOCASE") != "0";
}

std::vector<std::string> columns_of(Database& database, const std::string& table)
{
    return first_columns(database.rows("SELECT name FROM pragma_table_info(" + literal(table) + ")"));
}

bool has_column(Database& database, const std::string& table, const std::string& column)
{
    return database.answer("SELECT count(*) FROM pragma_table_info(" + literal(table) +
                           ") WHERE name=" + literal(column) + " COLLATE NOCASE") != "0";
}

// As a table that has rows already can take it: a column without a default value cannot forbid Null there.
std::string declaration_of(Database& database, const std::string& table, const std::string& column)
{
    const char *type = nullptr, *collation = nullptr;
    int not_null = 0, key = 0, numbered = 0;
    database.check(sqlite3_table_column_metadata(database.handle(), nullptr, table.c_str(), column.c_str(),
                                                 &type, &collation, &not_null, &key, &numbered));
    const std::string value = database.answer("SELECT dflt_value FROM pragma_table_info(" + literal(table) +
                                              ") WHERE name=" + literal(column));
    std::string declaration = name(column) + " " + (type ? type : "") + " COLLATE " + collation;
    if (!value.empty()) declaration += (not_null ? " NOT NULL DEFAULT " : " DEFAULT ") + value;
    return declaration;
}

// Those that the other database's table has and this one's lacks.
void add_columns(Database& to, const std::string& table, Database& from, const std::string& other_table)
{
    for (const std::string& column : columns_of(from, other_table))
        if (!has_column(to, table, column))
            to.run("ALTER TABLE " + name(table) + " ADD COLUMN " + declaration_of(from, other_table, column));
}

bool numbers_never_come_back(const std::string& create_table)
{
    return lower_case(to_text(create_table)).find(u"autoincrement") != Text::npos;
}

// The engine changes nothing of the kind in a table that is there, so a new one takes its rows and its name.
void make_anew(Database& file, const std::string& table, Database& model)
{
    const std::string successor = table + "_nueva";
    const std::vector<std::string> around = first_columns(
        file.rows("SELECT sql FROM sqlite_master WHERE type IN ('index','trigger') AND sql IS NOT NULL "
                  "AND tbl_name=" +
                  literal(table) + " COLLATE NOCASE"));
    std::string create = statement_of(model, table);
    file.run(create.replace(create.find(table), table.size(), name(successor)));
    add_columns(file, successor, file, table);
    const std::string columns = joined(columns_of(file, table));
    file.run("INSERT INTO " + name(successor) + "(" + columns + ") SELECT " + columns + " FROM " +
             name(table));
    file.run("DROP TABLE " + name(table));
    file.run("ALTER TABLE " + name(successor) + " RENAME TO " + name(table));
    for (const std::string& statement : around) file.run(statement);
}

void complete_table(Database& file, const std::string& table, Database& model)
{
    const std::string wanted = statement_of(model, table);
    if (statement_of(file, table).empty()) file.run(wanted);
    if (!is_table(file, table)) return; // a view in its place is somebody's own
    add_columns(file, table, model, table);
    if (numbers_never_come_back(wanted) && !numbers_never_come_back(statement_of(file, table)))
        make_anew(file, table, model);
    for (const std::string& index : indexes_of(model, table))
        if (statement_of(file, index).empty()) file.run(statement_of(model, index));
}

} // namespace

void complete_schema(Database& file)
{
    Database model(u":memory:");
    model.run(tables_and_indexes);
    file.run("PRAGMA legacy_alter_table=ON"); // views may name a table that is away for a moment
    Transaction all(file);
    for (const std::string& table : tables_of(model)) complete_table(file, table, model);
    all.commit();
}

} // namespace tolvex::embedded
