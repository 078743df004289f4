#include "console/place.hpp"

namespace tolvex::console {

ConnectionData connection_data(const Place& place)
{
    return {to_text(place.user), to_text(place.password), to_text(place.database), to_text(place.server)};
}

void connect(const Place& place)
{
    keep_connection_data(session(), connection_data(place));
    open_shared_connection(session());
}

void disconnect() { shared_connection(session()).close(); }

} // namespace tolvex::console
