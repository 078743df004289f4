#include "platform/windows/pages/resampling.hpp"

#include <gtest/gtest.h>

namespace tolvex::testing {
namespace {

using pages::Pixels;

std::string pixel(int red, int green, int blue, int opacity)
{
    return {static_cast<char>(red), static_cast<char>(green), static_cast<char>(blue),
            static_cast<char>(opacity)};
}

TEST(Resampling, an_even_area_stays_as_it_is)
{
    std::string even;
    for (int i = 0; i < 7 * 5; ++i) even += pixel(200, 100, 50, 255);
    for (const auto& [width, height] : {std::pair(3, 2), {1, 1}, {20, 31}, {7, 9}}) {
        const Pixels made = resampled({7, 5, even}, width, height);
        ASSERT_EQ(made.rgba.size(), std::size_t{4} * width * height);
        for (std::size_t i = 0; i < made.rgba.size(); i += 4)
            ASSERT_EQ(made.rgba.substr(i, 4), pixel(200, 100, 50, 255)) << width << 'x' << height;
    }
}

// A drawing of lines must not lose some of them, as it would if pixels were left out.
TEST(Resampling, smaller_pixels_are_the_mean_of_what_they_cover)
{
    std::string stripes;
    for (int i = 0; i < 64; ++i) stripes += i % 2 == 0 ? pixel(0, 0, 0, 255) : pixel(255, 255, 255, 255);
    const Pixels made = resampled({64, 1, stripes}, 8, 1);
    for (std::size_t i = 4; i + 4 < made.rgba.size(); i += 4)
        EXPECT_NEAR(static_cast<unsigned char>(made.rgba[i]), 127, 4);
}

// The colour of what is not seen must not show at the edge of a picture.
TEST(Resampling, transparent_pixels_give_no_colour)
{
    const Pixels made = resampled({2, 1, pixel(255, 0, 0, 255) + pixel(0, 255, 0, 0)}, 1, 1);
    EXPECT_EQ(made.rgba.substr(0, 3), pixel(255, 0, 0, 0).substr(0, 3));
    EXPECT_NEAR(static_cast<unsigned char>(made.rgba[3]), 127, 1);
}

} // namespace
} // namespace tolvex::testing
