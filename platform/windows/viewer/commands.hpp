// What a reader can do in the viewer, by a key, a button or both.
#pragma once

#include "platform/windows/windows.hpp"

#include <optional>

namespace tolvex {

// The values are the numbers of the buttons.
enum class ViewerCommand : WORD
{
    print = 100,
    save,
    previous_page,
    next_page,
    zoom_out,
    zoom_in,
    real_size,
    fit_width,
    whole_page,
    find_previous,
    find_next,
    // by keys alone
    find,
    choose_page,
    go_to_chosen_page,
    leave_box,
    line_up,
    line_down,
    left,
    right,
    screen_up,
    screen_down,
    page_start,
    page_end,
    document_start,
    document_end,
    close
};

// Where the keys go.
enum class ViewerFocus
{
    pages,
    page_box,
    search_box
};

// The command of a key with the Ctrl and Shift that are held now, or of a character.
std::optional<ViewerCommand> command_of_key(WPARAM key, ViewerFocus focus);
std::optional<ViewerCommand> command_of_character(WPARAM character, ViewerFocus focus);

} // namespace tolvex
