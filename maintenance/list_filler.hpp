// Fills a list with the rows of any query: what all record pickers show.
#pragma once

#include "platform/forms.hpp"
#include "session/session.hpp"

namespace tolvex {

// One column per field, captioned with its name. Null is empty, dates are yyyy-mm-dd, amounts "#,##0.00". An
// error is shown in a message and leaves the list as far as it was filled.
void LlenaLista(Session& session, FormView& view, TextView list, const Text& sql);

} // namespace tolvex
