// The embedded database as a driver: one file, SQLite through its C interface.
#include "core/errors.hpp"
#include "database/embedded/schema.hpp"
#include "database/embedded/statement.hpp"
#include "database/embedded/tsql/functions.hpp"
#include "database/embedded/tsql/rewriter.hpp"

#include <algorithm>

namespace tolvex {

namespace {

using embedded::Database;
using embedded::Statement;

// A writer is done in milliseconds. Who waits longer than this waits for somebody who has stopped.
constexpr int longest_wait_seconds = 10;

int wait_milliseconds(int timeout_seconds)
{
    const bool endless = timeout_seconds <= 0;
    return (endless ? longest_wait_seconds : std::min(timeout_seconds, longest_wait_seconds)) * 1000;
}

std::string engine_sql(const Text& sql)
{
    if (sql.find(u'\0') != Text::npos)
        throw Error(database_error, u"La instrucción SQL contiene un carácter nulo");
    return to_utf8(embedded::to_sqlite(sql));
}

// Whether the file took the change. SQLite does not wait here by itself while another process opens the same
// new file, since it would have to upgrade a lock.
bool switch_to_write_ahead_log(Database& database, int longest_wait)
{
    constexpr int pause = 10; // milliseconds
    for (int waited = 0;; waited += pause) {
        try {
            return database.answer("PRAGMA journal_mode=WAL") == "wal";
        } catch (const Error&) {
            const bool busy = (sqlite3_errcode(database.handle()) & 0xFF) == SQLITE_BUSY;
            if (!busy || waited >= longest_wait) throw;
        }
        sqlite3_sleep(pause);
    }
}

void create_schema(Database& database)
{
    if (database.answer("SELECT count(*) FROM sqlite_master") != "0") return;
    database.run("BEGIN IMMEDIATE");
    // Another process may have been quicker.
    if (database.answer("SELECT count(*) FROM sqlite_master") == "0")
        database.run(embedded::tables_and_indexes);
    database.run("COMMIT");
}

class EmbeddedCursor : public Cursor
{
public:
    // The first row is fetched at once: it tells the kinds of columns that are expressions.
    explicit EmbeddedCursor(Statement statement)
        : statement_(std::move(statement)), at_row_(statement_.step())
    {
        for (std::size_t i = 0; i < statement_.column_count(); ++i) columns_.push_back(statement_.column(i));
    }

    const std::vector<Column>& columns() const override { return columns_; }

    bool next() override
    {
        if (started_ && at_row_) at_row_ = statement_.step();
        started_ = true;
        return at_row_;
    }

    Value value(std::size_t column) override { return statement_.value(column, columns_.at(column).kind); }

private:
    Statement statement_;
    bool at_row_, started_ = false;
    std::vector<Column> columns_;
};

// What a text without any statement answers.
class NoRows : public Cursor
{
public:
    const std::vector<Column>& columns() const override { return columns_; }
    bool next() override { return false; }
    Value value(std::size_t) override { return {}; }

private:
    std::vector<Column> columns_;
};

class EmbeddedDriver : public Driver
{
public:
    EmbeddedDriver(const Text& file, int timeout_seconds) : database_(std::make_shared<Database>(file))
    {
        const int longest_wait = wait_milliseconds(timeout_seconds);
        database_->check(sqlite3_busy_timeout(database_->handle(), longest_wait));
        database_->check(embedded::add_functions(database_->handle()));
        database_->run("PRAGMA encoding='UTF-16le'");
        write_ahead_ = switch_to_write_ahead_log(*database_, longest_wait);
        database_->run("PRAGMA synchronous=FULL");
        create_schema(*database_);
    }

    ~EmbeddedDriver() override
    {
        if (relaxed_) quietly([&] { flush(); });
    }

    void execute(const Text& sql, const std::vector<Value>& parameters) override
    {
        const std::string text = engine_sql(sql);
        std::string_view rest = text;
        std::size_t bound = 0;
        while (!rest.empty()) {
            Statement statement(database_, rest);
            if (!statement.exists()) break;
            bind(statement, parameters, bound);
            while (statement.step()) {
            }
        }
        settle();
    }

    std::unique_ptr<Cursor> query(const Text& sql) override
    {
        const std::string text = engine_sql(sql);
        std::string_view rest = text;
        while (!rest.empty()) {
            Statement statement(database_, rest);
            if (!statement.exists()) break;
            std::size_t bound = 0;
            bind(statement, {}, bound);
            if (statement.column_count() > 0) return std::make_unique<EmbeddedCursor>(std::move(statement));
            while (statement.step()) {
            }
        }
        settle();
        return std::make_unique<NoRows>();
    }

    // At once with the right to write: a transaction that reads first could not get it later if somebody else
    // wrote in between.
    void begin() override { database_->run("BEGIN IMMEDIATE"); }

    void commit() override
    {
        database_->run("COMMIT");
        settle();
    }

    void roll_back() override
    {
        database_->run("ROLLBACK");
        settle();
    }

    bool in_transaction() const override { return database_->in_transaction(); }

    Text description() override
    {
        return u"SQLite " + to_text(sqlite3_libversion()) + u", base de datos embebida en " +
               database_->file();
    }

    // A commit then goes to the write-ahead log without waiting for the disk. Within a transaction there is
    // nothing to defer.
    void defer_flush() override
    {
        deferring_ = true;
        if (!write_ahead_ || in_transaction()) return;
        database_->run("PRAGMA synchronous=NORMAL");
        relaxed_ = true;
    }

    void flush() override
    {
        deferring_ = false;
        settle();
    }

private:
    static void bind(Statement& statement, const std::vector<Value>& parameters, std::size_t& bound)
    {
        const std::size_t count = statement.parameter_count();
        if (bound + count > parameters.size())
            throw Error(database_error, u"Faltan valores para los parámetros de la instrucción SQL");
        for (std::size_t i = 0; i < count; ++i) statement.bind(i, parameters[bound++]);
    }

    // Once nothing is deferred any more, what was written reaches the disk and the next statement flushes by
    // itself again; a transaction that is still open puts the latter off until it ends.
    void settle()
    {
        if (deferring_ || !relaxed_) return;
        flush_write_ahead_log();
        if (in_transaction()) return;
        database_->run("PRAGMA synchronous=FULL");
        relaxed_ = false;
    }

    void flush_write_ahead_log()
    {
        sqlite3_file* log = nullptr;
        database_->check(
            sqlite3_file_control(database_->handle(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &log));
        if (log && log->pMethods) database_->check(log->pMethods->xSync(log, SQLITE_SYNC_NORMAL));
    }

    std::shared_ptr<Database> database_;
    bool write_ahead_ = false;
    bool deferring_ = false; // between defer_flush() and flush()
    bool relaxed_ = false;   // commits do not wait for the disk
};

} // namespace

std::unique_ptr<Driver> open_embedded(const Text& file, int timeout_seconds)
{
    return std::make_unique<EmbeddedDriver>(file, timeout_seconds);
}

} // namespace tolvex
