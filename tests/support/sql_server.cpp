#include "support/sql_server.hpp"

#include "database/connection_keywords.hpp"
#include "schema/schema.hpp"

#include <cstdlib>

namespace tolvex::testing {

namespace {

Database named_server()
{
    const Text named = sql_server();
    return {keyword(named, u"uid"), keyword(named, u"pwd"), keyword(named, u"database"),
            keyword(named, u"server")};
}

void empty_tables()
{
    for (const char16_t* table :
         {u"FE_EMPRESAS", u"FE_SUCURSALES", u"FE_CERTIFICADOS", u"FE_FOLIOS", u"FE_VENTAS_RESUMEN",
          u"FE_ClienteFactura", u"FE_VENTAS_RESUMEN_DET", u"fe_ctl_adendas", u"fe_ctl_adendasDet"})
        shared_connection(session()).execute(u"Delete " + Text(table));
}

// Refuses a database that holds another company's data.
void prepare_tables()
{
    create_schema(shared_connection(session()));
    const Recordset strangers =
        shared_connection(session()).query(u"Select cRfc From FE_EMPRESAS Where cRfc<>'AES010101AAA'");
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

SqlServer::SqlServer() : Station(sql_server().empty() ? Database() : named_server(), prepare_tables) {}

SqlServer::~SqlServer()
{
    if (!sql_server().empty() && shared_connection(session()).is_open()) empty_tables();
}

void SqlServer::SetUp()
{
    if (sql_server().empty()) GTEST_SKIP() << "not run: TOLVEX_PRUEBA_SQLSERVER names no SQL Server";
}

} // namespace tolvex::testing
