// Any text may reach the rewriter: it must end, without harm, on each.
#include "database/embedded/tsql/rewriter.hpp"
#include "core/text.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    tolvex::embedded::to_sqlite(tolvex::to_text({reinterpret_cast<const char*>(bytes), size}));
    return 0;
}
