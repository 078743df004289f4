// The keywords of a connection string "name=value;name=value;…". Values are taken as they stand: a ";" inside
// one ends it, as drivers read it.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// Value of a keyword, in any letter case, without blanks around it; the last one wins, empty when there is
// none.
Text keyword(TextView connection_string, TextView name);
bool has_keyword(TextView connection_string, TextView name);
// The same string with another value for that keyword.
Text with_keyword(TextView connection_string, TextView name, TextView value);

// Whether it asks for the embedded database: the server "sqlite:".
bool asks_for_embedded(TextView connection_string);

} // namespace tolvex
