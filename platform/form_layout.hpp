// Where everything in a form stands. Units scale with the form's font: a quarter of an average character
// across, an eighth of a line down.
#pragma once

#include "platform/forms.hpp"

namespace tolvex {

struct Size
{
    int width = 0, height = 0;
};

struct Box
{
    int x = 0, y = 0, width = 0, height = 0;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    bool empty() const { return width == 0 || height == 0; }
};

struct PlacedControl
{
    const Control* control;
    Box box;
    Box label; // of its caption before it; empty when it has none
    TextView page = {};
};

struct PlacedFrame
{
    TextView caption;
    Box box;
    TextView page = {};
};

// Controls are in tab order; they point into the description.
struct FormLayout
{
    Size size;
    Box tool_bar; // empty without tools
    Box tabs;     // empty without pages
    std::vector<TextView> pages;
    std::vector<PlacedFrame> frames;
    std::vector<PlacedControl> controls;
};

// The form at that size, or at its smallest where that is larger. Lists and fields without a width of their
// own take what is left; the buttons stay at the bottom right.
FormLayout lay_out(const FormDescription& form, Size wanted = {});

} // namespace tolvex
