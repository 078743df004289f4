// The scripts of this folder and of sql_server/ as the build puts them into the library, in UTF-8. What
// stands in this folder is for both databases.
#pragma once

namespace tolvex::schema {

extern const char* const tables;
extern const char* const indexes;
extern const char* const fg_numero2letra;
extern const char* const sample_addenda;

} // namespace tolvex::schema
