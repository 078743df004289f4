// What Connection, Recordset and UpdatableRecordset promise, on every database alike.
#include "core/errors.hpp"
#include "database/connection.hpp"
#include "database/errors.hpp"
#include "support/backends.hpp"
#include "support/rows.hpp"
#include "support/schema_change.hpp"
#include "support/tables.hpp"

#include <gmock/gmock.h>

namespace tolvex {

void PrintTo(const Value& value, std::ostream* out)
{
    *out << (value.is_null() ? "Null" : '"' + to_utf8(value.text()) + '"');
}

namespace {

using testing::database_failure;
using testing::error_number;

const Text all_rows = u"Select * from tolvex_prueba order by nClave";

class ConnectionContract : public ::testing::TestWithParam<Backend>
{
protected:
    void SetUp() override
    {
        connection_.connection_string = GetParam().connection_string;
        connection_.open();
        drop_table();
        testing::change_schema(
            connection_,
            u"create table tolvex_prueba (nClave int not null primary key, nCorto smallint, bActivo bit,"
            u" nFlotante float, nImporte decimal(18,4), dFecha datetime, cTexto nvarchar(200),"
            u" cLargo ntext, bFoto varbinary(8000))");
    }

    void TearDown() override
    {
        if (!connection_.is_open()) connection_.open();
        connection_.roll_back();
        drop_table();
    }

    void drop_table()
    {
        error_number([&] { testing::change_schema(connection_, u"drop table tolvex_prueba"); });
    }

    UpdatableRecordset new_row(int key)
    {
        auto row = connection_.open_updatable(u"Select * from tolvex_prueba Where 1=0");
        row.add_new();
        row.set(u"nClave", key);
        return row;
    }

    void add(int key) { new_row(key).update(); }

    static int count(Connection& connection)
    {
        return connection.query(u"Select count(*) as nCuantos from tolvex_prueba")[u"nCuantos"].int32();
    }
    int count() { return count(connection_); }

    // The value after a column took it and gave it back.
    Value stored(const Text& column, const Value& value)
    {
        connection_.execute(u"delete from tolvex_prueba");
        auto row = new_row(1);
        row.set(column, value);
        row.update();
        return connection_.query(all_rows)[column];
    }

