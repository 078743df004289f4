#include "platform/windows/forms/native_control.hpp"

namespace tolvex {

namespace {

constexpr DWORD label_style = SS_NOPREFIX | SS_LEFTNOWORDWRAP | SS_CENTERIMAGE | SS_ENDELLIPSIS;

// What CreateWindowEx needs to know of a kind.
struct WindowKind
{
    const wchar_t* name;
    DWORD style = 0, extended = 0;
};

DWORD text_style(const Control& control)
{
    const DWORD lines =
        control.lines > 1 ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL : ES_AUTOHSCROLL;
    return WS_TABSTOP | lines | (control.read_only ? ES_READONLY : 0) | (control.secret ? ES_PASSWORD : 0);
}

WindowKind window_kind(const Control& control)
{
    switch (control.kind) {
    case ControlKind::label:
        return {WC_STATICW, control.lines > 1 ? DWORD{SS_NOPREFIX} : label_style};
    case ControlKind::text:
        return {WC_EDITW, text_style(control), WS_EX_CLIENTEDGE};
    case ControlKind::combo:
        return {WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST};
    case ControlKind::check:
        return {WC_BUTTONW, WS_TABSTOP | BS_AUTOCHECKBOX};
    case ControlKind::button:
        return {WC_BUTTONW, WS_TABSTOP | BS_PUSHBUTTON};
    case ControlKind::list:
        return {WC_LISTVIEWW, WS_TABSTOP | ListView::style, WS_EX_CLIENTEDGE};
    }
    return {WC_STATICW};
}

HWND create_child(HWND form, const WindowKind& kind, const Text& caption, int id)
{
    const auto menu = reinterpret_cast<HMENU>(static_cast<INT_PTR>(id));
    const HWND made = CreateWindowExW(kind.extended, kind.name, wide(caption), WS_CHILD | kind.style, 0, 0, 0,
                                      0, form, menu, this_module(), nullptr);
    if (!made)
        throw Error(numbers::internal, u"La ventana no se pudo crear: " + system_message(GetLastError()));
    return made;
}

bool has_own_caption(const Control& control)
{
    return control.kind == ControlKind::label || control.kind == ControlKind::check ||
           control.kind == ControlKind::button;
}

// Only buttons mark an access key; "&" is itself everywhere else.
Text shown_caption(const Control& control)
{
    if (!has_own_caption(control)) return {};
    return control.kind == ControlKind::check ? replace_all(control.caption, u"&", u"&&")
                                              : Text(control.caption);
}

// The closed part of a combo box becomes as high as a text box; its window includes the list that drops down.
void place_combo(HWND combo, const RECT& place)
{
    constexpr int dropped_items = 12;
    RECT dropped = place, closed;
    dropped.bottom += dropped_items * static_cast<LONG>(SendMessageW(combo, CB_GETITEMHEIGHT, 0, 0));
    move_window(combo, dropped);
    GetWindowRect(combo, &closed);
    const LRESULT item = SendMessageW(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
    const LRESULT wanted = item + (place.bottom - place.top) - (closed.bottom - closed.top);
    if (wanted > 0 && wanted != item) SendMessageW(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), wanted);
}

// What stands on no page is always in front.
int showing(TextView page, TextView chosen_page)
{
    return page.empty() || page == chosen_page ? SW_SHOWNA : SW_HIDE;
}

} // namespace

NativeControl create_control(HWND form, const PlacedControl& placed, int id)
{
    const Control& control = *placed.control;
    NativeControl made{&control, nullptr};
    made.page = placed.page;
    made.visible = control.visible;
    if (!placed.label.empty())
        made.label = create_child(form, {WC_STATICW, label_style}, Text(control.caption), 0);
    made.window = create_child(form, window_kind(control), shown_caption(control), id);
    if (control.kind == ControlKind::list) made.list = std::make_unique<ListView>(made.window);
    EnableWindow(made.window, control.enabled);
    return made;
}

void show_control(const NativeControl& control, TextView chosen_page)
{
    const int show = control.visible ? showing(control.page, chosen_page) : SW_HIDE;
    ShowWindow(control.window, show);
    ShowWindow(control.label, show);
}

void show_frame(const NativeFrame& frame, TextView chosen_page)
{
    ShowWindow(frame.window, showing(frame.page, chosen_page));
}

HWND create_frame(HWND form, TextView caption)
{
    const WindowKind kind{WC_BUTTONW, WS_VISIBLE | BS_GROUPBOX, WS_EX_TRANSPARENT};
    // The blank: what measures the caption may give its last letter too little room.
    return create_child(form, kind, replace_all(caption, u"&", u"&&") + u" ", 0);
}

void place_control(const NativeControl& control, const PlacedControl& placed, const FormFont& font)
{
    if (control.label) move_window(control.label, font.pixels(placed.label));
    const RECT place = font.pixels(placed.box);
    if (control.control->kind == ControlKind::combo)
        place_combo(control.window, place);
    else
        move_window(control.window, place);
}

void move_window(HWND window, const RECT& place)
{
    MoveWindow(window, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
}

void set_font(const NativeControl& control, const FormFont& font)
{
    if (control.label) set_font(control.label, font);
    set_font(control.window, font);
    if (control.list) control.list->widen_columns(font);
}

void set_font(HWND window, const FormFont& font)
{
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
}

} // namespace tolvex
