// Text: the handful of operations that the system's texts need beyond std::u16string.
#pragma once

#include "tolvex/types.hpp"

#include <vector>

namespace tolvex {

// 0 to 9, no other digits.
constexpr bool is_digit(char16_t c) { return c >= u'0' && c <= u'9'; }
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
// As a literal of Basic: between double quotes, those within doubled.
Text basic_literal(TextView text);
Text without(TextView text, char16_t unwanted);
// Only the characters that occur in the allowed set, in order.
Text keep_only(TextView text, TextView allowed);
std::vector<Text> split(TextView text, char16_t separator);
Text join(const std::vector<Text>& parts, TextView separator);

} // namespace tolvex
