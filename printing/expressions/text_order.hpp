// How texts follow one another in a sorted list.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex::printing {

// -1, 0, 1: by letters without case and accents, with the ñ after the n; then by accents. Texts that differ
// in case only are equal.
int compare_letters(TextView a, TextView b);

} // namespace tolvex::printing
