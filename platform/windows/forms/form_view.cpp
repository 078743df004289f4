// What a form's behaviour does with its window.
#include "platform/windows/forms/form_window.hpp"

#include <algorithm>

namespace tolvex {

namespace {

Text window_text(HWND window)
{
    Text text(static_cast<std::size_t>(GetWindowTextLengthW(window)), u'\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextW(window, wide(text), static_cast<int>(text.size()) + 1)));
    return text;
}

// The chosen item of a combo box; null when none is.
const Item* chosen_item(const NativeControl& combo)
{
    const LRESULT index = SendMessageW(combo.window, CB_GETCURSEL, 0, 0);
    const bool is_one = index >= 0 && static_cast<std::size_t>(index) < combo.items.size();
    return is_one ? &combo.items[static_cast<std::size_t>(index)] : nullptr;
}

// Keeps a control from drawing itself anew for each of many changes.
class Redrawing
{
public:
    explicit Redrawing(HWND window) : window_(window) { SendMessageW(window, WM_SETREDRAW, FALSE, 0); }
    ~Redrawing()
    {
        SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(window_, nullptr, TRUE);
    }
    Redrawing(const Redrawing&) = delete;

private:
    const HWND window_;
};

} // namespace

void FormWindow::set_caption(const Text& caption) { SetWindowTextW(handle_, wide(caption)); }

Text FormWindow::text(TextView control) const
{
    const NativeControl& found = at(control);
    if (found.control->kind != ControlKind::combo) return window_text(found.window);
    const Item* item = chosen_item(found);
    return item ? item->text : Text();
}

void FormWindow::set_text(TextView control, const Text& text)
{
    SetWindowTextW(at(control).window, wide(text));
}

bool FormWindow::checked(TextView check) const
{
    return SendMessageW(at(check).window, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void FormWindow::set_checked(TextView check, bool on)
{
    SendMessageW(at(check).window, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}

void FormWindow::enable(TextView control, bool enabled)
{
    const HWND window = at(control).window;
    if (!enabled && GetFocus() == window) focus_next(false); // a disabled control would keep the keys
    EnableWindow(window, enabled);
}

void FormWindow::set_visible(TextView control, bool visible)
{
    NativeControl& found = at(control);
    if (!visible && GetFocus() == found.window) focus_next(false);
    found.visible = visible;
    show_control(found, chosen_page());
}

void FormWindow::set_background(TextView control, Background background)
{
    NativeControl& found = at(control);
    found.background = background;
    InvalidateRect(found.window, nullptr, TRUE);
}

void FormWindow::fill(TextView combo, const std::vector<Item>& items)
{
    NativeControl& found = at(combo);
    const Redrawing redrawing(found.window);
    found.items = items;
    SendMessageW(found.window, CB_RESETCONTENT, 0, 0);
    for (const Item& item : items)
        SendMessageW(found.window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide(item.text)));
}

Text FormWindow::chosen(TextView combo) const
{
    const Item* item = chosen_item(at(combo));
    return item ? item->value : Text();
}

void FormWindow::choose(TextView combo, TextView value)
{
    const NativeControl& found = at(combo);
    const auto item = std::find_if(found.items.begin(), found.items.end(),
                                   [&](const Item& item) { return item.value == value; });
    const auto index = item == found.items.end() ? -1 : item - found.items.begin();
    SendMessageW(found.window, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void FormWindow::clear_rows(TextView list) { list_at(list).clear_rows(); }

void FormWindow::set_columns(TextView list, const std::vector<ListColumn>& columns)
{
    const Redrawing redrawing(at(list).window);
    list_at(list).set_columns(columns, *font_);
}

void FormWindow::add_row(TextView list, const ListRow& row) { list_at(list).add_row(row); }

void FormWindow::show_last_row(TextView list) { list_at(list).show_last_row(); }

std::optional<ListRow> FormWindow::selected_row(TextView list) const { return list_at(list).selected_row(); }

void FormWindow::set_busy(bool busy)
{
    busy_ = busy;
    SetCursor(LoadCursorW(nullptr, busy ? IDC_WAIT : IDC_ARROW));
    RedrawWindow(handle_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

const NativeControl* FormWindow::control_of(HWND window) const
{
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const NativeControl& c) { return c.window == window; });
    return found == controls_.end() ? nullptr : &*found;
}

const NativeControl& FormWindow::at(TextView name) const
{
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const NativeControl& c) { return c.control->name == name; });
    if (found == controls_.end()) throw invalid_call(u"El control " + Text(name) + u" no existe");
    return *found;
}

NativeControl& FormWindow::at(TextView name)
{
    return const_cast<NativeControl&>(std::as_const(*this).at(name));
}

ListView& FormWindow::list_at(TextView name) const
{
    const NativeControl& found = at(name);
    if (!found.list) throw invalid_call(u"El control " + Text(name) + u" no es una lista");
    return *found.list;
}

} // namespace tolvex
