// Numbers as texts. They are rounded in their decimal form, a tie away from zero; what rounds to zero has no
// sign.
#pragma once

#include "core/decimal.hpp"
#include "printing/expressions/culture.hpp"

namespace tolvex::printing {

// By a standard or custom format; without one as the culture writes the number. Throws Error 5 for a format
// that there is not.
Text format_number(const Variant& number, TextView format, const Culture& culture);

// What FormatNumber, FormatCurrency and FormatPercent let a layout choose.
struct NumberStyle
{
    int decimals = 2;
    bool grouped = true, leading_zero = true, negative_in_parentheses = false;
};
Text plain_number(Decimal number, const NumberStyle& style, const Culture& culture);
Text amount_with_symbol(Decimal number, const NumberStyle& style, const Culture& culture);
Text percentage(Decimal number, const NumberStyle& style, const Culture& culture);

// By a custom format of up to three sections: positive; negative; zero.
Text format_number_by_pattern(const Decimal& number, TextView pattern, const Culture& culture);

} // namespace tolvex::printing
