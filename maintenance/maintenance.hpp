// The maintenance windows as hosts open them: each call makes a connection with the data given the shared
// one, checks the company and shows a picker. All throw Error with the driver's description when it cannot be
// opened.
#pragma once

#include "session/opening.hpp"

namespace tolvex {

void show_companies(Session& session, const ConnectionData& data);
// A company that does not exist is told in a message, and nothing is shown.
void show_branches(Session& session, const ConnectionData& data, std::int16_t company);
void show_certificates(Session& session, const ConnectionData& data, std::int16_t company);
void show_folios(Session& session, const ConnectionData& data, std::int16_t company);

} // namespace tolvex
