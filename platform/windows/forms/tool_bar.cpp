#include "platform/windows/forms/tool_bar.hpp"

#include "platform/windows/forms/icon_image.hpp"
#include "platform/windows/forms/native_control.hpp"

namespace tolvex {

namespace {

constexpr DWORD style = WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS |
                        CCS_NORESIZE | CCS_NOPARENTALIGN | CCS_NODIVIDER;

HIMAGELIST draw_images(const std::vector<Tool>& tools, int pixels)
{
    const HIMAGELIST images =
        ImageList_Create(pixels, pixels, ILC_COLOR32, static_cast<int>(tools.size()), 0);
    for (const Tool& tool : tools) {
        const HBITMAP picture = draw_icon(tool.icon, pixels);
        ImageList_Add(images, picture, nullptr);
        DeleteObject(picture);
    }
    return images;
}

} // namespace

ToolBar::ToolBar(HWND form, const std::vector<Tool>& tools, int first_command)
    : tools_(tools), window_(CreateWindowExW(0, TOOLBARCLASSNAMEW, nullptr, style, 0, 0, 0, 0, form, nullptr,
                                             this_module(), nullptr))
{
    SendMessageW(window_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    for (std::size_t i = 0; i < tools_.size(); ++i) {
        const Text caption(tools_[i].caption);
        TBBUTTON button{};
        button.iBitmap = static_cast<int>(i);
        button.idCommand = first_command + static_cast<int>(i);
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE | BTNS_SHOWTEXT;
        button.iString = reinterpret_cast<INT_PTR>(wide(caption));
        SendMessageW(window_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
    }
}

ToolBar::~ToolBar()
{
    if (images_) ImageList_Destroy(images_);
}

void ToolBar::place(const RECT& place) { move_window(window_, place); }

void ToolBar::set_font(const FormFont& font, const Box& box)
{
    const int height = font.pixels_down(box.height), picture = height * 2 / 3;
    const HIMAGELIST drawn = draw_images(tools_, picture);
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    SendMessageW(window_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(drawn));
    SendMessageW(window_, TB_SETPADDING, 0, MAKELPARAM(height - picture, height - picture));
    SendMessageW(window_, TB_AUTOSIZE, 0, 0);
    if (images_) ImageList_Destroy(images_);
    images_ = drawn;
}

} // namespace tolvex
