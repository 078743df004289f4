// What the commands of the program do. Each prints its result on standard output and gives the process's exit
// code: 0 on success, 1 when it failed and said why on standard error.
#pragma once

#include "tolvex/types.hpp"

#include <optional>
#include <string>

namespace tolvex::console {

// Where the documents are: server ("sqlite:" for a file), database, user and password, in UTF-8.
struct Place
{
    std::string server, database, user, password;
};

struct DocumentKey
{
    std::string folio;
    std::int16_t company = 0, branch = 0;
};

int emite(const Place& place, const std::string& file, bool extended_root);
int cancela(const Place& place, const DocumentKey& key, const std::string& date, bool credit_note);
int borra(const Place& place, const DocumentKey& key);
int folio(const Place& place, const std::string& range);
int esquema(const Place& place, bool create);
int conexion(const Place& place);
// On the embedded database in the folder, or on the server that the place names.
int demo(const Place& place, const std::string& folder);

// Says on standard error why a command failed; standard error itself may be full or gone.
void say_error(const std::string& reason) noexcept;

// Opens the shared connection. Throws Error with the driver's description.
void connect(const Place& place);
void disconnect();

} // namespace tolvex::console
