#include "database/connection.hpp"

#include "core/errors.hpp"

#include <algorithm>
#include <cmath>

namespace tolvex {

namespace {

Error closed()
{
    return {3709, u"La conexión con la base de datos está cerrada: llame antes a AbrirConexion"};
}

Error no_current_row() { return {3021, u"El conjunto de resultados no tiene un registro actual"}; }

std::size_t position_of(const std::vector<Column>& columns, TextView name)
{
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& column) {
        return equal_ignoring_case(column.name, name);
    });
    if (found == columns.end())
        throw Error(3265, u"No existe la columna " + Text(name) + u" en el resultado");
    return found - columns.begin();
}

std::vector<Value> row_of(const Recordset& rows)
{
    std::vector<Value> row;
    for (std::size_t i = 0; i < rows.columns().size(); ++i) row.push_back(rows.value(i));
    return row;
}

// What follows a word of a statement, up to the next WHERE or the end.
Text text_after(TextView sql, TextView word)
{
    const Text upper = upper_case(sql);
    const auto start = upper.find(word);
    if (start == Text::npos) return {};
    const auto from = start + word.size();
    const auto end = std::min(upper.find(u" WHERE ", from), upper.size());
    return trim(sql.substr(from, end - from));
}

// Ties to even.
std::int64_t nearest_whole(double number)
{
    constexpr double beyond = 9.2e18;
    if (!(std::abs(number) < beyond)) throw overflow();
    return static_cast<std::int64_t>(std::nearbyint(number));
}

// The value as the kind of the column that takes it, so that a bad one is refused when it is set and every
// driver stores the same. Throws Error 13, or 6 for a number out of range.
Value as_kind(const Value& value, ColumnKind kind)
{
    if (value.is_null()) return value;
    switch (kind) {
    case ColumnKind::text:
        return value.text();
    case ColumnKind::integer:
        return nearest_whole(value.number());
    case ColumnKind::floating:
        return value.number();
    case ColumnKind::money:
        return value.currency();
    case ColumnKind::date:
        return value.date();
    case ColumnKind::bit:
        return value.boolean();
    }
    return value;
}

} // namespace

Recordset::Recordset(std::unique_ptr<Cursor> cursor) : cursor_(std::move(cursor)), on_row_(cursor_->next()) {}

void Recordset::move_next()
{
    if (!on_row_) throw no_current_row();
    on_row_ = cursor_->next();
}

Value Recordset::operator[](TextView column) const { return value(position_of(columns(), column)); }

Value Recordset::value(std::size_t column) const
{
    if (!on_row_) throw no_current_row();
    return cursor_->value(column);
}

void Connection::open() { driver_ = open_driver(connection_string, command_timeout); }

void Connection::close() noexcept { driver_.reset(); }

void Connection::execute(const Text& sql) { driver().execute(sql); }

Recordset Connection::query(const Text& sql) { return Recordset(driver().query(sql)); }

UpdatableRecordset Connection::open_updatable(const Text& sql) { return UpdatableRecordset(*this, sql); }

void Connection::begin_transaction() { driver().begin(); }

void Connection::commit() { driver().commit(); }

void Connection::roll_back()
{
    if (driver().in_transaction()) driver().roll_back();
}

Text Connection::description() { return driver().description(); }

Driver& Connection::driver()
{
    if (!driver_) throw closed();
    return *driver_;
}

UpdatableRecordset::UpdatableRecordset(Connection& connection, const Text& sql)
    : connection_(connection), table_(text_after(sql, u" FROM ")), condition_(text_after(sql, u" WHERE "))
{
    const Recordset rows = connection.query(sql);
    columns_ = rows.columns();
    if (!rows.eof()) current_ = row_of(rows);
}

Value UpdatableRecordset::operator[](TextView column) const
{
    if (!current_) throw no_current_row();
    return (*current_)[position_of(columns_, column)];
}

const Column& UpdatableRecordset::column(TextView name) const
{
    return columns_[position_of(columns_, name)];
}

void UpdatableRecordset::add_new()
{
    adding_ = true;
    changes_.clear();
}

void UpdatableRecordset::set(TextView column, const Value& value)
{
    if (!adding_ && !current_) throw no_current_row();
    const std::size_t position = position_of(columns_, column);
    std::erase_if(changes_, [&](const auto& change) { return change.first == position; });
    changes_.emplace_back(position, as_kind(value, columns_[position].kind));
}

void UpdatableRecordset::update()
{
    std::vector<Text> names, marks, assignments;
    std::vector<Value> values;
    for (const auto& [column, value] : changes_) {
        const Text& name = columns_[column].name;
        names.push_back(name);
        marks.push_back(u"?");
        assignments.push_back(name + u"=?");
        values.push_back(value);
    }
    const Text sql =
        adding_
            ? u"Insert Into " + table_ + u"(" + join(names, u",") + u") Values(" + join(marks, u",") + u")"
            : u"Update " + table_ + u" Set " + join(assignments, u",") + u" Where " + condition_;
    connection_.driver().execute(sql, values);
    changes_.clear();
    adding_ = false;
}

WriteBurst::WriteBurst(Connection& connection) : connection_(connection)
{
    connection_.driver().defer_flush();
}

WriteBurst::~WriteBurst()
{
    if (!finished_) quietly([&] { finish(); });
}

void WriteBurst::finish()
{
    finished_ = true;
    if (connection_.is_open()) connection_.driver().flush();
}

} // namespace tolvex
