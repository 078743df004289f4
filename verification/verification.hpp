// Goes over stored documents and tells what is not right with their rows, seals, files and folios.
#pragma once

#include "session/session.hpp"
#include "tolvex/stored_documents.hpp"

namespace tolvex {

// As the public function of that name says.
VerificationSummary verify_documents(Session& session, const VerifiedRange& range,
                                     const VerificationEvents& events);

} // namespace tolvex
