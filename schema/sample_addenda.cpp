#include "schema/sample_addenda.hpp"

#include "schema/schema.hpp"
#include "schema/scripts.hpp"

namespace tolvex {

void store_sample_addenda(Connection& connection)
{
    for (const Text& batch : batches(to_text(schema::sample_addenda))) connection.execute(batch);
}

} // namespace tolvex
