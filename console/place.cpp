#include "console/place.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "maintenance/records.hpp"
#include "platform/files.hpp"

namespace tolvex::console {

namespace {

Error no_database(const Text& file)
{
    return {numbers::file_not_found,
            u"no existe la base de datos " + files::absolute_path(file) +
                u"; indique su archivo con --bd, o créela con «tolvex esquema --crea» o «tolvex maestros»"};
}

} // namespace

bool is_embedded(const Place& place) { return place.server == Place().server; }

ConnectionData connection_data(const Place& place)
{
    const Text database = to_text(place.database);
    return {to_text(place.user), to_text(place.password),
            is_embedded(place) ? files::native_path(database) : database, to_text(place.server)};
}

std::string options_of(const Place& place)
{
    const std::string file = " --bd " + place.database;
    if (is_embedded(place)) return file;
    return " --servidor " + place.server + file + " --usuario " + place.user;
}

void connect(const Place& place)
{
    const Text file = connection_data(place).database;
    if (is_embedded(place) && !files::exists(file)) throw no_database(file);
    connect_or_create(place);
}

void connect_or_create(const Place& place)
{
    keep_connection_data(session(), connection_data(place));
    open_shared_connection(session());
}

void connect(const Place& place, std::int16_t company)
{
    connect(place);
    if (!ExisteEmpresa(session(), company)) throw invalid_call(u"no existe la empresa " + decimal(company));
}

void disconnect() { shared_connection(session()).close(); }

} // namespace tolvex::console
