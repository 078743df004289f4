// The window in which the monthly report of used folios is asked for: company, month, year and folder.
#pragma once

#include "session/opening.hpp"

namespace tolvex {

// Makes a connection with the data given the shared one and shows the window. An empty folder means that of
// the running application. Throws Error with the driver's description when the connection cannot be opened.
void show_report(Session& session, const ConnectionData& data, const Text& folder);

} // namespace tolvex