    Connection connection_;
};

INSTANTIATE_TEST_SUITE_P(Database, ConnectionContract, ::testing::ValuesIn(backends()),
                         [](const auto& info) { return info.param.name; });

TEST_P(ConnectionContract, values_come_back_as_they_were_stored)
{
    const std::pair<Text, Value> cases[] = {
        {u"nCorto", -32'768},
        {u"nClave", 2'147'483'647},
        {u"bActivo", true},
        {u"bActivo", false},
        {u"nFlotante", 0.1},
        {u"nFlotante", -1.5e300},
        {u"nImporte", Currency::from_scaled(999'999'999'999'99)},
        {u"nImporte", Currency::from_scaled(-1)},
        {u"dFecha", Date::of(2011, 3, 15, 14, 5, 9)},
        {u"cTexto", u""},
        {u"cTexto", u"Ñandú 'entre comillas' \"y\" ? | \u20AC"},
        {u"cTexto", u"\U0001F4C4 fuera del plano básico"},
        {u"cTexto", u"  con blancos "},
        {u"cLargo", Text(60'000, u'ñ')},
        {u"bFoto", Bytes{std::string("\0\xFF\x89PNG", 6)}},
        {u"bFoto", Bytes{std::string(8'000, '\xA5')}},
    };
    for (const auto& [column, value] : cases) EXPECT_EQ(stored(column, value), value) << to_utf8(column);
    for (const char16_t* column :
         {u"nCorto", u"bActivo", u"nFlotante", u"nImporte", u"dFecha", u"cTexto", u"cLargo", u"bFoto"})
        EXPECT_TRUE(stored(column, Value()).is_null()) << to_utf8(column);
}

TEST_P(ConnectionContract, names_in_a_query_take_the_values_given_for_them)
{
    if (GetParam().name.find("Sqlite") != std::string::npos)
        return; // through ODBC it is the server that knows names
    for (int key : {1, 2, 3}) add(key);
    connection_.execute(u"update tolvex_prueba set cTexto = 'it''s @nClave' where nClave = 2");
    Recordset rows =
        connection_.query(u"Select nClave, @cTexto as cDado from tolvex_prueba where nClave > @NCLAVE"
                          u" and '@nClave' <> cTexto and cTexto = @cTexto",
                          {{u"nClave", 1}, {u"cTexto", u"it's @nClave"}});
    EXPECT_EQ(rows[u"nClave"], Value(2));
    EXPECT_EQ(rows[u"cDado"], Value(u"it's @nClave"));
    EXPECT_EQ(error_number([&] {
                  connection_.query(u"Select @nOtro as n", {{u"nClave", 1}});
              }),
              database_error);
}

TEST_P(ConnectionContract, a_set_value_takes_the_kind_of_its_column)
{
    EXPECT_EQ(stored(u"nImporte", u"1,234.50"), Value(Currency(1234.5)));
    EXPECT_EQ(stored(u"nCorto", 2.5), Value(2));
    EXPECT_EQ(stored(u"cTexto", Currency(13.5)), Value(u"13.5"));
    EXPECT_EQ(stored(u"dFecha", u"22-10-2010"), Value(Date::of(2010, 10, 22)));
    EXPECT_EQ(stored(u"nCorto", true), Value(-1));
    EXPECT_EQ(stored(u"bActivo", 1).number(), -1); // True, though the database holds a 1
    EXPECT_EQ(connection_.query(u"Select nClave from tolvex_prueba where bActivo=1").eof(), false);
    auto row = new_row(2);
    EXPECT_EQ(error_number([&] { row.set(u"nImporte", u"12 pesos"); }), numbers::type_mismatch);
    EXPECT_EQ(error_number([&] { row.set(u"dFecha", u"2011-02-30"); }), numbers::type_mismatch);
}

TEST_P(ConnectionContract, columns_tell_their_kind_and_size)
{
    const Recordset rows = connection_.query(u"Select * from tolvex_prueba Where 1=0");
    std::vector<ColumnKind> kinds;
    for (const Column& column : rows.columns()) kinds.push_back(column.kind);
    using enum ColumnKind;
    EXPECT_THAT(kinds,
                ::testing::ElementsAre(integer, integer, bit, floating, money, date, text, text, binary));
    EXPECT_EQ(rows.columns()[6].name, u"cTexto");
    EXPECT_EQ(rows.columns()[6].size, 200u);
}

TEST_P(ConnectionContract, rows_are_read_forwards_by_column_names_in_any_letter_case)
{
    for (int key : {3, 1, 2}) add(key);
    Recordset rows = connection_.query(all_rows);
    EXPECT_EQ(error_number([&] { rows[u"nNada"]; }), numbers::no_such_column);
    for (int key : {1, 2, 3}) {
        EXPECT_EQ(rows[u"NCLAVE"].int32(), key);
        rows.move_next();
    }
    EXPECT_TRUE(rows.eof());
    EXPECT_EQ(error_number([&] { rows[u"nClave"]; }), numbers::no_current_row);
    EXPECT_EQ(error_number([&] { rows.move_next(); }), numbers::no_current_row);
    EXPECT_EQ(error_number([&] { new_row(4).set(u"nNada", 1); }), numbers::no_such_column);
}

TEST_P(ConnectionContract, an_update_changes_the_columns_set_of_the_row_found_alone)
{
    for (int key : {1, 2}) {
        auto row = new_row(key);
        row.set(u"cTexto", u"antes");
        row.set(u"nCorto", key);
        row.update();
    }
    auto found = connection_.open_updatable(u"Select nClave , cTexto from tolvex_prueba where nClave=2");
    EXPECT_EQ(found[u"CTEXTO"].text(), u"antes");
    found.set(u"cTexto", u"después");
    found.update();
    EXPECT_EQ(testing::rows_as_text(connection_, u"Select cTexto,nCorto from tolvex_prueba order by nClave"),
              u"antes|1/después|2");
    auto missing = connection_.open_updatable(u"Select * from tolvex_prueba where nClave=9");
    EXPECT_TRUE(missing.eof());
    EXPECT_EQ(error_number([&] { missing.set(u"cTexto", u"x"); }), numbers::no_current_row);
}

TEST_P(ConnectionContract, a_statement_that_fails_says_why_and_leaves_the_connection_usable)
{
    add(1);
    EXPECT_EQ(error_number([&] { add(1); }), database_error);
    EXPECT_EQ(error_number([&] { connection_.execute(u"insert into tolvex_prueba(nClave) values(2"); }),
              database_error);
    EXPECT_THAT(database_failure([&] { connection_.query(u"Select * from tolvex_no_existe"); }),
                ::testing::HasSubstr("tolvex_no_existe"));
    connection_.execute(u"update tolvex_prueba set cTexto='x'\rwhere nClave= 9"); // changes none, fails not
    EXPECT_EQ(count(), 1);
}

TEST_P(ConnectionContract, a_transaction_counts_when_it_is_committed)
{
    connection_.begin_transaction();
    add(1);
    connection_.roll_back();
    EXPECT_EQ(count(), 0);

    connection_.begin_transaction();
    add(1);
    connection_.commit();
    connection_.roll_back(); // without a transaction it does nothing
    EXPECT_EQ(count(), 1);

    Connection other;
    other.connection_string = GetParam().connection_string;
    other.open();
    add(2); // counts by itself again
    EXPECT_EQ(count(other), 2);
    other.close();

    connection_.begin_transaction();
    add(3);
    connection_.open(); // opening again ends what was open
    EXPECT_EQ(count(), 2);
}

TEST_P(ConnectionContract, others_see_each_statement_of_a_burst_at_once)
{
    Connection other;
    other.connection_string = GetParam().connection_string;
    other.open();
    {
        WriteBurst burst(connection_);
        add(1);
        EXPECT_EQ(count(other), 1);
        EXPECT_EQ(error_number([&] { add(1); }), database_error);
        add(2);
        burst.finish();
    }
    EXPECT_EQ(count(other), 2);
}

TEST_P(ConnectionContract, a_closed_connection_refuses_work_until_it_is_opened_again)
{
    add(1);
    connection_.close();
    EXPECT_FALSE(connection_.is_open());
    EXPECT_EQ(error_number([&] { connection_.query(all_rows); }), numbers::connection_closed);
    EXPECT_EQ(error_number([&] { connection_.begin_transaction(); }), numbers::connection_closed);
    connection_.open();
    EXPECT_EQ(count(), 1);
    EXPECT_FALSE(connection_.description().empty());
}

} // namespace
} // namespace tolvex
