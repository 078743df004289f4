// Typographic signs in the plain form that a document can be sealed with.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// What stands for – — “ ” ‘ ’ … • and empty for any other character: the seal over one from U+0800 on does
// not verify.
TextView plain_form(char16_t c);

Text plain_text(TextView text);

} // namespace tolvex
