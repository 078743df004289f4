#include "database/odbc/rows.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "tolvex/errors.hpp"

#include <array>
#include <optional>

namespace tolvex::odbc {

namespace {

class RowsInMemory : public Cursor
{
public:
    RowsInMemory(std::vector<Column> columns, std::vector<Value> values)
        : columns_(std::move(columns)), values_(std::move(values))
    {}

    const std::vector<Column>& columns() const override { return columns_; }
    bool next() override { return next_row_++ * columns_.size() < values_.size(); }
    Value value(std::size_t column) override { return values_[(next_row_ - 1) * columns_.size() + column]; }

private:
    std::vector<Column> columns_;
    std::vector<Value> values_; // row after row
    std::size_t next_row_ = 0;
};

ColumnKind kind_of(SQLSMALLINT sql_type)
{
    switch (sql_type) {
    case SQL_BIT:
        return ColumnKind::bit;
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return ColumnKind::integer;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return ColumnKind::floating;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return ColumnKind::money;
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
        return ColumnKind::date;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
        return ColumnKind::binary;
    default:
        return ColumnKind::text;
    }
}

// Some drivers have no decimal type and give amounts as text; the name of the column's type still tells them.
bool is_amount_by_name(const Statement& statement, SQLUSMALLINT number)
{
    std::array<char16_t, 64> name{};
    SQLSMALLINT bytes = 0;
    statement.check(SQLColAttributeW(statement.get(), number, SQL_DESC_TYPE_NAME, name.data(), sizeof(name),
                                     &bytes, nullptr));
    return equal_ignoring_case(name.data(), u"decimal") || equal_ignoring_case(name.data(), u"money");
}

Column describe(const Statement& statement, SQLUSMALLINT number)
{
    std::array<char16_t, 256> name{};
    SQLSMALLINT length = 0, sql_type = 0, digits = 0, nullable = 0;
    SQLULEN size = 0;
    statement.check(SQLDescribeColW(statement.get(), number, reinterpret_cast<SQLWCHAR*>(name.data()),
                                    static_cast<SQLSMALLINT>(name.size()), &length, &sql_type, &size, &digits,
                                    &nullable));
    const bool known = static_cast<SQLLEN>(size) > 0; // long text says 0 or -1
    ColumnKind kind = kind_of(sql_type);
    if (kind == ColumnKind::text && is_amount_by_name(statement, number)) kind = ColumnKind::money;
    return {name.data(), kind, known ? size : 0};
}

std::vector<Column> describe_columns(const Statement& statement)
{
    std::vector<Column> columns;
    for (int i = 1; i <= statement.column_count(); ++i)
        columns.push_back(describe(statement, static_cast<SQLUSMALLINT>(i)));
    return columns;
}

template <class Plain>
std::optional<Plain> read_plain(const Statement& statement, SQLUSMALLINT column, SQLSMALLINT c_type)
{
    Plain plain{};
    SQLLEN length = 0;
    statement.check(SQLGetData(statement.get(), column, c_type, &plain, sizeof(plain), &length));
    if (length == SQL_NULL_DATA) return {};
    return plain;
}

// Reads a text piece by piece, whatever length the driver claims for it. The driver ends every piece with a
// NUL; the buffer is filled beforehand with what no text holds (U+FFFF is no character), so the last NUL
// tells where a piece ends even where the driver stops short of the buffer, between surrogates for instance.
Value read_text(const Statement& statement, SQLUSMALLINT column)
{
    constexpr char16_t untouched = 0xFFFF;
    std::array<char16_t, 4096> piece;
    Text whole;
    while (true) {
        piece.fill(untouched);
        SQLLEN length = 0;
        const SQLRETURN result =
            SQLGetData(statement.get(), column, SQL_C_WCHAR, piece.data(), sizeof(piece), &length);
        statement.check(result);
        if (result == SQL_NO_DATA) return whole;
        if (length == SQL_NULL_DATA) return {};
        const auto end = TextView(piece.data(), piece.size()).find_last_not_of(untouched);
        if (end == TextView::npos) return whole;
        whole.append(piece.data(), end);
        if (result == SQL_SUCCESS || end == 0) return whole;
    }
}

Value read_bytes(const Statement& statement, SQLUSMALLINT column)
{
    std::array<char, 8192> piece;
    Bytes whole;
    while (true) {
        SQLLEN left = 0; // what there was before this piece, if the driver tells
        const SQLRETURN result =
            SQLGetData(statement.get(), column, SQL_C_BINARY, piece.data(), sizeof(piece), &left);
        statement.check(result);
        if (result == SQL_NO_DATA) return whole;
        if (left == SQL_NULL_DATA) return {};
        const bool full = left == SQL_NO_TOTAL || left > static_cast<SQLLEN>(sizeof(piece));
        whole.data.append(piece.data(), full ? sizeof(piece) : static_cast<std::size_t>(left));
        if (result == SQL_SUCCESS) return whole;
    }
}

Value read_number(const Statement& statement, SQLUSMALLINT column)
{
    const auto number = read_plain<SQLBIGINT>(statement, column, SQL_C_SBIGINT);
    return number ? Value(std::int64_t{*number}) : Value();
}

Value read_floating(const Statement& statement, SQLUSMALLINT column)
{
    const auto number = read_plain<SQLDOUBLE>(statement, column, SQL_C_DOUBLE);
    return number ? Value(*number) : Value();
}

Value read_bit(const Statement& statement, SQLUSMALLINT column)
{
    const auto bit = read_plain<SQLCHAR>(statement, column, SQL_C_BIT);
    return bit ? Value(*bit != 0) : Value();
}

// Amounts come as decimal text: exact, whatever binary form the driver keeps them in. One that is too big for
// an amount stays the text it is.
Value read_amount(const Statement& statement, SQLUSMALLINT column)
{
    const Value text = read_text(statement, column);
    if (text.is_null()) return text;
    try {
        return to_currency(text.text());
    } catch (const Error&) {
        return text;
    }
}

Value read_date(const Statement& statement, SQLUSMALLINT column)
{
    const auto moment = read_plain<SQL_TIMESTAMP_STRUCT>(statement, column, SQL_C_TYPE_TIMESTAMP);
    return moment ? Value(date_of(*moment)) : Value();
}

Value read_value(const Statement& statement, SQLUSMALLINT column, ColumnKind kind)
{
    switch (kind) {
    case ColumnKind::bit:
        return read_bit(statement, column);
    case ColumnKind::integer:
        return read_number(statement, column);
    case ColumnKind::floating:
        return read_floating(statement, column);
    case ColumnKind::money:
        return read_amount(statement, column);
    case ColumnKind::date:
        return read_date(statement, column);
    case ColumnKind::binary:
        return read_bytes(statement, column);
    case ColumnKind::text:
        break;
    }
    return read_text(statement, column);
}

bool fetch(const Statement& statement)
{
    const SQLRETURN result = SQLFetch(statement.get());
    statement.check(result);
    return result != SQL_NO_DATA;
}

} // namespace

std::unique_ptr<Cursor> read_rows(const Statement& statement)
{
    std::vector<Column> columns = describe_columns(statement);
    std::vector<Value> values;
    while (fetch(statement))
        for (std::size_t i = 0; i < columns.size(); ++i)
            values.push_back(read_value(statement, static_cast<SQLUSMALLINT>(i + 1), columns[i].kind));
    return std::make_unique<RowsInMemory>(std::move(columns), std::move(values));
}

} // namespace tolvex::odbc
