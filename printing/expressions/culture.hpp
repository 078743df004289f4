// How a country writes numbers, amounts and dates.
#pragma once

#include "printing/expressions/variant.hpp"

#include <array>

namespace tolvex::printing {

struct Culture
{
    Text name; // es-MX
    Text decimal_point = u".", group_separator = u",";
    Text currency_symbol = u"$";
    bool symbol_first = true, symbol_apart = false; // $1.00 or 1.00 €
    bool negative_in_parentheses = false;           // of an amount: ($1.00) or -$1.00
    bool percent_apart = false;                     // 16% or 16 %
    Text short_date, long_date, short_time, long_time, month_day, year_month; // patterns of custom formats
    std::array<Text, 12> months, short_months;
    std::array<Text, 7> days, short_days; // from Sunday
    Text am, pm;
};

// The culture of that name, or the one of its language; Mexico's for the empty name and for what is unknown.
// "invariant" is that of no country.
const Culture& culture(TextView name);

// A value in a format of the layout language: standard ("N2", "C", "P1", "d", "G") or custom
// ("#,##0.00;(#,##0.00)", "dd/MM/yyyy"); without a format as the culture writes it, a date without time then
// by its day alone. A text comes back as it is. Throws Error 5 for a format that there is not, 13 for a list
// or a picture.
Text formatted(const Variant& value, TextView format, const Culture& culture);

} // namespace tolvex::printing
