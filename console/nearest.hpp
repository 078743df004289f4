// What somebody may have meant who mistyped a word.
#pragma once

#include <string>
#include <vector>

namespace tolvex::console {

// The candidate that fewest changed letters turn the word into; empty when even that one is another word.
std::string nearest(const std::string& word, const std::vector<std::string>& candidates);

} // namespace tolvex::console
