#include "console/place.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "maintenance/records.hpp"

namespace tolvex::console {

bool is_embedded(const Place& place) { return place.server == Place().server; }

ConnectionData connection_data(const Place& place)
{
    return {to_text(place.user), to_text(place.password), to_text(place.database), to_text(place.server)};
}

std::string options_of(const Place& place)
{
    const std::string file = " --bd " + place.database;
    if (is_embedded(place)) return file;
    return " --servidor " + place.server + file + " --usuario " + place.user;
}

void connect(const Place& place)
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
