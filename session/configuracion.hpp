// Helpers around the shared connection and the user that several rooms above use.
#pragma once

#include "platform/forms.hpp"
#include "session/session.hpp"

namespace tolvex {

// Value of the named column of the query's first row; Null when there is no row.
Value fgValorCampo(Session& session, const Text& column, const Text& sql);

// Folder that the user picks in the system's folder browser; empty when he cancels or on any error.
Text fgSeleccionaCarpeta(WindowHandle owner, const Text& title);

} // namespace tolvex
