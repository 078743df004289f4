// The embedded database as a file: created when it is missing, shared, durable, and clear about what is wrong
// with it.
#include "core/errors.hpp"
#include "core/text.hpp"
#include "database/connection.hpp"
#include "support/schema_change.hpp"
#include "support/tables.hpp"
#include "support/temporary_folder.hpp"
#include "support/watched_disk.hpp"

#include <chrono>
#include <csignal>
#include <fstream>
#include <gmock/gmock.h>
#include <regex>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tolvex {
namespace {

using ::testing::AllOf;
using testing::database_failure;
using testing::error_number;
using ::testing::HasSubstr;
using testing::in_sqlite;

const char16_t* const add_document = u"insert into FE_VENTAS_RESUMEN(cDocumento,nTotal) values('A1',116.5)";

class EmbeddedFile : public ::testing::Test
{
protected:
    static Connection open(const Text& file, int seconds_to_wait = 1)
    {
        Connection connection;
        connection.connection_string = u"server=sqlite:;database=" + file;
        connection.command_timeout = seconds_to_wait;
        connection.open();
        return connection;
    }

    static std::string failure_of_opening(const Text& file)
    {
        return database_failure([&] { open(file).execute(add_document); });
    }

    static int number(Connection& connection, const Text& sql)
    {
        return connection.query(sql).value(0).int32();
    }
    static int documents(Connection& connection)
    {
        return number(connection, u"Select count(*) from FE_VENTAS_RESUMEN");
    }
    // Starts the operation in a process of its own.
    template <class Operation>
    static pid_t in_process(Operation operation)
    {
        const pid_t child = fork();
        if (child == 0) _exit(error_number(operation) == 0 ? 0 : 1);
        return child;
    }

    // Exit status of the process, or minus the signal that ended it.
    static int status_of(pid_t child)
    {
        int status = 0;
        waitpid(child, &status, 0);
        return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
    }

