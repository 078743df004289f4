// Whether a user sees what this process shows.
#pragma once

namespace tolvex {

// Nobody sees the windows of a service: whatever waits for an answer there would wait for ever.
bool somebody_sees_windows();
// Throws Error 445 where nobody does.
void require_a_screen();

} // namespace tolvex
