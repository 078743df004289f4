// Any bytes may be handed over as a flat file: the result is a message with a line, never harm. Without a
// database every record but EMISOR and EMITE goes its whole way.
#include "flat_file/flat_file.hpp"
#include "platform/files.hpp"
#include "support/temporary_folder.hpp"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static const tolvex::TemporaryFolder folder;
    const tolvex::Text path = folder.file("documentos.txt");
    tolvex::files::write(path, {reinterpret_cast<const char*>(bytes), size});
    tolvex::session() = {};
    const tolvex::FlatFileResult result = tolvex::issue_flat_file_records(tolvex::session(), path, {});
    if (!result.documents.empty()) std::abort();
    return 0;
}
