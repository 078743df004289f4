// The ODBC calls in the wide-character form that unixODBC and odbc32 share, with one door for their results
// and one owner for their handles.
#pragma once

#include "tolvex/types.hpp"

#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

namespace tolvex::odbc {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "ODBC text must be UTF-16");

// Throws Error(database_error) with the driver's own words when a call failed, after what to do where they
// mean that the connection is gone. "No data" is no failure.
void check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle);

// Every diagnostic record of a handle as "[SQLSTATE] text (native number)", joined by "; ".
Text diagnostics(SQLSMALLINT kind, SQLHANDLE handle);

// The driver manager only reads the texts it takes.
inline SQLWCHAR* wide(const Text& text)
{
    return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text.data()));
}

// Dates travel to the second; a fraction that comes is dropped.
SQL_TIMESTAMP_STRUCT timestamp(Date date);
Date date_of(const SQL_TIMESTAMP_STRUCT& moment);

// Attributes that are numbers travel in the place of a pointer.
inline SQLPOINTER number_attribute(std::size_t number) { return reinterpret_cast<SQLPOINTER>(number); }

// Owner of one ODBC handle.
template <SQLSMALLINT Kind>
class Handle
{
public:
    // Throws Error with the parent's diagnostics.
    Handle(SQLSMALLINT parent_kind, SQLHANDLE parent)
    {
        odbc::check(SQLAllocHandle(Kind, parent, &handle_), parent_kind, parent);
    }
    ~Handle() { SQLFreeHandle(Kind, handle_); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    SQLHANDLE get() const { return handle_; }
    void check(SQLRETURN result) const { odbc::check(result, Kind, handle_); }

private:
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

} // namespace tolvex::odbc
