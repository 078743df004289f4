#include "platform/pages/picture.hpp"
#include "platform/pages/byte_order.hpp"
#include "platform/pages/picture_decoder.hpp"

#include "core/errors.hpp"

#include <cstdlib>
#include <optional>

namespace tolvex::pages {

namespace {

constexpr double centimetres_per_inch = 2.54;

// What the header of a file says. A resolution of zero is none.
struct Header
{
    PictureFormat format;
    std::int64_t width = 0, height = 0;
    double dpi_x = 0, dpi_y = 0;
};

bool holds(std::string_view bytes, std::size_t at, std::string_view what)
{
    return at < bytes.size() && bytes.substr(at).starts_with(what);
}

double per_inch(std::uint32_t per_metre) { return per_metre * centimetres_per_inch / 100; }

std::optional<Header> png_header(std::string_view bytes)
{
    if (!bytes.starts_with("\x89PNG\r\n\x1A\n") || !holds(bytes, 12, "IHDR")) return {};
    Header header{PictureFormat::png, u32(bytes, 16), u32(bytes, 20)};
    for (std::size_t chunk = 8; chunk + 8 <= bytes.size(); chunk += std::size_t{12} + u32(bytes, chunk)) {
        if (holds(bytes, chunk + 4, "IDAT")) break;
        if (!holds(bytes, chunk + 4, "pHYs") || u8(bytes, chunk + 16) != 1) continue;
        header.dpi_x = per_inch(u32(bytes, chunk + 8));
        header.dpi_y = per_inch(u32(bytes, chunk + 12));
    }
    return header;
}

void read_density(Header& header, std::string_view bytes, std::size_t segment)
{
    if (!holds(bytes, segment + 4, "JFIF")) return;
    const int unit = u8(bytes, segment + 11);
    const double dots_per_inch = unit == 1 ? 1 : unit == 2 ? centimetres_per_inch : 0;
    header.dpi_x = u16(bytes, segment + 12) * dots_per_inch;
    header.dpi_y = u16(bytes, segment + 14) * dots_per_inch;
}

// Baseline, extended or progressive, eight bits a sample: what readers of PDF files decode too. A file that
// was cut off has no end marker after its frame.
std::optional<Header> jpeg_header(std::string_view bytes)
{
    if (!bytes.starts_with("\xFF\xD8\xFF")) return {};
    Header header{PictureFormat::jpeg};
    for (std::size_t segment = 2; u8(bytes, segment) == 0xFF;
         segment += std::size_t{2} + u16(bytes, segment + 2)) {
        const unsigned marker = u8(bytes, segment + 1);
        if (marker == 0xE0) read_density(header, bytes, segment);
        if (marker < 0xC0 || marker > 0xC2) continue;
        const auto end = bytes.rfind("\xFF\xD9");
        const int samples = u8(bytes, segment + 9);
        if (u8(bytes, segment + 4) != 8 || (samples != 1 && samples != 3 && samples != 4)) return {};
        if (end == std::string_view::npos || end < segment) return {};
        header.height = u16(bytes, segment + 5);
        header.width = u16(bytes, segment + 7);
        return header;
    }
    return {};
}

std::optional<Header> bmp_header(std::string_view bytes)
{
    constexpr unsigned oldest = 12, usual = 40;
    if (!bytes.starts_with("BM")) return {};
    const std::uint32_t size = little_endian(bytes, 14, 4);
    if (size == oldest)
        return Header{PictureFormat::bmp, little_endian(bytes, 18, 2), little_endian(bytes, 20, 2)};
    if (size < usual) return {};
    const auto height =
        static_cast<std::int32_t>(little_endian(bytes, 22, 4)); // below zero: rows from the top
    return Header{PictureFormat::bmp, static_cast<std::int32_t>(little_endian(bytes, 18, 4)),
                  std::abs(std::int64_t{height}), per_inch(little_endian(bytes, 38, 4)),
                  per_inch(little_endian(bytes, 42, 4))};
}

std::optional<Header> gif_header(std::string_view bytes)
{
    if (!bytes.starts_with("GIF87a") && !bytes.starts_with("GIF89a")) return {};
    return Header{PictureFormat::gif, little_endian(bytes, 6, 2), little_endian(bytes, 8, 2)};
}

std::optional<Header> read_header(std::string_view bytes)
{
    for (const auto read : {png_header, jpeg_header, bmp_header, gif_header})
        if (const auto header = read(bytes)) return header;
    return {};
}

bool is_resolution(double dpi) { return dpi >= 1 && dpi <= 100'000; }

} // namespace

Picture open_picture(std::string bytes)
{
    constexpr std::int64_t longest_side = 0x7FFF'FFFF;
    const std::optional<Header> header = read_header(bytes);
    if (!header || header->width < 1 || header->height < 1 || header->width > longest_side ||
        header->height > longest_side)
        throw invalid_call(u"no es una imagen PNG, JPEG, BMP ni GIF, o está dañada");
    Picture picture{header->format, std::move(bytes), static_cast<int>(header->width),
                    static_cast<int>(header->height)};
    if (is_resolution(header->dpi_x)) picture.dpi_x = header->dpi_x;
    if (is_resolution(header->dpi_y)) picture.dpi_y = header->dpi_y;
    return picture;
}

Pixels pixels(const Picture& picture)
{
    constexpr std::int64_t most_pixels = 100'000'000;
    if (std::int64_t{picture.width} * picture.height > most_pixels)
        throw invalid_call(u"la imagen tiene más de 100 millones de puntos");
    return decoded(picture);
}

} // namespace tolvex::pages
