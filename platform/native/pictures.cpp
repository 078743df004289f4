// Pictures decoded by the libraries of their formats; a BMP picture has none and needs none.
#include "platform/native/bmp.hpp"
#include "platform/pages/picture_decoder.hpp"

#include "core/errors.hpp"

#include <gif_lib.h>
#include <png.h>
#include <turbojpeg.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace tolvex::pages {

namespace {

[[noreturn]] void fail() { throw invalid_call(u"la imagen está dañada"); }

Pixels empty_pixels(const Picture& picture)
{
    return {picture.width, picture.height,
            std::string(std::size_t{4} * picture.width * picture.height, '\0')};
}

const unsigned char* unsigned_bytes(const std::string& bytes)
{
    return reinterpret_cast<const unsigned char*>(bytes.data());
}

// --- PNG ---

Pixels decoded_png(const Picture& picture)
{
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    const std::unique_ptr<png_image, decltype(&png_image_free)> freed(&image, png_image_free);
    if (!png_image_begin_read_from_memory(&image, picture.bytes.data(), picture.bytes.size())) fail();
    Pixels pixels = empty_pixels(picture);
    image.format = PNG_FORMAT_RGBA;
    if (PNG_IMAGE_SIZE(image) != pixels.rgba.size()) fail();
    if (!png_image_finish_read(&image, nullptr, pixels.rgba.data(), 0, nullptr)) fail();
    return pixels;
}

// --- JPEG ---

struct EndDecompressing
{
    void operator()(void* decompressor) const { tjDestroy(decompressor); }
};
using Decompressor = std::unique_ptr<void, EndDecompressing>;

// Four inks, stored as what they leave of the light.
void show_inks(std::string& rgba)
{
    for (std::size_t i = 0; i < rgba.size(); i += 4) {
        const int black = static_cast<unsigned char>(rgba[i + 3]);
        for (std::size_t c = i; c < i + 3; ++c)
            rgba[c] = static_cast<char>(static_cast<unsigned char>(rgba[c]) * black / 255);
        rgba[i + 3] = '\xFF';
    }
}

Pixels decoded_jpeg(const Picture& picture)
{
    const Decompressor decompressor(tjInitDecompress());
    const auto size = static_cast<unsigned long>(picture.bytes.size());
    int width = 0, height = 0, sampling = 0, colors = 0;
    if (tjDecompressHeader3(decompressor.get(), unsigned_bytes(picture.bytes), size, &width, &height,
                            &sampling, &colors) != 0 ||
        width != picture.width || height != picture.height)
        fail();
    const bool inks = colors == TJCS_CMYK || colors == TJCS_YCCK;
    Pixels pixels = empty_pixels(picture);
    if (tjDecompress2(decompressor.get(), unsigned_bytes(picture.bytes), size,
                      reinterpret_cast<unsigned char*>(pixels.rgba.data()), width, 0, height,
                      inks ? TJPF_CMYK : TJPF_RGBA, TJFLAG_STOPONWARNING) != 0)
        fail();
    if (inks) show_inks(pixels.rgba);
    return pixels;
}

// --- GIF: the first picture of the file ---

struct CloseGif
{
    void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};
using Gif = std::unique_ptr<GifFileType, CloseGif>;

int read_gif(GifFileType* gif, GifByteType* bytes, int wanted)
{
    auto& rest = *static_cast<std::string_view*>(gif->UserData);
    const std::size_t count = std::min(rest.size(), static_cast<std::size_t>(wanted));
    std::memcpy(bytes, rest.data(), count);
    rest.remove_prefix(count);
    return static_cast<int>(count);
}

// An extension block; keeps the number of the colour that is not drawn if it tells one.
void read_extension(GifFileType* gif, int& transparent)
{
    int kind = 0;
    GifByteType* block = nullptr;
    if (DGifGetExtension(gif, &kind, &block) == GIF_ERROR) fail();
    GraphicsControlBlock control;
    if (kind == GRAPHICS_EXT_FUNC_CODE && block &&
        DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK)
        transparent = control.TransparentColor;
    while (block)
        if (DGifGetExtensionNext(gif, &block) == GIF_ERROR) fail();
}

// Leaves the file before the rows of its first picture. Returns the number of the colour that is not drawn.
int find_first_picture(GifFileType* gif)
{
    int transparent = NO_TRANSPARENT_COLOR;
    for (GifRecordType record = UNDEFINED_RECORD_TYPE; record != IMAGE_DESC_RECORD_TYPE;) {
        if (DGifGetRecordType(gif, &record) == GIF_ERROR || record == TERMINATE_RECORD_TYPE) fail();
        if (record == EXTENSION_RECORD_TYPE) read_extension(gif, transparent);
    }
    if (DGifGetImageDesc(gif) == GIF_ERROR) fail();
    return transparent;
}

// The rows in the order of the file: interlaced ones come in four passes.
std::vector<int> row_order(const GifImageDesc& image)
{
    static constexpr int passes[][2] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
    std::vector<int> rows;
    if (!image.Interlace)
        for (int row = 0; row < image.Height; ++row) rows.push_back(row);
    else
        for (const auto& [first, step] : passes)
            for (int row = first; row < image.Height; row += step) rows.push_back(row);
    return rows;
}

Pixels decoded_gif(const Picture& picture)
{
    std::string_view rest = picture.bytes;
    const Gif gif(DGifOpen(&rest, read_gif, nullptr));
    if (!gif) fail();
    const int transparent = find_first_picture(gif.get());
    const GifImageDesc& image = gif->Image;
    const ColorMapObject* const colors = image.ColorMap ? image.ColorMap : gif->SColorMap;
    if (!colors || image.Left + image.Width > picture.width || image.Top + image.Height > picture.height)
        fail();
    Pixels pixels = empty_pixels(picture);
    std::vector<GifPixelType> line(static_cast<std::size_t>(image.Width));
    for (const int row : row_order(image)) {
        if (DGifGetLine(gif.get(), line.data(), image.Width) == GIF_ERROR) fail();
        std::size_t at = 4 * (static_cast<std::size_t>(image.Top + row) * picture.width + image.Left);
        for (const GifPixelType number : line) {
            const GifColorType color = number < colors->ColorCount ? colors->Colors[number] : GifColorType{};
            const std::uint8_t opacity = number == transparent ? 0 : 0xFF;
            for (const std::uint8_t part : {color.Red, color.Green, color.Blue, opacity})
                pixels.rgba[at++] = static_cast<char>(part);
        }
    }
    return pixels;
}

} // namespace

Pixels decoded(const Picture& picture)
{
    switch (picture.format) {
    case PictureFormat::png:
        return decoded_png(picture);
    case PictureFormat::jpeg:
        return decoded_jpeg(picture);
    case PictureFormat::gif:
        return decoded_gif(picture);
    default:
        return decoded_bmp(picture);
    }
}

} // namespace tolvex::pages
