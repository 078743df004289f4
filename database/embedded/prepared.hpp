// Statements that stay prepared, for others of their shape.
#pragma once

#include "tolvex/types.hpp"

#include <list>
#include <memory>
#include <sqlite3.h>

namespace tolvex::embedded {

struct Finalize
{
    void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, Finalize>;

struct PreparedStatement
{
    Text shape;
    StatementHandle handle;
    bool runs = false;
};

// The last ones of a connection.
class PreparedStatements
{
public:
    // One of that shape; null when there is none, or none that is not still running.
    PreparedStatement* idle(TextView shape);
    // In the place of the one that was not used for the longest time.
    PreparedStatement* keep(Text shape, StatementHandle handle);

private:
    std::list<PreparedStatement> last_used_first_;
};

} // namespace tolvex::embedded
