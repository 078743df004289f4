// The operators of Visual Basic between two values.
#pragma once

#include "printing/expressions/culture.hpp"

namespace tolvex::printing {

enum class Operator
{
    xor_,
    or_,
    or_else,
    and_,
    and_also,
    equal,
    not_equal,
    less,
    less_or_equal,
    greater,
    greater_or_equal,
    like,
    is,
    is_not,
    join,
    add,
    subtract,
    modulo,
    divide_whole,
    multiply,
    divide,
    power
};

// Throws Error 13 for values that do not go together, 11 on a division by zero, 6 on overflow.
Variant apply(Operator how, const Variant& left, const Variant& right, const Culture& culture);
Variant negated_or_not(const Variant& value, bool logically);

// Whether a text is as a pattern of "?", "*", "#", "[a-z]" and "[!a-z]". Throws Error 93 for a bad pattern.
bool is_like(TextView text, TextView pattern);

} // namespace tolvex::printing
