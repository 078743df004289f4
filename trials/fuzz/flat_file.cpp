// Any bytes may be handed over as a flat file: the result is messages with their lines, never harm. Without a
// database every record but EMISOR and EMITE goes its whole way.
#include "flat_file/flat_file.hpp"
#include "core/errors.hpp"
#include "trials/fuzz/require.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    tolvex::session() = {};
    try {
        const tolvex::Lines lines({reinterpret_cast<const char*>(bytes), size});
        const tolvex::Review review = tolvex::review_flat_file(tolvex::session(), lines, {});
        require(review.faults.size() <= tolvex::Review::most_findings);
        const tolvex::FlatFileResult result =
            tolvex::issue_flat_file_records(tolvex::session(), lines, {}, {});
        require(result.documents.empty());
    } catch (const tolvex::Error&) {
        return 0; // no text at all
    }
    return 0;
}
