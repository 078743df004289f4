// Text: the handful of operations that the system's texts need beyond std::u16string.
#pragma once

#include "tolvex/types.hpp"

#include <vector>

namespace tolvex {

// Without blanks (U+0020, nothing else) at the ends.
Text trim(TextView text);
Text trim_right(TextView text);
// Upper and lower case of the Latin letters, accented ones included.
Text upper_case(TextView text);
Text lower_case(TextView text);
bool equal_ignoring_case(TextView a, TextView b);
bool starts_with_ignoring_case(TextView text, TextView prefix);
// First n UTF-16 units.
Text clip(TextView text, std::size_t n);
Text replace_all(TextView text, TextView what, TextView with);
Text without(TextView text, char16_t unwanted);
// Only the characters that occur in the allowed set, in order.
Text keep_only(TextView text, TextView allowed);
std::vector<Text> split(TextView text, char16_t separator);
Text join(const std::vector<Text>& parts, TextView separator);

// One character per byte, U+0000 to U+00FF.
Text text_of_bytes(std::string_view bytes);
// The bytes of a text whose characters are all below U+0100. Throws Error 5 for any other.
std::string bytes_of_text(TextView text);
// Windows code page 1252 to Text.
Text from_windows_1252(std::string_view bytes);
// Throws Error 5, which names the character, for one that the code page lacks.
std::string to_windows_1252(TextView text);
bool is_valid_utf8(std::string_view bytes);

} // namespace tolvex
