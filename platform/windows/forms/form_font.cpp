#include "platform/windows/forms/form_font.hpp"

namespace tolvex {

namespace {

LOGFONTW message_font(int dots_per_inch)
{
    using ForDpi = BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT);
    static const auto for_dpi = system_function<ForDpi>(L"user32", "SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!for_dpi ||
        !for_dpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dots_per_inch)))
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics.lfMessageFont;
}

} // namespace

int dots_per_inch(HWND window)
{
    using ForWindow = UINT(WINAPI*)(HWND);
    static const auto for_window = system_function<ForWindow>(L"user32", "GetDpiForWindow");
    if (for_window) return static_cast<int>(for_window(window));
    const HDC screen = GetDC(nullptr);
    const int system = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return system;
}

FormFont::FormFont(int dots_per_inch)
{
    constexpr wchar_t letters[] = L"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    constexpr int count = std::size(letters) - 1;
    const LOGFONTW wanted = message_font(dots_per_inch);
    font_ = CreateFontIndirectW(&wanted);

    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, font_);
    SIZE extent{};
    GetTextExtentPoint32W(screen, letters, count, &extent);
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    character_ = std::max(1L, (extent.cx + count / 2) / count);
    line_ = std::max(1L, extent.cy);
}

RECT FormFont::pixels(const Box& box) const
{
    return {pixels_across(box.x), pixels_down(box.y), pixels_across(box.right()), pixels_down(box.bottom())};
}

Size FormFont::units(SIZE pixels) const
{
    return {static_cast<int>(pixels.cx) * 4 / character_, static_cast<int>(pixels.cy) * 8 / line_};
}

} // namespace tolvex
