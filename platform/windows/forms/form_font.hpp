// The system's message font at the dots per inch of a window, and what layout units measure in it.
#pragma once

#include "platform/form_layout.hpp"
#include "platform/windows/windows.hpp"

namespace tolvex {

// Dots per inch at which the system lets a window draw; the host decides about the awareness of the process.
int dots_per_inch(HWND window);

class FormFont
{
public:
    explicit FormFont(int dots_per_inch);
    ~FormFont() { DeleteObject(font_); }
    FormFont(const FormFont&) = delete;

    HFONT get() const { return font_; }
    int pixels_across(int units) const { return MulDiv(units, character_, 4); }
    int pixels_down(int units) const { return MulDiv(units, line_, 8); }
    RECT pixels(const Box& box) const;
    // The largest size in units that those pixels hold.
    Size units(SIZE pixels) const;

private:
    HFONT font_;
    int character_ = 0, line_ = 0; // average width and height
};

} // namespace tolvex
