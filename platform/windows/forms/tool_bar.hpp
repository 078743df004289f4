// The tool bar of a form: buttons with a picture and a caption.
#pragma once

#include "platform/windows/forms/form_font.hpp"

#include <commctrl.h>

namespace tolvex {

class ToolBar
{
public:
    // The tools answer with commands of those numbers, in order.
    ToolBar(HWND form, const std::vector<Tool>& tools, int first_command);
    ~ToolBar();
    ToolBar(const ToolBar&) = delete;

    void place(const RECT& place);
    // Draws pictures and captions anew, for that font and place.
    void set_font(const FormFont& font, const Box& box);

private:
    const std::vector<Tool>& tools_;
    HWND window_;
    HIMAGELIST images_ = nullptr;
};

} // namespace tolvex