    TemporaryFolder folder_;
    const Text file_ = folder_.file("Año 2011.db");
};

TEST_F(EmbeddedFile, a_file_that_does_not_exist_is_created_and_shared)
{
    Connection connection = open(file_);
    EXPECT_EQ(in_sqlite(file_, "PRAGMA encoding"), "UTF-16le");
    EXPECT_EQ(in_sqlite(file_, "PRAGMA journal_mode"), "wal");
    connection.execute(add_document);
    Connection again = open(file_);
    EXPECT_EQ(documents(again), 1);
    EXPECT_THAT(to_utf8(again.description()), AllOf(HasSubstr("SQLite 3."), HasSubstr("Año 2011.db")));
}

TEST_F(EmbeddedFile, its_columns_are_those_of_the_server)
{
    open(file_);
    std::ifstream script(TOLVEX_SOURCE_DIR "/schema/sql_server/tables.sql");
    const std::regex create("CREATE TABLE dbo\\.(\\w+)"),
        declared(" {8}(\\w+) (\\w+(\\([\\w, ]+\\))?) (NOT|NULL|IDENTITY).*");
    Text table;
    int columns = 0;
    std::smatch found;
    for (std::string line; std::getline(script, line);) {
        if (std::regex_search(line, found, create)) table = to_text(found.str(1));
        if (!std::regex_match(line, found, declared)) continue;
        const Text name = to_text(found.str(1));
        Text type = replace_all(to_text(found.str(2)), u" ", u"");
        if (name == u"nID") type = u"integer";         // hands out the highest number plus one
        if (type == u"nvarchar(max)") type = u"ntext"; // the engine's types take numbers only
        const Text sql = u"select type from pragma_table_info('" + table + u"') where name='" + name + u"'";
        EXPECT_EQ(lower_case(to_text(in_sqlite(file_, to_utf8(sql)))), type) << to_utf8(table + u"." + name);
        ++columns;
    }
    EXPECT_GT(columns, 140);
}

TEST_F(EmbeddedFile, what_cannot_be_opened_is_named_with_the_reason)
{
    EXPECT_THAT(failure_of_opening(u""), HasSubstr("Falta el nombre"));
    EXPECT_THAT(failure_of_opening(folder_.file("nada/tolvex.db")),
                AllOf(HasSubstr("nada/tolvex.db: no existe la carpeta "), HasSubstr("créela")));
    EXPECT_THAT(failure_of_opening(folder_.path().u16string()), HasSubstr("es una carpeta"));
    EXPECT_THAT(failure_of_opening(u"/proc/tolvex.db"),
                HasSubstr("no hay permiso")); // for the superuser neither
    std::ofstream(folder_.path() / "nota.txt") << std::string(5000, 'x');
    EXPECT_THAT(failure_of_opening(folder_.file("nota.txt")),
                HasSubstr("nota.txt: el archivo no es una base de datos; indique otro (SQLite 26)"));
}

TEST_F(EmbeddedFile, a_damaged_file_says_so)
{
    const Text line =
        u"insert into FE_VENTAS_RESUMEN_DET(nIdFe,cProducto) values(1,'" + Text(500, u'p') + u"')";
    {
        Connection connection = open(file_);
        for (int i = 0; i < 200; ++i) connection.execute(line);
    }
    const auto size = std::filesystem::file_size(file_);
    std::fstream(std::filesystem::path(file_), std::ios::in | std::ios::out | std::ios::binary)
            .seekp(static_cast<std::streamoff>(size / 2))
        << std::string(size / 4, '\xFF');
    EXPECT_THAT(database_failure([&] {
                    for (auto rows = open(file_).query(u"select * from FE_VENTAS_RESUMEN_DET"); !rows.eof();)
                        rows.move_next();
                }),
                AllOf(HasSubstr("Año 2011.db"), HasSubstr("dañado")));
}

TEST_F(EmbeddedFile, who_waits_too_long_for_another_writer_is_told_so)
{
    Connection writer = open(file_), waiting = open(file_);
    writer.begin_transaction();
    writer.execute(add_document);
    EXPECT_EQ(documents(waiting), 0); // readers do not wait

    const auto start = std::chrono::steady_clock::now();
    const std::string busy = database_failure([&] { waiting.execute(add_document); });
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_THAT(busy,
                AllOf(HasSubstr("Año 2011.db: otro programa está escribiendo"), HasSubstr("(SQLite 5)")));
    writer.commit();
    waiting.execute(add_document);
    EXPECT_EQ(documents(waiting), 2);
}

TEST_F(EmbeddedFile, a_full_disk_says_so_and_keeps_what_was_stored)
{
    testing::WatchedDisk disk;
    Connection connection = open(file_);
    const auto says_full = AllOf(HasSubstr("Año 2011.db"), HasSubstr("disco está lleno"));
    connection.execute(add_document);
    disk.full = true;
    EXPECT_THAT(database_failure([&] { connection.execute(add_document); }), says_full);
    disk.full = false;
    EXPECT_EQ(documents(connection), 1);

    WriteBurst burst(connection);
    for (int i = 0; i < 3; ++i) connection.execute(add_document);
    disk.full = true;
    EXPECT_THAT(database_failure([&] { burst.finish(); }), says_full);
    disk.full = false;
    EXPECT_EQ(documents(connection), 2) << "all but those that shared a commit";
    connection.begin_transaction();
    connection.roll_back();
}

TEST_F(EmbeddedFile, each_statement_reaches_the_disk_by_itself_and_a_burst_at_once_however_it_ends)
{
    testing::WatchedDisk disk;
    Connection connection = open(file_);
    const auto two_statements = [&] {
        for (int i = 0; i < 2; ++i) connection.execute(add_document);
    };
    const auto events_of = [&](auto work) {
        disk.log_events();
        work();
        return disk.log_events();
    };
    EXPECT_EQ(events_of(two_statements), "wfwf");
    EXPECT_EQ(events_of([&] {
                  WriteBurst burst(connection);
                  EXPECT_EQ(events_of(two_statements), "w");
                  burst.finish();
                  EXPECT_EQ(disk.log_events(), "wf");
              }),
              "");
    EXPECT_EQ(events_of([&] {
                  database_failure([&] {
                      WriteBurst burst(connection);
                      two_statements();
                      connection.execute(u"insert into nada values(1)");
                  });
              }),
              "wf");
    EXPECT_EQ(events_of(two_statements), "wfwf");

    // A transaction that outlives the burst reaches the disk when it ends.
    {
        WriteBurst burst(connection);
        connection.begin_transaction();
        two_statements();
    }
    EXPECT_EQ(events_of([&] { connection.commit(); }), "wf");
}

TEST_F(EmbeddedFile, a_burst_and_a_transaction_end_durable_in_any_order)
{
    testing::WatchedDisk disk;
    Connection connection = open(file_);
    const auto expect_durable_after = [&](auto work) {
        {
            WriteBurst burst(connection);
            work();
            burst.finish();
        }
        connection.roll_back();
        const int before = documents(connection);
        disk.log_events();
        connection.execute(add_document);
        EXPECT_EQ(disk.log_events(), "wf");
        EXPECT_EQ(documents(connection), before + 1);
    };
    expect_durable_after([&] { connection.begin_transaction(); });
    expect_durable_after([&] { connection.execute(u"begin tran"); });

    connection.begin_transaction();
    expect_durable_after([&] { connection.execute(add_document); });
    EXPECT_EQ(documents(connection), 3) << "one after each";
}

TEST_F(EmbeddedFile, like_statements_of_a_burst_share_commits_and_the_first_ones_stay)
{
    Connection connection = open(file_), other = open(file_);
    const auto add = [&](int first, int last) {
        for (int i = first; i <= last; ++i)
            connection.execute(u"insert into FE_VENTAS_RESUMEN(nID,cDocumento) values(" + decimal(i) +
                               u",'A')");
    };
    WriteBurst burst(connection);
    add(1, 250);
    EXPECT_EQ(documents(other), 201) << "the first by itself, then a hundred at a time";
    EXPECT_NE(database_failure([&] { add(250, 251); }), "no failure");
    EXPECT_EQ(documents(other), 250) << "what a failure finds shared stays";
    add(251, 260);
    EXPECT_EQ(documents(other), 251);
    connection.execute(u"update FE_VENTAS_RESUMEN set cSerie='B' where nID=1");
    EXPECT_EQ(documents(other), 260) << "anything else ends the sharing";
    add(261, 265);
    connection.roll_back(); // there is no transaction
    burst.finish();
    EXPECT_EQ(documents(other), 265);
}

TEST_F(EmbeddedFile, what_a_killed_process_had_stored_is_there)
{
    const int status = status_of(in_process([&] {
        Connection connection = open(file_);
        WriteBurst burst(connection);
        for (int i = 0; i < 100; ++i) connection.execute(add_document);
        connection.begin_transaction();
        connection.execute(u"delete from FE_VENTAS_RESUMEN");
        kill(getpid(), SIGKILL);
    }));
    EXPECT_EQ(status, -SIGKILL);
    Connection connection = open(file_);
    EXPECT_EQ(documents(connection), 100);
    EXPECT_EQ(in_sqlite(file_, "PRAGMA integrity_check"), "ok");
}

TEST_F(EmbeddedFile, who_opens_a_new_file_while_another_creates_it_waits)
{
    sqlite3* creator = nullptr;
    ASSERT_EQ(sqlite3_open(to_utf8(file_).c_str(), &creator), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(creator, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    std::thread end([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        sqlite3_close(creator);
    });
    EXPECT_EQ(error_number([&] { open(file_, 10).execute(add_document); }), 0);
    end.join();
}

TEST_F(EmbeddedFile, processes_that_create_and_write_at_once_all_succeed)
{
    constexpr int processes = 4, documents_of_each = 25;
    std::vector<pid_t> children;
    for (int i = 0; i < processes; ++i)
        children.push_back(in_process([&] {
            Connection connection = open(file_, Connection::default_timeout);
            for (int n = 0; n < documents_of_each; ++n) connection.execute(add_document);
        }));
    for (const pid_t child : children) EXPECT_EQ(status_of(child), 0);
    Connection connection = open(file_);
    EXPECT_EQ(documents(connection), processes * documents_of_each);
}

} // namespace
} // namespace tolvex
