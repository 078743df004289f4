// The folios of stored documents: gaps, folios that two documents have, counters that went astray.
#pragma once

#include "session/session.hpp"
#include "tolvex/stored_documents.hpp"

namespace tolvex {

// Tells each finding. Looks at every document of the company, or of all, and tells what lies between the
// lowest and the highest folio of the range's days. Throws Error when the database fails.
void verify_folios(Session& session, const VerifiedRange& range,
                   const std::function<void(const Finding&)>& found);

} // namespace tolvex
