// Certificates that are about to expire, or have.
#pragma once

#include "session/session.hpp"

namespace tolvex {

// What a person should know about a company's certificate, by the warning days of its row; empty when there
// is nothing to say or the row asks for no warning. Throws Error when the database fails.
Text expiry_warning(Session& session, std::int16_t company, std::int16_t certificate, Date today);

} // namespace tolvex
