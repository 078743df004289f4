#include "platform/windows/viewer/commands.hpp"

namespace tolvex {

namespace {

enum Held : unsigned
{
    nothing = 0,
    control = 1,
    shift = 2
};

struct Shortcut
{
    WPARAM key;
    unsigned held;
    ViewerCommand command;
};

using enum ViewerCommand;

constexpr Shortcut everywhere[] = {{'P', control, print},
                                   {'S', control, save},
                                   {'F', control, find},
                                   {'G', control, choose_page},
                                   {VK_F3, nothing, find_next},
                                   {VK_F3, shift, find_previous},
                                   {VK_OEM_PLUS, control, zoom_in},
                                   {VK_OEM_PLUS, control | shift, zoom_in},
                                   {VK_OEM_MINUS, control, zoom_out},
                                   {'0', control, whole_page},
                                   {VK_NUMPAD0, control, whole_page},
                                   {'1', control, real_size},
                                   {VK_NUMPAD1, control, real_size},
                                   {'2', control, fit_width},
                                   {VK_NUMPAD2, control, fit_width},
                                   {VK_PRIOR, control, previous_page},
                                   {VK_NEXT, control, next_page},
                                   {VK_PRIOR, nothing, screen_up},
                                   {VK_NEXT, nothing, screen_down}};

constexpr Shortcut on_pages[] = {
    {VK_UP, nothing, line_up},       {VK_DOWN, nothing, line_down},    {VK_LEFT, nothing, left},
    {VK_RIGHT, nothing, right},      {VK_SPACE, nothing, screen_down}, {VK_SPACE, shift, screen_up},
    {VK_HOME, nothing, page_start},  {VK_END, nothing, page_end},      {VK_HOME, control, document_start},
    {VK_END, control, document_end}, {VK_ESCAPE, nothing, close}};

constexpr Shortcut in_page_box[] = {{VK_RETURN, nothing, go_to_chosen_page}, {VK_ESCAPE, nothing, leave_box}};

constexpr Shortcut in_search_box[] = {
    {VK_RETURN, nothing, find_next}, {VK_RETURN, shift, find_previous}, {VK_ESCAPE, nothing, leave_box}};

// Layouts have + and - in different places, and not all of them under their own numbers.
WPARAM by_its_sign(WPARAM key)
{
    switch (MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_CHAR)) {
    case '+':
        return VK_OEM_PLUS;
    case '-':
        return VK_OEM_MINUS;
    default:
        return key;
    }
}

bool is_down(int key) { return GetKeyState(key) < 0; }

template <std::size_t count>
std::optional<ViewerCommand> look_up(const Shortcut (&shortcuts)[count], WPARAM key)
{
    const unsigned held = (is_down(VK_CONTROL) ? control : nothing) | (is_down(VK_SHIFT) ? shift : nothing);
    for (const Shortcut& shortcut : shortcuts)
        if (shortcut.key == key && shortcut.held == held) return shortcut.command;
    return {};
}

std::optional<ViewerCommand> look_up_there(ViewerFocus focus, WPARAM key)
{
    switch (focus) {
    case ViewerFocus::page_box:
        return look_up(in_page_box, key);
    case ViewerFocus::search_box:
        return look_up(in_search_box, key);
    default:
        return look_up(on_pages, key);
    }
}

} // namespace

std::optional<ViewerCommand> command_of_key(WPARAM key, ViewerFocus focus)
{
    if (is_down(VK_MENU)) return {};
    const auto command = look_up(everywhere, by_its_sign(key));
    return command ? command : look_up_there(focus, key);
}

std::optional<ViewerCommand> command_of_character(WPARAM character, ViewerFocus focus)
{
    if (focus != ViewerFocus::pages) return {};
    if (character == '+') return zoom_in;
    if (character == '-') return zoom_out;
    return {};
}

} // namespace tolvex
