// The keywords of a connection string "name=value;name=value;…". A ";" ends a value, as drivers read it,
// unless the value stands in braces.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// A string made of what a host gives ("uid=…;pwd=…;driver={SQL Server};server=…") with the password in
// braces, a "}" in it doubled, where it would break the string; any other string as it is.
Text with_password_in_braces(TextView connection_string);

// Value of a keyword, in any letter case, without blanks around it; the last one wins, empty when there is
// none.
Text keyword(TextView connection_string, TextView name);
bool has_keyword(TextView connection_string, TextView name);
// The same string with another value for that keyword.
Text with_keyword(TextView connection_string, TextView name, TextView value);
Text without_keyword(TextView connection_string, TextView name);

// Whether it asks for the embedded database: the server "sqlite:".
bool asks_for_embedded(TextView connection_string);

} // namespace tolvex
