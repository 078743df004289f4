// Statements that stay prepared, for others of their shape.
#pragma once

#include "database/embedded/tsql/shape.hpp"

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
    Shape shape;
    StatementHandle handle;
    bool runs = false;
};

// The last ones of a connection.
class PreparedStatements
{
public:
    struct Match
    {
        PreparedStatement& prepared;
        std::vector<Value> literals;
    };

    // One of the statement's shape, if there is one that is not still running.
    std::optional<Match> match(TextView statement);
    // In the place of the one that was not used for the longest time.
    PreparedStatement& keep(Shape shape, StatementHandle handle);

private:
    std::list<PreparedStatement> last_used_first_;
};

} // namespace tolvex::embedded
