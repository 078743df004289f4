#include "database/odbc/api.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"

#include <algorithm>
#include <array>

namespace tolvex::odbc {

namespace {

Text words(TextView state, SQLINTEGER native, TextView message)
{
    return u"[" + Text(state) + u"] " + trim(message) + u" (" + decimal(native) + u")";
}

} // namespace

void check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle)
{
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
    throw Error(database_error, diagnostics(kind, handle));
}

Text diagnostics(SQLSMALLINT kind, SQLHANDLE handle)
{
    std::array<char16_t, 6> state{};
    std::array<char16_t, 4096> message{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    Text all;
    for (SQLSMALLINT i = 1; SQL_SUCCEEDED(SQLGetDiagRecW(
             kind, handle, i, reinterpret_cast<SQLWCHAR*>(state.data()), &native,
             reinterpret_cast<SQLWCHAR*>(message.data()), static_cast<SQLSMALLINT>(message.size()), &length));
         ++i) {
        const auto units = std::clamp<std::size_t>(length, 0, message.size() - 1);
        const Text record = words({state.data(), 5}, native, {message.data(), units});
        if (all.find(record) != Text::npos) continue; // some drivers tell the same thing twice
        all += (all.empty() ? u"" : u"; ") + record;
    }
    return all.empty() ? Text(u"Error de ODBC sin descripción del controlador") : all;
}

} // namespace tolvex::odbc
