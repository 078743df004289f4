// How a country writes numbers, amounts and dates.
#pragma once

#include "printing/expressions/variant.hpp"

#include <array>

namespace tolvex::printing {

struct Culture
{
    Text name; // es-MX
    Text decimal_point, group_separator;
    Text currency_symbol;
    bool symbol_first = true, symbol_apart = false;    // $ 1.00 or 1.00 €
    Text short_date, long_date, short_time, long_time; // patterns of custom formats
    std::array<Text, 12> months, short_months;
    std::array<Text, 7> days, short_days; // from Sunday
    Text am, pm;
};

// The culture of that name, or the one of its language; Mexico's for the empty name and for what is unknown.
const Culture& culture(TextView name);

// A value in a format of the layout language: standard ("N2", "C", "P1", "d", "G") or custom ("#,##0.00;(#,##0.00)",
// "dd/MM/yyyy"); without a format as the culture writes it. A text comes back as it is.
Text formatted(const Variant& value, TextView format, const Culture& culture);

} // namespace tolvex::printing
