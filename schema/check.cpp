#include "schema/check.hpp"

#include "core/errors.hpp"
#include "core/text.hpp"
#include "database/connection_keywords.hpp"
#include "schema/schema.hpp"
#include "schema/scripts.hpp"

#include <algorithm>

namespace tolvex {

namespace {

struct ExpectedColumn
{
    Text name, declaration; // "nHasta", "int NULL"
};

struct ExpectedTable
{
    Text name;
    std::vector<ExpectedColumn> columns;
};

Text first_word(TextView line) { return Text(line.substr(0, line.find(u' '))); }

ExpectedColumn column_of(const Text& line)
{
    const Text name = first_word(line);
    Text declaration = trim(line.substr(name.size()));
    if (declaration.ends_with(u',')) declaration.pop_back();
    return {name, declaration};
}

// The table that a batch creates, as sql_server/tables.sql lays it out: a line with its name, then a line per
// column.
ExpectedTable table_of(const Text& batch)
{
    const TextView create = u"CREATE TABLE dbo.";
    ExpectedTable table;
    for (const Text& line : split(batch, u'\n')) {
        const Text trimmed = trim(line), word = first_word(trimmed);
        if (const auto found = line.find(create); found != Text::npos)
            table.name = first_word(TextView(line).substr(found + create.size()));
        else if (!table.name.empty() && !word.empty() && word != u")" && word != u"CONSTRAINT")
            table.columns.push_back(column_of(trimmed));
    }
    return table;
}

// How the kinds that the script declares may be read; other decimals, and whole numbers kept in them, serve
// too.
struct KindsOfType
{
    TextView type, called;
    std::initializer_list<ColumnKind> serving;
};

const KindsOfType& kinds_of(const Text& declaration)
{
    using enum ColumnKind;
    static const KindsOfType all[] = {{u"nvarchar", u"texto", {text}},
                                      {u"decimal", u"importe", {money, floating}},
                                      {u"datetime", u"fecha", {date}},
                                      {u"bit", u"sí o no", {bit, integer}},
                                      {u"", u"número entero", {integer, money, floating, bit}}};
    return *std::find_if(std::begin(all), std::end(all), [&](const KindsOfType& each) {
        return starts_with_ignoring_case(declaration, each.type);
    });
}

class Check
{
public:
    explicit Check(Connection& connection)
        : connection_(connection), embedded_(asks_for_embedded(connection.connection_string))
    {}

    std::vector<Text> findings()
    {
        connection_.query(u"Select 1 as nUno");
        for (const Text& batch : batches(to_text(schema::tables)))
            if (const ExpectedTable table = table_of(batch); !table.name.empty()) check_table(table);
        check_document_number();
        check_amount_in_words();
        return std::move(findings_);
    }

private:
    void tell(const Text& what, const Text& wrong) { findings_.push_back(what + u": " + wrong); }

    void check_table(const ExpectedTable& table)
    {
        try {
            const Recordset rows = connection_.query(u"Select * From " + table.name + u" Where 1=0");
            for (const ExpectedColumn& column : table.columns) check_column(table, column, rows.columns());
        } catch (const Error& error) {
            tell(table.name, u"no se puede leer; créela con «tolvex esquema --crea» o dé permiso de lectura "
                             u"sobre ella (" +
                                 error.description() + u")");
        }
    }

    void check_column(const ExpectedTable& table, const ExpectedColumn& expected,
                      const std::vector<Column>& columns)
    {
        const Text name = table.name + u"." + expected.name;
        const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& column) {
            return equal_ignoring_case(column.name, expected.name);
        });
        if (found == columns.end())
            return tell(name, u"falta la columna; " +
                                  (embedded_ ? complete_file
                                             : u"agréguela: " + alter(table) + u"ADD " + added(expected)));
        const KindsOfType& kinds = kinds_of(expected.declaration);
        if (std::find(kinds.serving.begin(), kinds.serving.end(), found->kind) == kinds.serving.end())
            tell(name, u"no es de tipo " + Text(kinds.called) + u"; cámbiela a " +
                           first_word(expected.declaration) +
                           (embedded_ ? Text() : u": " + alter(table) + u"ALTER COLUMN " + added(expected)));
    }

    static Text alter(const ExpectedTable& table) { return u"ALTER TABLE dbo." + table.name + u" "; }

    // As a table that has rows already takes it.
    static Text added(const ExpectedColumn& column)
    {
        const bool has_value = column.declaration.find(u"DEFAULT") != Text::npos;
        return column.name + u" " +
               (has_value ? column.declaration : replace_all(column.declaration, u"NOT NULL", u"NULL"));
    }

    // Issuing adds the document's row without its number and then reads the highest one.
    void check_document_number()
    {
        const Text name = u"FE_VENTAS_RESUMEN.nID";
        try {
            if (embedded_ &&
                number_of(u"Select count(*) as n From sqlite_master Where type='table' And "
                          u"upper(name)='FE_VENTAS_RESUMEN' And sql Not Like '%autoincrement%'") > 0)
                tell(name, u"los números de documentos borrados se vuelven a dar; " + complete_file);
            if (!embedded_ && number_of(u"Select count(*) as n From sys.columns Where object_id="
                                        u"OBJECT_ID('dbo.FE_VENTAS_RESUMEN') And name='nID' And "
                                        u"is_identity=0 And default_object_id=0") > 0)
                tell(name,
                     u"la base de datos no da el número al agregar un documento; cree la tabla de nuevo "
                     u"con nID int IDENTITY(1, 1) y pase sus registros (docs/administracion.md)");
        } catch (const Error& error) {
            tell(name, u"no se pudo ver si la base de datos da el número (" + error.description() + u")");
        }
    }

    int number_of(const Text& sql) { return connection_.query(sql)[u"n"].int32(); }

    // A function of the database's own may word it differently; what it cannot do is lose amount or letters.
    void check_amount_in_words()
    {
        const Text name = u"dbo.fg_Numero2Letra";
        try {
            const Recordset rows = connection_.query(u"Select Letra=dbo.fg_Numero2Letra(21.5,'PESOS')");
            const Text words = rows[u"Letra"].is_null() ? Text() : upper_case(rows[u"Letra"].text());
            const bool right = words.find(u"VEINTI") != Text::npos && words.find(u"50") != Text::npos &&
                               words.find(u'?') == Text::npos && words.find(u'\uFFFD') == Text::npos;
            if (!right)
                tell(name, u"para 21.50 PESOS da «" + words +
                               u"» y debe dar algo como «VEINTIÚN PESOS "
                               u"50/100 M.N.»; bórrela (DROP FUNCTION "
                               u"dbo.fg_Numero2Letra) y ejecute «tolvex "
                               u"esquema --crea»");
        } catch (const Error& error) {
            tell(name, u"no se puede usar; créela con «tolvex esquema --crea» o dé permiso de EXECUTE sobre "
                       u"ella (" +
                           error.description() + u")");
        }
    }

    inline static const Text complete_file = u"complete el archivo con «tolvex esquema --crea»";

    Connection& connection_;
    bool embedded_;
    std::vector<Text> findings_;
};

} // namespace

std::vector<Text> schema_findings(Connection& connection) { return Check(connection).findings(); }

} // namespace tolvex
