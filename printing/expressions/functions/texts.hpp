// What functions and methods over texts share.
#pragma once

#include "core/text.hpp"
#include "printing/expressions/variant.hpp"

namespace tolvex::printing {

// Every kind of blank, line ends too.
bool is_space(char16_t c);
// Cuts the characters off the ends that `unwanted` names.
Text trimmed(TextView text, bool (*unwanted)(char16_t), bool at_start, bool at_end);
Text trimmed(TextView text, TextView unwanted, bool at_start, bool at_end);
// At most `limit` replacements; a negative one for all. Nothing is found of an empty text. Throws Error 6
// when the result is too long.
Text replaced(TextView text, TextView what, TextView with, std::int64_t limit, bool ignoring_case);
// Where it is found, from 0; npos.
std::size_t find_text(TextView text, TextView what, std::size_t from, bool ignoring_case);
// At most `limit` parts, the last one with the rest; a negative one for all.
Variant::List parts_of(TextView text, TextView separator, std::int64_t limit, bool ignoring_case);
// Filled up to the width, and not cut. Throws Error 6 when it is too long.
Text padded_left(const Text& text, std::size_t width, char16_t with);
Text padded_right(const Text& text, std::size_t width, char16_t with);
// The part from a place on, which may lie behind the end.
Text part(TextView text, std::size_t from, std::size_t length = Text::npos);

} // namespace tolvex::printing
