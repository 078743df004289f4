#include "schema/schema.hpp"

#include "core/errors.hpp"
#include "core/text.hpp"
#include "database/connection_keywords.hpp"
#include "schema/scripts.hpp"

namespace tolvex {

namespace {

// Only one station at a time creates: each batch looks first and then makes. A login that may take no lock
// goes on without.
class Turn
{
public:
    explicit Turn(Connection& connection) : connection_(connection)
    {
        quietly([&] {
            connection_.execute(u"exec sp_getapplock @Resource='tolvex_esquema', @LockMode='Exclusive', "
                                u"@LockOwner='Session', @LockTimeout=60000");
        });
    }
    ~Turn()
    {
        quietly([&] {
            connection_.execute(u"exec sp_releaseapplock @Resource='tolvex_esquema', @LockOwner='Session'");
        });
    }
    Turn(const Turn&) = delete;

private:
    Connection& connection_;
};

} // namespace

Text schema_script()
{
    return to_text(schema::tables) + to_text(schema::indexes) + to_text(schema::fg_numero2letra);
}

std::vector<Text> batches(const Text& script)
{
    std::vector<Text> all;
    Text batch;
    for (const Text& line : split(script, u'\n')) {
        if (!equal_ignoring_case(trim(without(line, u'\r')), u"GO")) {
            batch += line + u"\n";
            continue;
        }
        all.push_back(batch);
        batch.clear();
    }
    if (!trim(replace_all(batch, u"\n", u"")).empty()) all.push_back(batch);
    return all;
}

void create_schema(Connection& connection)
{
    if (asks_for_embedded(connection.connection_string)) return connection.complete_schema();
    const Turn turn(connection);
    for (const Text& batch : batches(schema_script())) connection.execute(batch);
}

} // namespace tolvex
