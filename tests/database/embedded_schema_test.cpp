// An embedded file that lacks something, and document numbers that never come back.
#include "schema/check.hpp"
#include "schema/schema.hpp"
#include "support/rows.hpp"
#include "support/schema_change.hpp"
#include "support/tables.hpp"
#include "support/temporary_folder.hpp"

#include <gmock/gmock.h>

#include <sys/wait.h>
#include <unistd.h>

namespace tolvex::testing {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class EmbeddedSchema : public ::testing::Test
{
protected:
    Connection open()
    {
        Connection connection;
        connection.connection_string = u"server=sqlite:;database=" + file_;
        connection.open();
        return connection;
    }

    // A file of an earlier time: one table, with a column, an index, a trigger and a view of somebody's own.
    void make_old_file()
    {
        in_sqlite(file_,
                  "create table fe_ventas_resumen (nID INTEGER PRIMARY KEY, cDocumento nvarchar(255),"
                  " cTipoDocumento nvarchar(1), nTotal decimal(19,4), cCaja nvarchar(10) DEFAULT 'uno');"
                  "create index por_caja on fe_ventas_resumen (cCaja);"
                  "create trigger contador after insert on fe_ventas_resumen begin"
                  " update fe_ventas_resumen set cCaja = 'nueva' where nID = new.nID; end;"
                  "create view ventas as select nID from fe_ventas_resumen;"
                  "insert into fe_ventas_resumen(nID,cDocumento,nTotal,cCaja)"
                  " values (3,'A3',1.5,'dos'),(7,'A7',Null,Null)");
        in_sqlite(file_, "update fe_ventas_resumen set cCaja = 'dos' where nID = 3");
    }

    Text documents(Connection& connection)
    {
        return rows_as_text(
            connection, u"Select nID,cDocumento,nTotal,cCaja,cStatus From FE_VENTAS_RESUMEN Order By nID");
    }

    TemporaryFolder folder_;
    const Text file_ = folder_.file("vieja.db");
};

TEST_F(EmbeddedSchema, an_older_file_is_completed_and_loses_nothing)
{
    make_old_file();
    Connection connection = open();
    EXPECT_THAT(schema_findings(connection), Contains(u"FE_VENTAS_RESUMEN.cStatus: falta la columna; "
                                                      u"complete el archivo con «tolvex esquema "
                                                      u"--crea»"));
    create_schema(connection);
    EXPECT_THAT(schema_findings(connection), IsEmpty());
    EXPECT_EQ(documents(connection), u"3|A3|1.5|dos|Null/7|A7|Null|nueva|Null");
    EXPECT_EQ(rows_as_text(connection, u"Select nID From ventas Where nID = 7"), u"7");
    EXPECT_EQ(in_sqlite(file_, "select count(*) from sqlite_master where name in "
                               "('por_caja','contador','FE_VENTAS_RESUMEN_documento','fe_ctl_adendas_nodo')"),
              "4");
    // A text without regard to case, as in a new file.
    connection.execute(u"Update FE_VENTAS_RESUMEN Set cStatus='a' Where nID=3");
    EXPECT_EQ(rows_as_text(connection, u"Select nID From FE_VENTAS_RESUMEN Where cStatus='A'"), u"3");

    const std::string complete = in_sqlite(file_, "select group_concat(sql) from sqlite_master");
    create_schema(connection);
    EXPECT_EQ(in_sqlite(file_, "select group_concat(sql) from sqlite_master"), complete)
        << "nothing left to do";
}

TEST_F(EmbeddedSchema, a_deleted_documents_number_is_never_given_again)
{
    const auto add = [](Connection& connection) {
        connection.execute(u"Insert Into FE_VENTAS_RESUMEN(cDocumento) Values('A')");
        return rows_as_text(connection, u"Select max(nID) From FE_VENTAS_RESUMEN");
    };
    make_old_file();
    Connection connection = open();
    create_schema(connection);
    connection.execute(u"Delete FE_VENTAS_RESUMEN Where nID=7");
    EXPECT_EQ(add(connection), u"8");
    connection.execute(u"Delete FE_VENTAS_RESUMEN");
    connection.close();
    Connection later = open();
    EXPECT_EQ(add(later), u"9");
}

TEST_F(EmbeddedSchema, a_completion_that_fails_half_way_leaves_the_file_as_it_was)
{
    make_old_file();
    in_sqlite(file_, "create table FE_VENTAS_RESUMEN_nueva (a)"); // in its way
    const std::string before = in_sqlite(file_, "select group_concat(sql) from sqlite_master");
    Connection connection = open();
    EXPECT_THAT(database_failure([&] { create_schema(connection); }), HasSubstr("FE_VENTAS_RESUMEN_nueva"));
    EXPECT_EQ(in_sqlite(file_, "select group_concat(sql) from sqlite_master"), before);
    connection.execute(u"Insert Into FE_VENTAS_RESUMEN(cDocumento) Values('A8')");
}

TEST_F(EmbeddedSchema, stations_that_complete_one_file_at_once_all_succeed)
{
    make_old_file();
    std::vector<pid_t> stations;
    for (int i = 0; i < 5; ++i) {
        const pid_t station = fork();
        if (station == 0)
            _exit(error_number([&] {
                      Connection connection = open();
                      create_schema(connection);
                  }) == 0
                      ? 0
                      : 1);
        stations.push_back(station);
    }
    for (const pid_t station : stations) {
        int status = 0;
        waitpid(station, &status, 0);
        EXPECT_EQ(status, 0);
    }
    Connection connection = open();
    EXPECT_THAT(schema_findings(connection), IsEmpty());
    EXPECT_EQ(documents(connection), u"3|A3|1.5|dos|Null/7|A7|Null|nueva|Null");
}

TEST_F(EmbeddedSchema, what_does_not_serve_is_told_with_what_to_do)
{
    open();
    in_sqlite(file_, "drop table FE_EMPRESAS; create table FE_EMPRESAS as select 1 as nEmpresa;"
                     "alter table FE_FOLIOS drop column nHasta;"
                     "alter table FE_FOLIOS add column nHasta ntext;"
                     "drop table FE_SUCURSALES");
    Connection connection = open();
    std::vector<std::string> told;
    for (const Text& finding : schema_findings(connection)) told.push_back(to_utf8(finding));
    for (const char* what : {"FE_EMPRESAS.cNombre: falta la columna; complete el archivo",
                             "FE_FOLIOS.nHasta: no es de tipo número entero; cámbiela a int",
                             "FE_SUCURSALES: no se puede leer; créela"})
        EXPECT_THAT(told, Contains(HasSubstr(what)));
}

} // namespace
} // namespace tolvex::testing
