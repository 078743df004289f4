// The SQL Server that the environment variable TOLVEX_PRUEBA_SQLSERVER names for the tests, by any connection
// string: "uid=…;pwd=…;driver={SQL Server};server=host,port;database=…" or one with another driver, a port,
// more keywords. The tests fill and empty its tables: it must be a database of their own.
#pragma once

#include "support/station.hpp"

namespace tolvex::testing {

// Its connection string; empty when none is named.
Text sql_server();

// A station whose database is that server; its tests are skipped, saying so, where none is named.
class SqlServer : public Station
{
protected:
    SqlServer();
    ~SqlServer() override;
    void SetUp() override;
};

} // namespace tolvex::testing
