#include "database/odbc/parameters.hpp"

#include "core/numbers.hpp"

#include <algorithm>

namespace tolvex::odbc {

namespace {

// Longest text of a plain nvarchar; longer ones travel as long text.
constexpr std::size_t longest_nvarchar = 4000;

} // namespace

struct Parameters::Binder
{
    Bound& to;

    void operator()(Null) const { to.length = SQL_NULL_DATA; }
    void operator()(bool bit) const
    {
        to.bit = bit;
        describe(SQL_C_BIT, SQL_BIT, 1, 0, &to.bit);
    }
    void operator()(std::int64_t number) const
    {
        to.number = number;
        describe(SQL_C_SBIGINT, SQL_BIGINT, 19, 0, &to.number);
    }
    void operator()(double number) const
    {
        to.floating = number;
        describe(SQL_C_DOUBLE, SQL_DOUBLE, 15, 0, &to.floating);
    }
    // As text, so that no binary form of the driver's can change a digit.
    void operator()(Currency amount) const
    {
        to.bytes = to_utf8(amount_as_text(amount));
        to.length = static_cast<SQLLEN>(to.bytes.size());
        describe(SQL_C_CHAR, SQL_DECIMAL, 19, 4, to.bytes.data());
    }
    // To the second, "yyyy-mm-dd hh:mm:ss": 19 characters without a fraction, which fits every kind of date
    // column.
    void operator()(Date date) const
    {
        to.moment = timestamp(date);
        describe(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 19, 0, &to.moment);
    }
    void operator()(const Text& text) const
    {
        to.text = text;
        to.length = static_cast<SQLLEN>(text.size() * sizeof(char16_t));
        const auto sql_type = text.size() > longest_nvarchar ? SQL_WLONGVARCHAR : SQL_WVARCHAR;
        describe(SQL_C_WCHAR, sql_type, std::max<std::size_t>(text.size(), 1), 0, to.text.data());
    }

    void operator()(const Bytes& bytes) const
    {
        to.bytes = bytes.data;
        to.length = static_cast<SQLLEN>(bytes.data.size());
        describe(SQL_C_BINARY, SQL_LONGVARBINARY, std::max<std::size_t>(bytes.data.size(), 1), 0,
                 to.bytes.data());
    }

private:
    void describe(SQLSMALLINT c_type, SQLSMALLINT sql_type, SQLULEN size, SQLSMALLINT digits,
                  SQLPOINTER value) const
    {
        to.c_type = c_type;
        to.sql_type = sql_type;
        to.size = size;
        to.digits = digits;
        to.value = value;
    }
};

Parameters::Parameters(const Statement& statement, const std::vector<Value>& values)
{
    for (const Value& value : values) {
        Bound& bound = bound_.emplace_back();
        value.visit(Binder{bound});
        statement.check(SQLBindParameter(statement.get(), static_cast<SQLUSMALLINT>(bound_.size()),
                                         SQL_PARAM_INPUT, bound.c_type, bound.sql_type, bound.size,
                                         bound.digits, bound.value, 0, &bound.length));
    }
}

} // namespace tolvex::odbc
