// What openssl prints, and the lines of the batch files that run it: any bytes may stand there.
#include "core/errors.hpp"
#include "maintenance/certificate_text.hpp"
#include "platform/batch_lines.hpp"
#include "trials/fuzz/require.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tolvex;
    const Text text = to_text({reinterpret_cast<const char*>(bytes), size});
    for (const BatchCommand& command : parse_batch(text))
        require(!command.words.empty() || !command.output.empty());
    try {
        ConvierteFecha(text);
        ObtenNumeroCertificado(text);
    } catch (const Error&) {
        return 0; // told to the user of the certificates' form
    }
    require(ExtraeCertificado(text).size() <= 2 * text.size() + 2);
    return 0;
}
