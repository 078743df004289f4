// The embedded database as a driver: one file, SQLite through its C interface.
#include "core/errors.hpp"
#include "core/text.hpp"
#include "database/embedded/completion.hpp"
#include "database/embedded/opening.hpp"
#include "database/embedded/rows.hpp"
#include "database/embedded/script.hpp"
#include "database/embedded/shared_commit.hpp"

namespace tolvex {

namespace {

using embedded::Database;
using embedded::Script;
using embedded::SharedCommit;
using embedded::Statement;

class EmbeddedDriver : public Driver
{
public:
    EmbeddedDriver(const Text& file, int timeout_seconds)
        : database_(std::make_shared<Database>(file)),
          write_ahead_(embedded::prepare(*database_, timeout_seconds))
    {}

    ~EmbeddedDriver() override
    {
        if (deferring_ || relaxed_) quietly([&] { flush(); });
    }

    void execute(const Text& sql, const std::vector<Value>& parameters) override
    {
        std::size_t bound = 0;
        for (Script script(database_, sql); auto statement = script.next();) {
            bind(*statement, parameters, bound);
            run(*statement);
        }
        settle();
    }

    std::unique_ptr<Cursor> query(const Text& sql) override
    {
        shared_commit_.end();
        std::size_t bound = 0;
        for (Script script(database_, sql); auto statement = script.next();) {
            bind(*statement, {}, bound);
            if (statement->column_count() > 0) return embedded::rows_of(std::move(*statement));
            run(*statement);
        }
        settle();
        return embedded::no_rows();
    }

    std::unique_ptr<Cursor> query(const Text& sql, const std::vector<NamedValue>& parameters) override
    {
        shared_commit_.end();
        for (Script script(database_, sql); auto statement = script.next();) {
            bind(*statement, parameters);
            if (statement->column_count() > 0) return embedded::rows_of(std::move(*statement));
            run(*statement);
        }
        settle();
        return embedded::no_rows();
    }

    std::unique_ptr<Cursor> call(const Text& procedure, const std::vector<NamedValue>&) override
    {
        throw Error(database_error,
                    u"La base de datos embebida no tiene procedimientos almacenados: " + procedure);
    }

    // At once with the right to write: a transaction that reads first could not get it later if somebody else
    // wrote in between.
    void begin() override
    {
        shared_commit_.end();
        database_->run("BEGIN IMMEDIATE");
    }

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

    bool in_transaction() const override { return database_->in_transaction() && !shared_commit_.is_open(); }

    Text description() override
    {
        return u"SQLite " + to_text(sqlite3_libversion()) + u", base de datos embebida en " +
               database_->file();
    }

    Text file() const override { return to_text(sqlite3_db_filename(database_->handle(), "main")); }

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
        shared_commit_.end();
        settle();
    }

    void complete_schema() override { embedded::complete_schema(*database_); }

private:
    static void bind(Statement& statement, const std::vector<Value>& parameters, std::size_t& bound)
    {
        const std::size_t count = statement.parameter_count();
        if (bound + count > parameters.size())
            throw Error(database_error, u"Faltan valores para los parámetros de la instrucción SQL");
        for (std::size_t i = 0; i < count; ++i) statement.lend(i, parameters[bound++]);
    }

    static void bind(Statement& statement, const std::vector<NamedValue>& parameters)
    {
        for (std::size_t i = 0; i < statement.parameter_count(); ++i)
            statement.bind(i, value_of(statement.parameter_name(i), parameters));
    }

    static const Value& value_of(const Text& name, const std::vector<NamedValue>& parameters)
    {
        for (const NamedValue& each : parameters)
            if (equal_ignoring_case(u"@" + each.name, name)) return each.value;
        throw Error(database_error, u"Falta el valor del parámetro " + name + u" de la instrucción SQL");
    }

    void run(Statement& statement)
    {
        if (deferring_) shared_commit_.join(statement);
        try {
            while (statement.step()) continue;
        } catch (const Error&) {
            quietly([&] { shared_commit_.end(); });
            throw;
        }
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
    SharedCommit shared_commit_{*database_};
    bool write_ahead_;       // the file took the write-ahead log
    bool deferring_ = false; // between defer_flush() and flush()
    bool relaxed_ = false;   // commits do not wait for the disk
};

} // namespace

std::unique_ptr<Driver> open_embedded(const Text& file, int timeout_seconds)
{
    return std::make_unique<EmbeddedDriver>(file, timeout_seconds);
}

} // namespace tolvex
