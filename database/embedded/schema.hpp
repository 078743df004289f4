// What a new embedded database creates: schema/sqlite/tables_and_indexes.sql as the build puts it into the
// library.
#pragma once

namespace tolvex::embedded {

extern const char* const tables_and_indexes;

} // namespace tolvex::embedded
