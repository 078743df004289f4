// What the ODBC driver does beyond the common contract, on Debian's driver for SQLite.
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "database/connection.hpp"
#include "database/errors.hpp"
#include "database/odbc/driver_choice.hpp"
#include "database/odbc/named_values.hpp"
#include "support/tables.hpp"
#include "support/temporary_folder.hpp"

#include <gmock/gmock.h>

namespace tolvex {
namespace {

using odbc::for_installed_driver;
using ::testing::AllOf;
using testing::database_failure;
using ::testing::HasSubstr;

TEST(OdbcDriverChoice, keeps_the_named_driver_or_takes_the_vendors_newest_or_tells_freetds_the_server)
{
    struct Case
    {
        Text given;
        std::vector<Text> installed;
        Text used;
    };
    const auto host = [](const Text& password) {
        return u"uid=sa;pwd=" + password + u";driver={SQL Server};server=caja;database=v";
    };
    const Text named = u"uid=sa;pwd=a=b;driver={SQL Server};server=caja", start = u"uid=sa;pwd=a=b;driver=",
               other = u"Driver={SQLite3}; database=a.db",
               told = u";TDS_Version=7.4;ClientCharset=UTF-8;TextSize=2147483647";
    for (const auto& [given, installed, used] : std::initializer_list<Case>{
             {named, {u"FreeTDS", u"sql server"}, named},
             {other, {u"FreeTDS"}, other},
             {named + u",1500",
              {u"ODBC Driver 9 for SQL Server", u"FreeTDS", u"ODBC Driver 18 for SQL Server"},
              start + u"{ODBC Driver 18 for SQL Server};server=caja,1500;TrustServerCertificate=yes"},
             {named + u";TrustServerCertificate=no",
              {u"ODBC Driver 17 for SQL Server"},
              start + u"{ODBC Driver 17 for SQL Server};server=caja;TrustServerCertificate=no"},
             {named, {u"FreeTDS"}, start + u"{FreeTDS};server=caja;port=1433" + told},
             {named + u",1500", {u"FreeTDS"}, start + u"{FreeTDS};server=caja;port=1500" + told},
             {named + u"\\EXPRESS", {u"FreeTDS"}, start + u"{FreeTDS};server=caja\\EXPRESS" + told},
             {host(u"a;server=otro}b"), {u"SQL Server"}, host(u"{a;server=otro}}b}")},
             {host(u"{a;driver=x"), {u"SQL Server"}, host(u"{{a;driver=x}")},
             {host(u"{a;b}"), {u"SQL Server"}, host(u"{a;b}")}, // in braces already
             {host(u"a}b={"), {u"SQL Server"}, host(u"a}b={")},
             {host(u"a;driver=x}y"), // FreeTDS doubles nothing
              {u"FreeTDS"},
              u"uid=sa;driver={FreeTDS};server=caja;database=v;port=1433" + told + u";pwd={a;driver=x}y};"},
             {named,
              {},
              start + u"libtdsodbc.so;server=caja;port=1433" + told}}) // it may be there, not registered
        EXPECT_EQ(for_installed_driver(given, installed), used);
}

TEST(OdbcNamedValues, are_declared_to_the_server_and_sent_apart_from_the_text)
{
    const std::vector<NamedValue> values = {{u"cIndFactura", u"it's"},
                                            {u"nEmpresa", 1},
                                            {u"dDia", Date{1}},
                                            {u"nPago", Currency(2)},
                                            {u"nada", {}}};
    EXPECT_EQ(
        odbc::with_named_values(u"Select 'x' Where c = @cIndFactura", values),
        u"exec sp_executesql N'Select ''x'' Where c = @cIndFactura', N'@cIndFactura nvarchar(max), @nEmpresa "
        u"bigint, @dDia datetime, @nPago money, @nada nvarchar(1)', @cIndFactura = ?, @nEmpresa = ?, @dDia = ?, "
        u"@nPago = ?, @nada = ?");
    EXPECT_EQ(odbc::call_with_named_values(u"dbo.prFactura", {{u"nEmpresa", 1}}),
              u"exec dbo.prFactura @nEmpresa = ?");
}

class OdbcConnection : public ::testing::Test
{
protected:
    OdbcConnection()
    {
        connection_.connection_string = u"driver=libsqlite3odbc.so;database=" + folder_.file("odbc.db");
        connection_.open();
        connection_.execute(u"create table t (nClave int primary key, cLargo ntext)");
    }

    Text stored(const Text& text)
    {
        connection_.execute(u"delete from t");
        auto row = connection_.open_updatable(u"Select * from t Where 1=0");
        row.add_new();
        row.set(u"cLargo", text);
        row.update();
        return connection_.query(u"Select cLargo from t")[u"cLargo"].text();
    }

    TemporaryFolder folder_;
    Connection connection_;
};

// Texts are read in pieces of 4095 characters.
TEST_F(OdbcConnection, long_texts_come_whole_wherever_a_piece_ends)
{
    for (std::size_t size : {4094, 4095, 4096, 8189, 8190, 8191, 200'000}) {
        Text text(size, u'x');
        text.back() = u'z';
        EXPECT_EQ(stored(text), text) << size;
        for (std::size_t i = size % 2; i + 1 < size; i += 2) text.replace(i, 2, u"\U0001F4C4");
        EXPECT_EQ(stored(text), text) << size << " with a pair of surrogates on every piece's end";
    }
}

TEST_F(OdbcConnection, rows_are_walked_while_other_statements_run)
{
    for (int key : {1, 2, 3}) connection_.execute(u"insert into t(nClave) values(" + decimal(key) + u")");
    int seen = 0;
    for (Recordset rows = connection_.query(u"Select nClave from t order by nClave"); !rows.eof();
         rows.move_next()) {
        const Recordset inner = connection_.query(u"Select nClave from t order by nClave desc");
        connection_.execute(u"delete from t where nClave=3");
        EXPECT_EQ(rows[u"nClave"].int32(), ++seen);
        EXPECT_FALSE(inner.eof());
    }
    EXPECT_EQ(seen, 3) << "the rows are those of the moment of the query";
}

TEST_F(OdbcConnection, a_failure_carries_the_drivers_state_number_and_words)
{
    EXPECT_THAT(database_failure([&] { connection_.execute(u"insert into tabla_que_no_existe values(1)"); }),
                AllOf(HasSubstr("[HY000]"), HasSubstr("no such table"), HasSubstr("(1)")));
    EXPECT_EQ(testing::error_number([&] { connection_.query(u"delete from t"); }), numbers::no_rows_returned)
        << "no rows to read";
}

TEST_F(OdbcConnection, is_described_by_product_database_and_driver)
{
    EXPECT_THAT(to_utf8(connection_.description()),
                AllOf(HasSubstr("SQLite 3."), HasSubstr("odbc.db"), HasSubstr("sqlite3odbc")));
}

TEST_F(OdbcConnection, a_driver_that_is_not_installed_is_told_with_what_to_install)
{
    connection_.connection_string = u"driver={Ninguno};server=caja;database=v";
    EXPECT_THAT(database_failure([&] { connection_.open(); }),
                AllOf(HasSubstr("tdsodbc"), HasSubstr("Ninguno")));
}

} // namespace
} // namespace tolvex
