// SQL Server, or any other database, through an installed ODBC driver.
#include "core/errors.hpp"
#include "database/errors.hpp"
#include "database/odbc/driver_choice.hpp"
#include "database/odbc/named_values.hpp"
#include "database/odbc/parameters.hpp"
#include "database/odbc/rows.hpp"

#include <array>

namespace tolvex {

namespace odbc {
namespace {

constexpr int login_timeout = 15; // seconds until a server that does not answer is given up

class Environment : public Handle<SQL_HANDLE_ENV>
{
public:
    Environment() : Handle(SQL_HANDLE_ENV, SQL_NULL_HANDLE)
    {
        check(SQLSetEnvAttr(get(), SQL_ATTR_ODBC_VERSION, number_attribute(SQL_OV_ODBC3), 0));
    }

    std::vector<Text> installed_drivers() const
    {
        std::array<char16_t, 256> name{}, attributes{};
        SQLSMALLINT name_length = 0, attributes_length = 0;
        std::vector<Text> names;
        for (SQLUSMALLINT direction = SQL_FETCH_FIRST;
             SQL_SUCCEEDED(SQLDriversW(get(), direction, reinterpret_cast<SQLWCHAR*>(name.data()),
                                       static_cast<SQLSMALLINT>(name.size()), &name_length,
                                       reinterpret_cast<SQLWCHAR*>(attributes.data()),
                                       static_cast<SQLSMALLINT>(attributes.size()), &attributes_length));
             direction = SQL_FETCH_NEXT)
            names.emplace_back(name.data());
        return names;
    }
};

// One logged-in connection; logged out at the end, what was not committed undone.
class Login : public Handle<SQL_HANDLE_DBC>
{
public:
    Login(const Environment& environment, const Text& connection_string)
        : Handle(SQL_HANDLE_ENV, environment.get())
    {
        check(SQLSetConnectAttrW(get(), SQL_ATTR_LOGIN_TIMEOUT, number_attribute(login_timeout), 0));
        connect(connection_string);
    }
    ~Login()
    {
        SQLEndTran(SQL_HANDLE_DBC, get(), SQL_ROLLBACK);
        SQLDisconnect(get());
    }

    void set_autocommit(bool on) const
    {
        const auto mode = number_attribute(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF);
        check(SQLSetConnectAttrW(get(), SQL_ATTR_AUTOCOMMIT, mode, SQL_IS_UINTEGER));
    }

    // A fact about the connection; empty when the driver does not tell.
    Text fact(SQLUSMALLINT which) const
    {
        std::array<char16_t, 256> text{};
        SQLSMALLINT bytes = 0;
        SQLGetInfoW(get(), which, text.data(), static_cast<SQLSMALLINT>(sizeof(text)), &bytes);
        return text.data();
    }

private:
    void connect(const Text& connection_string) const
    {
        const SQLRETURN result = SQLDriverConnectW(get(), nullptr, wide(connection_string), SQL_NTS, nullptr,
                                                   0, nullptr, SQL_DRIVER_NOPROMPT);
        if (SQL_SUCCEEDED(result)) return;
        const Text reason = diagnostics(SQL_HANDLE_DBC, get());
        throw Error(database_error, is_missing_driver(reason) ? install_advice + reason : reason);
    }

    // What the driver managers say when there is no library for a driver's name. IM002 is not among it: a
    // string that a ";" in the password has broken gives that as well.
    static bool is_missing_driver(const Text& reason)
    {
        return reason.find(u"[IM003]") != Text::npos || reason.find(u"Can't open lib") != Text::npos;
    }

    inline static const Text install_advice = u"No está instalado el controlador ODBC que pide la conexión; "
                                              u"para SQL Server instale «ODBC Driver 18 for SQL "
                                              u"Server» (paquete msodbcsql18) o FreeTDS (paquete tdsodbc). ";
};

class OdbcDriver : public Driver
{
public:
    OdbcDriver(const Text& connection_string, int timeout_seconds)
        : login_(environment_, for_installed_driver(connection_string, environment_.installed_drivers())),
          timeout_seconds_(timeout_seconds)
    {}

    void execute(const Text& sql, const std::vector<Value>& parameters) override
    {
        const Statement statement(login_.get(), timeout_seconds_);
        const Parameters bound(statement, parameters);
        statement.execute(sql);
        statement.drain();
    }

    std::unique_ptr<Cursor> query(const Text& sql) override { return rows_of(sql, {}); }

    std::unique_ptr<Cursor> query(const Text& sql, const std::vector<NamedValue>& parameters) override
    {
        if (parameters.empty()) return query(sql);
        return rows_of(with_named_values(sql, parameters), values_of(parameters));
    }

    std::unique_ptr<Cursor> call(const Text& procedure, const std::vector<NamedValue>& parameters) override
    {
        return rows_of(call_with_named_values(procedure, parameters), values_of(parameters));
    }

    void begin() override
    {
        if (in_transaction_) throw Error(database_error, u"Ya hay una transacción abierta en esta conexión");
        login_.set_autocommit(false);
        in_transaction_ = true;
    }
    void commit() override { end_transaction(SQL_COMMIT); }
    void roll_back() override { end_transaction(SQL_ROLLBACK); }
    bool in_transaction() const override { return in_transaction_; }

    Text description() override
    {
        return login_.fact(SQL_DBMS_NAME) + u" " + login_.fact(SQL_DBMS_VER) + u", base de datos " +
               login_.fact(SQL_DATABASE_NAME) + u", controlador " + login_.fact(SQL_DRIVER_NAME) + u" " +
               login_.fact(SQL_DRIVER_VER);
    }

private:
    std::unique_ptr<Cursor> rows_of(const Text& sql, const std::vector<Value>& parameters)
    {
        const Statement statement(login_.get(), timeout_seconds_);
        const Parameters bound(statement, parameters);
        statement.execute(sql);
        while (statement.column_count() == 0)
            if (!statement.next_result()) throw no_rows_returned();
        auto rows = read_rows(statement);
        statement.drain();
        return rows;
    }

    void end_transaction(SQLSMALLINT how)
    {
        login_.check(SQLEndTran(SQL_HANDLE_DBC, login_.get(), how));
        login_.set_autocommit(true);
        in_transaction_ = false;
    }

    Environment environment_;
    Login login_;
    int timeout_seconds_;
    bool in_transaction_ = false;
};

} // namespace
} // namespace odbc

std::unique_ptr<Driver> open_odbc(const Text& connection_string, int timeout_seconds)
{
    return std::make_unique<odbc::OdbcDriver>(connection_string, timeout_seconds);
}

} // namespace tolvex
