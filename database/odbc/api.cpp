#include "database/odbc/api.hpp"

#include "core/dates.hpp"
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

// By SQLSTATE, or by FreeTDS's own numbers under a state that says nothing: it could not read or write, the
// server hung up, the connection is dead.
bool is_lost_connection(const Text& diagnostics)
{
    const TextView signs[] = {u"[08", u"(20004)", u"(20006)", u"(20017)", u"(20047)"};
    return std::any_of(std::begin(signs), std::end(signs),
                       [&](TextView sign) { return diagnostics.find(sign) != Text::npos; });
}

const TextView lost_connection =
    u"Se perdió la conexión con el servidor de la base de datos. Revise la red y el servidor, abra de nuevo la "
    u"conexión y vea si lo último quedó guardado antes de repetirlo. ";

} // namespace

void check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle)
{
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
    const Text reason = diagnostics(kind, handle);
    throw Error(database_error, is_lost_connection(reason) ? Text(lost_connection) + reason : reason);
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

SQL_TIMESTAMP_STRUCT timestamp(Date date)
{
    const CalendarDate c = calendar(date);
    SQL_TIMESTAMP_STRUCT moment{};
    moment.year = static_cast<SQLSMALLINT>(c.year);
    moment.month = static_cast<SQLUSMALLINT>(c.month);
    moment.day = static_cast<SQLUSMALLINT>(c.day);
    moment.hour = static_cast<SQLUSMALLINT>(c.hour);
    moment.minute = static_cast<SQLUSMALLINT>(c.minute);
    moment.second = static_cast<SQLUSMALLINT>(c.second);
    return moment;
}

Date date_of(const SQL_TIMESTAMP_STRUCT& moment)
{
    return Date::of(moment.year, moment.month, moment.day, moment.hour, moment.minute, moment.second);
}

} // namespace tolvex::odbc
