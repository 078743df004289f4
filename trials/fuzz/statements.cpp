// Any text may reach the embedded database as a statement: rows, or an Error that says why. Whatever comes,
// the database stays sound and no other file is opened.
#include "core/errors.hpp"
#include "database/connection.hpp"
#include "support/schema_change.hpp"
#include "support/temporary_folder.hpp"
#include "trials/fuzz/require.hpp"

#include <cstdlib>
#include <optional>
#include <sqlite3.h>
#include <string_view>

namespace {

using namespace tolvex;

// --- around the engine ---

std::string own_file;
int (*open_file)(sqlite3_vfs*, const char*, sqlite3_file*, int, int*);

// The engine's scratch files have no name; its log and its index are named after the database.
int open_own_file(sqlite3_vfs* system, const char* name, sqlite3_file* file, int flags, int* given)
{
    require(!name || std::string_view(name).starts_with(own_file));
    return open_file(system, name, file, flags, given);
}

void* open_no_library(sqlite3_vfs*, const char*) { std::abort(); }

void watch_files()
{
    static sqlite3_vfs watched = *sqlite3_vfs_find(nullptr);
    open_file = std::exchange(watched.xOpen, open_own_file);
    watched.xDlOpen = open_no_library;
    sqlite3_vfs_register(&watched, 1);
}

constexpr int steps_at_once = 1'000, most_steps = 50'000, longest_value = 100'000;
int steps = 0;

int stop_when_endless(void*) { return (steps += steps_at_once) > most_steps; }

sqlite3* opened = nullptr;

int note_opened(sqlite3* database, const char**, const sqlite3_api_routines*)
{
    opened = database;
    return SQLITE_OK;
}

// In place of the driver's own time-out, which is of seconds.
void limit_effort()
{
    sqlite3_limit(opened, SQLITE_LIMIT_LENGTH, longest_value);
    sqlite3_progress_handler(opened, steps_at_once, stop_when_endless, nullptr);
}

// --- the database ---

class Shop
{
public:
    Shop()
    {
        steps = 0;
        own_file = to_utf8(folder_.file("ventas.db"));
        connection.connection_string = u"server=sqlite:;database=" + to_text(own_file);
        connection.open();
        limit_effort();
        connection.execute(
            u"Insert Into FE_EMPRESAS (nEmpresa, cNombre, cRfc) Values (1, 'Ñandú', 'AES010101AAA'),"
            u" (2, 'O''Higgins', 'DEM110101AAA')");
        connection.execute(
            u"Insert Into FE_FOLIOS (nFolio, nEmpresa, nSucursal, cDocumento, cSerie, nDesde, nHasta,"
            u" cStatus, nUltimoFolio) Values (1, 1, 1, 'FACTURAS', 'A', 1, 100, 'USANDO', 7),"
            u" (2, 1, 1, 'NOTAS', 'NC', 1, 100, 'USANDO', Null)");
        connection.execute(
            u"Insert Into FE_VENTAS_RESUMEN (nEmpresa, nSucursal, cDocumento, cSerie, dFecha, nTotal)"
            u" Values (1, 1, '7', 'A', '2010-11-05 13:20:05', 1589.2)");
    }

    ~Shop()
    {
        connection.close();
        steps = 0;
        require(testing::in_sqlite(to_text(own_file), "pragma integrity_check") == "ok");
    }

    Connection connection;

private:
    TemporaryFolder folder_;
};

void read_rows(Recordset rows)
{
    for (int count = 0; !rows.eof() && count < 20; ++count, rows.move_next())
        for (std::size_t i = 0; i < rows.columns().size(); ++i) rows.value(i).text();
}

template <class Operation>
void expect_error_or_rows(Operation operation)
{
    steps = 0;
    try {
        operation();
    } catch (const Error& error) {
        require(!error.description().empty());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const bool prepared =
        (watch_files(), sqlite3_auto_extension(reinterpret_cast<void (*)()>(note_opened)) == SQLITE_OK);
    static std::optional<Shop> shop;
    static int runs = 0;
    require(prepared);
    if (runs++ % 10'000 == 0) shop.emplace();
    const Text sql = to_text({reinterpret_cast<const char*>(bytes), size});
    Connection& connection = shop->connection;
    expect_error_or_rows([&] { connection.begin_transaction(); }); // few texts end it themselves
    expect_error_or_rows([&] { read_rows(connection.query(sql)); });
    expect_error_or_rows([&] { connection.execute(sql); });
    expect_error_or_rows([&] { connection.roll_back(); });
    return 0;
}
