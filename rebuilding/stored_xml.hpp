// Writes the XML file of a stored document anew.
#pragma once

#include "issuing/stored_documents.hpp"
#include "tolvex/stored_documents.hpp"

namespace tolvex {

// As the public write_xml says.
RewrittenXml write_stored_xml(Session& session, const DocumentKey& key, const Text& kind, const Text& folder);

} // namespace tolvex
