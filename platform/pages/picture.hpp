// A picture as a file or a database column holds it.
#pragma once

#include <cstdint>
#include <string>

namespace tolvex::pages {

enum class PictureFormat
{
    png,
    jpeg,
    bmp,
    gif
};

// Its own bytes are kept beside its size, because a PDF file takes some formats as they are.
struct Picture
{
    PictureFormat format = PictureFormat::png;
    std::string bytes;
    int width = 0, height = 0;     // pixels
    double dpi_x = 96, dpi_y = 96; // 96 where the file does not say
};

// Looks at the first bytes and the header only. Throws Error 5 for what is no PNG, JPEG, BMP or GIF picture.
Picture open_picture(std::string bytes);

// Rows from the top, four bytes a pixel: red, green, blue, opacity.
struct Pixels
{
    int width = 0, height = 0;
    std::string rgba;
};

// Throws Error 5 when the picture is damaged or larger than 100 million pixels.
Pixels pixels(const Picture& picture);

} // namespace tolvex::pages
