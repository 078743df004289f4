// Any bytes may be handed to «tolvex maestros»: entries whose lines are in the file, or an Error that names
// one.
#include "console/master_data/entries.hpp"
#include "core/errors.hpp"
#include "trials/fuzz/require.hpp"

#include <algorithm>

namespace {

using namespace tolvex;
using namespace tolvex::console;

void require_lines(const std::vector<Entry>& entries, unsigned first, unsigned last)
{
    for (const Entry& entry : entries) require(entry.line >= first && entry.line <= last);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string_view toml(reinterpret_cast<const char*>(bytes), size);
    const auto last_line = static_cast<unsigned>(std::count(toml.begin(), toml.end(), '\n')) + 1;
    try {
        for (const CompanyEntry& each : entries_in(toml)) {
            require_lines({each.company}, 1, last_line);
            for (const auto* entries : {&each.certificates, &each.branches, &each.folio_ranges})
                require_lines(*entries, 1, last_line);
        }
    } catch (const Error& error) {
        require(error.number() == numbers::invalid_call);
        require(error.description().starts_with(u"Línea ") ||
                error.description().ends_with(u"ninguna [[empresa]]"));
    }
    return 0;
}
