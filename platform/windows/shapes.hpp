// Small pictures drawn from shapes, at whatever size is needed.
#pragma once

#include "platform/windows/windows.hpp"

#include <vector>

namespace tolvex::shapes {

struct Point
{
    double x, y;
};

struct Color
{
    int red, green, blue;
};

// On a grid of 16 by 16.
struct Shape
{
    Color color;
    std::vector<Point> corners;
};

// A square bitmap with transparency, soft at its edges; later shapes cover earlier ones. The caller deletes
// it.
HBITMAP drawn(const std::vector<Shape>& shapes, int pixels);

} // namespace tolvex::shapes
