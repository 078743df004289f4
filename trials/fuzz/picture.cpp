// Any bytes may stand where a layout or a table names a picture: pixels, or an error that says so.
#include "platform/pages/picture.hpp"

#include "core/errors.hpp"
#include "trials/fuzz/require.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tolvex::pages;
    constexpr int most_pixels = 1'000'000; // more are but slower
    try {
        const Picture picture = open_picture({reinterpret_cast<const char*>(bytes), size});
        if (std::int64_t{picture.width} * picture.height > most_pixels) return 0;
        const Pixels shown = pixels(picture);
        require(shown.rgba.size() == std::size_t{4} * picture.width * picture.height);
    } catch (const tolvex::Error& error) {
        require(error.number() == 5);
    }
    return 0;
}
