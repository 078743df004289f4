// One statement or batch on its way through a connection.
#pragma once

#include "database/odbc/api.hpp"

namespace tolvex::odbc {

class Statement : public Handle<SQL_HANDLE_STMT>
{
public:
    Statement(SQLHANDLE connection, int timeout_seconds);

    // Sends the text unchanged. Throws Error with the driver's words, as all others here do.
    void execute(const Text& sql) const;
    // Goes to the next result of a batch; false when there is none. An error of a later statement comes up
    // here.
    bool next_result() const;
    // Reads what is left of a batch, for its errors.
    void drain() const;
    // Columns of the current result; 0 when it is a mere count of rows.
    int column_count() const;
};

} // namespace tolvex::odbc
