// Amounts in Spanish words, as Mexican invoices carry them: "VEINTIÚN MIL PESOS 45/100 M.N.".
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// The amount, rounded to cents (a tie away from zero), in upper-case words. Pesos ("PESOS", "PESO", "MXN" or
// no name) end in "M.N."; any other currency is named as given, in upper case and in the singular for exactly
// one.
Text amount_in_words(Currency amount, TextView currency);

} // namespace tolvex
