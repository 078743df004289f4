#include "platform/windows/shapes.hpp"

#include <cstdint>

namespace tolvex::shapes {

namespace {

bool contains(const Shape& shape, Point at)
{
    bool inside = false;
    const std::vector<Point>& corners = shape.corners;
    for (std::size_t i = 0, before = corners.size() - 1; i < corners.size(); before = i++) {
        const Point &a = corners[i], &b = corners[before];
        if ((a.y > at.y) != (b.y > at.y) && at.x < a.x + (b.x - a.x) * (at.y - a.y) / (b.y - a.y))
            inside = !inside;
    }
    return inside;
}

const Shape* topmost(const std::vector<Shape>& shapes, Point at)
{
    const Shape* top = nullptr;
    for (const Shape& shape : shapes)
        if (contains(shape, at)) top = &shape;
    return top;
}

// The mean of 8 by 8 points in a pixel, as alpha, red, green and blue.
std::uint32_t pixel(const std::vector<Shape>& shapes, int x, int y, double grid_per_pixel)
{
    constexpr int side = 8;
    int covered = 0, red = 0, green = 0, blue = 0;
    for (int point = 0; point < side * side; ++point) {
        const Shape* shape = topmost(shapes, {(x + (point % side + 0.5) / side) * grid_per_pixel,
                                              (y + (point / side + 0.5) / side) * grid_per_pixel});
        if (!shape) continue;
        ++covered;
        red += shape->color.red;
        green += shape->color.green;
        blue += shape->color.blue;
    }
    if (covered == 0) return 0;
    const auto channel = [](int value, int shift) { return static_cast<std::uint32_t>(value) << shift; };
    return channel(covered * 255 / (side * side), 24) | channel(red / covered, 16) |
           channel(green / covered, 8) | channel(blue / covered, 0);
}

} // namespace

HBITMAP drawn(const std::vector<Shape>& shapes, int pixels)
{
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = pixels;
    format.bmiHeader.biHeight = -pixels; // from top to bottom
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap) return nullptr;
    auto* next = static_cast<std::uint32_t*>(bits);
    for (int y = 0; y < pixels; ++y)
        for (int x = 0; x < pixels; ++x) *next++ = pixel(shapes, x, y, 16.0 / pixels);
    return bitmap;
}

} // namespace tolvex::shapes
