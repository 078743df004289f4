// Texts as a host staged them, where the rows spell them otherwise: receivers lose their "|" there, and a
// quote that was doubled for the statement stands once. The original string still has both.
#pragma once

#include "rebuilding/stored_issue.hpp"

namespace tolvex {

// Gives receiver and lines the spelling of the stored original string, if it can be followed to its end.
void restore_host_spelling(StoredIssue& issue);

} // namespace tolvex
