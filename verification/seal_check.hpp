// Whether a stored document's seal is its issuer's.
#pragma once

#include "rebuilding/stored_issue.hpp"

namespace tolvex {

// What is wrong with it; empty when nothing is. The seal is held to the stored original string.
Text seal_fault(const StoredIssue& issue);

} // namespace tolvex
