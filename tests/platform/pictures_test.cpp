#include "platform/pages/picture.hpp"

#include "support/sample_page.hpp"
#include "support/tables.hpp"

namespace tolvex::testing {
namespace {

using namespace pages;

std::string color(const Pixels& pixels, int x, int y)
{
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const char part : pixels.rgba.substr(4 * (static_cast<std::size_t>(y) * pixels.width + x), 4))
        text.append({digits[static_cast<unsigned char>(part) >> 4], digits[part & 15]});
    return text;
}

// Of each quarter.
std::string colors(const Picture& picture)
{
    const Pixels decoded = pixels(picture);
    const int left = picture.width / 4, right = left * 3, top = picture.height / 4, bottom = top * 3;
    return color(decoded, left, top) + ' ' + color(decoded, right, top) + ' ' + color(decoded, left, bottom) +
           ' ' + color(decoded, right, bottom);
}

TEST(Pictures, every_format_shows_the_same_picture)
{
    const std::string nothing = "d02020ff 20a040ff 2040d0ff 00000000",
                      white = "d02020ff 20a040ff 2040d0ff ffffffff";
    EXPECT_EQ(colors(*sample_picture("logo.png")), nothing);
    EXPECT_EQ(colors(*sample_picture("logo.gif")), nothing);
    EXPECT_EQ(colors(open_picture(sample_bmp())), white);
    EXPECT_EQ(colors(*sample_picture("logo.jpg")),
              "d02020ff 20a144ff 2040cfff ffffffff"); // it loses a little
    const auto jpeg = sample_picture("logo.jpg");
    EXPECT_EQ(jpeg->width, 16);
    EXPECT_EQ(jpeg->height, 12);
    EXPECT_NEAR(jpeg->dpi_x, 150, 0.1);
    EXPECT_EQ(sample_picture("logo.png")->dpi_y, 96); // it does not say
}

// A BMP file of four by two pixels: black, red, green, blue below, the reverse above.
std::string bitmap(int bits, int compression, int height, const std::string& between, const std::string& body)
{
    const auto number = [](int value) {
        std::string bytes;
        for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i));
        return bytes;
    };
    const std::string header = number(40) + number(4) + number(height) + std::string("\1\0", 2) +
                               number(bits).substr(0, 2) + number(compression) + std::string(20, '\0');
    return "BM" + number(0) + number(0) + number(static_cast<int>(14 + header.size() + between.size())) +
           header + between + body;
}

TEST(Pictures, bitmaps_of_every_depth)
{
    using namespace std::string_literals;
    const std::string palette = "\0\0\0\0\0\0\xFF\0\0\xFF\0\0\xFF\0\0\0"s;
    const std::string masks = "\0\x7C\0\0\xE0\3\0\0\x1F\0\0\0"s;
    const std::string files[] = {
        bitmap(8, 0, 2, palette, "\0\1\2\3\3\2\1\0"s),
        bitmap(8, 0, -2, palette, "\3\2\1\0\0\1\2\3"s),
        bitmap(8, 1, 2, palette, "\0\4\0\1\2\3\0\0\1\3\1\2\1\1\1\0\0\1"s),
        bitmap(4, 0, 2, palette, "\x01\x23\0\0\x32\x10\0\0"s),
        bitmap(4, 2, 2, palette, "\0\4\x01\x23\0\0\2\x32\2\x10\0\1"s),
        bitmap(16, 0, 2, "", "\0\0\0\x7C\xE0\3\x1F\0\x1F\0\xE0\3\0\x7C\0\0"s),
        bitmap(16, 3, 2, masks, "\0\0\0\x7C\xE0\3\x1F\0\x1F\0\xE0\3\0\x7C\0\0"s),
        bitmap(32, 0, 2, "",
               "\0\0\0\0\0\0\xFF\0\0\xFF\0\0\xFF\0\0\0\xFF\0\0\0\0\xFF\0\0\0\0\xFF\0\0\0\0\0"s)};
    for (const std::string& file : files) {
        const Pixels decoded = pixels(open_picture(file));
        std::string row;
        for (int x = 0; x < 4; ++x) row += color(decoded, x, 1) + ' ';
        EXPECT_EQ(row + color(decoded, 0, 0), "000000ff ff0000ff 00ff00ff 0000ffff 0000ffff")
            << &file - files;
    }
}

TEST(Pictures, what_is_no_picture_or_a_damaged_one_is_error_5)
{
    const auto look = [](const std::string& bytes) {
        return error_number([&] { pixels(open_picture(bytes)); });
    };
    for (const std::string& whole : {sample_picture("logo.png")->bytes, sample_picture("logo.jpg")->bytes,
                                     sample_picture("logo.gif")->bytes, sample_bmp()}) {
        ASSERT_EQ(look(whole), 0);
        for (std::size_t size = 0; size + 20 < whole.size(); size += 3)
            EXPECT_EQ(look(whole.substr(0, size)), 5);
    }
    std::string giant = sample_picture("logo.png")->bytes, empty = giant;
    giant.replace(16, 8, std::string("\0\1\0\0\0\1\0\0", 8));
    empty.replace(16, 4, std::string(4, '\0'));
    expect_all<std::string, int>(look, {{"", 5}, {"%PDF-1.4", 5}, {giant, 5}, {empty, 5}});
}

} // namespace
} // namespace tolvex::testing
