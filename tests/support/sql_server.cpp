#include "support/sql_server.hpp"

#include "schema/schema.hpp"

#include <cstdlib>

namespace tolvex::testing {

namespace {

void empty_tables()
{
    for (const char16_t* table :
         {u"FE_EMPRESAS", u"FE_SUCURSALES", u"FE_CERTIFICADOS", u"FE_FOLIOS", u"FE_VENTAS_RESUMEN",
          u"FE_ClienteFactura", u"FE_VENTAS_RESUMEN_DET", u"fe_ctl_adendas", u"fe_ctl_adendasDet"})
        shared_connection(session()).execute(u"Delete " + Text(table));
}

// Refuses a database that holds data of another company than the tests' and the demonstration's.
void prepare_tables()
{
    create_schema(shared_connection(session()));
    const Recordset strangers = shared_connection(session()).query(
        u"Select cRfc From FE_EMPRESAS Where cRfc Not In ('AES010101AAA','DEM110101AAA')");
    if (!strangers.eof())
        throw std::runtime_error("TOLVEX_PRUEBA_SQLSERVER names a database with companies of its own");
    empty_tables();
}

} // namespace

Text sql_server()
{
    const char* named = std::getenv("TOLVEX_PRUEBA_SQLSERVER");
    return named ? to_text(named) : Text();
}

SqlServer::SqlServer() : Station(sql_server(), prepare_tables) {}

SqlServer::~SqlServer()
{
    if (!sql_server().empty() && shared_connection(session()).is_open()) empty_tables();
}

void SqlServer::SetUp()
{
    if (sql_server().empty()) GTEST_SKIP() << "not run: TOLVEX_PRUEBA_SQLSERVER names no SQL Server";
}

} // namespace tolvex::testing
