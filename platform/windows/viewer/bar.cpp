#include "platform/windows/viewer/bar.hpp"

#include "core/numbers.hpp"
#include "platform/windows/viewer/icons.hpp"

#include <cmath>

namespace tolvex {

namespace {

constexpr DWORD buttons_style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_FLAT | TBSTYLE_LIST |
                                TBSTYLE_TOOLTIPS | CCS_NORESIZE | CCS_NOPARENTALIGN | CCS_NODIVIDER;

Text window_text(HWND window)
{
    Text text(static_cast<std::size_t>(GetWindowTextLengthW(window)), u'\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextW(window, wide(text), static_cast<int>(text.size()) + 1)));
    return text;
}

void show(HWND control, const Text& text)
{
    if (window_text(control) != text) SetWindowTextW(control, wide(text));
}

} // namespace

ViewerBar::ViewerBar(HWND viewer)
    : viewer_(viewer), buttons_(CreateWindowExW(0, TOOLBARCLASSNAMEW, nullptr, buttons_style, 0, 0, 0, 0,
                                                viewer, nullptr, this_module(), nullptr))
{
    SendMessageW(buttons_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(buttons_, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS); // their texts are tips
    add_button(ViewerCommand::print, L"Imprimir (Ctrl+P)");
    add_button(ViewerCommand::save, L"Guardar como PDF (Ctrl+S)");
    add_gap();
    add_button(ViewerCommand::previous_page, L"Página anterior (Ctrl+Re Pág)");
    page_box_ = add_box(page_box_number, 5, ES_NUMBER | ES_CENTER);
    page_count_ = add_label(9, SS_LEFT);
    add_button(ViewerCommand::next_page, L"Página siguiente (Ctrl+Av Pág)");
    add_gap();
    add_button(ViewerCommand::zoom_out, L"Alejar (Ctrl+-)");
    zoom_ = add_label(7, SS_CENTER);
    add_button(ViewerCommand::zoom_in, L"Acercar (Ctrl++)");
    add_button(ViewerCommand::real_size, L"Tamaño real (Ctrl+1)");
    add_button(ViewerCommand::fit_width, L"Ajustar al ancho (Ctrl+2)");
    add_button(ViewerCommand::whole_page, L"Página completa (Ctrl+0)");
    add_gap();
    search_box_ = add_box(search_box_number, 22, ES_AUTOHSCROLL);
    SendMessageW(search_box_, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"Buscar (Ctrl+F)"));
    add_button(ViewerCommand::find_previous, L"Buscar el anterior (Mayús+F3)");
    add_button(ViewerCommand::find_next, L"Buscar el siguiente (F3)");
    found_ = add_label(15, SS_LEFT);
    SetWindowPos(buttons_, HWND_BOTTOM, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE); // below the boxes
}

ViewerBar::~ViewerBar()
{
    if (images_) ImageList_Destroy(images_);
}

void ViewerBar::add_button(ViewerCommand command, const wchar_t* tip)
{
    TBBUTTON button{};
    button.iBitmap = static_cast<int>(pictures_.size());
    button.idCommand = static_cast<int>(command);
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_BUTTON;
    button.iString = reinterpret_cast<INT_PTR>(tip);
    pictures_.push_back(command);
    add(button);
}

void ViewerBar::add_gap()
{
    TBBUTTON gap{};
    gap.fsStyle = BTNS_SEP;
    add(gap);
}

HWND ViewerBar::add_box(int number, int characters, DWORD style)
{
    const HWND box = CreateWindowExW(
        WS_EX_CLIENTEDGE, L"EDIT", nullptr, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 0, 0, viewer_,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(number)), this_module(), nullptr);
    add_room(box, characters, true);
    return box;
}

HWND ViewerBar::add_label(int characters, DWORD style)
{
    const HWND label =
        CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD | WS_VISIBLE | SS_NOPREFIX | SS_CENTERIMAGE | style,
                        0, 0, 0, 0, viewer_, nullptr, this_module(), nullptr);
    add_room(label, characters, false);
    return label;
}

void ViewerBar::add_room(HWND control, int characters, bool is_box)
{
    rooms_.push_back(
        {control, static_cast<int>(SendMessageW(buttons_, TB_BUTTONCOUNT, 0, 0)), characters, is_box});
    TBBUTTON room{}; // never enabled: what is placed over it takes its clicks
    room.iBitmap = I_IMAGENONE;
    room.fsStyle = BTNS_BUTTON;
    add(room);
}

void ViewerBar::add(TBBUTTON button)
{
    SendMessageW(buttons_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
}

void ViewerBar::set_resolution(int dots_per_inch)
{
    dots_per_inch_ = dots_per_inch;
    font_ = std::make_unique<FormFont>(dots_per_inch);
    const int side = MulDiv(20, dots_per_inch, 96), padding = MulDiv(8, dots_per_inch, 96);
    const HIMAGELIST drawn = ImageList_Create(side, side, ILC_COLOR32, static_cast<int>(pictures_.size()), 0);
    for (const ViewerCommand command : pictures_) {
        const GdiObject<HBITMAP> picture(shapes::drawn(picture_of(command), side));
        ImageList_Add(drawn, picture.get(), nullptr);
    }
    SendMessageW(buttons_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(drawn));
    SendMessageW(buttons_, TB_SETBITMAPSIZE, 0, MAKELPARAM(side, side));
    SendMessageW(buttons_, TB_SETPADDING, 0, MAKELPARAM(padding, padding));
    SendMessageW(buttons_, TB_SETBUTTONSIZE, 0, MAKELPARAM(side + padding, side + padding));
    if (images_) ImageList_Destroy(images_);
    images_ = drawn;
    for (const Room& room : rooms_)
        SendMessageW(room.control, WM_SETFONT, reinterpret_cast<WPARAM>(font_->get()), TRUE);
    set_widths();
}

void ViewerBar::set_widths()
{
    const int character = font_->pixels_across(4);
    for (const Room& room : rooms_) {
        TBBUTTONINFOW wanted{};
        wanted.cbSize = sizeof wanted;
        wanted.dwMask = TBIF_BYINDEX | TBIF_SIZE;
        wanted.cx = static_cast<WORD>(room.characters * character);
        SendMessageW(buttons_, TB_SETBUTTONINFOW, static_cast<WPARAM>(room.number),
                     reinterpret_cast<LPARAM>(&wanted));
    }
    const LRESULT size = SendMessageW(buttons_, TB_GETBUTTONSIZE, 0, 0),
                  count = SendMessageW(buttons_, TB_BUTTONCOUNT, 0, 0);
    edge_ = MulDiv(3, dots_per_inch_, 96);
    height_ = HIWORD(size) + 2 * edge_;
    RECT last{};
    SendMessageW(buttons_, TB_GETITEMRECT, static_cast<WPARAM>(count - 1), reinterpret_cast<LPARAM>(&last));
    least_width_ = last.right + 2 * edge_;
}

void ViewerBar::place(int width)
{
    const int box_height = font_->pixels_down(8) + 2 * edge_;
    MoveWindow(buttons_, edge_, edge_, width - edge_, height_ - edge_, TRUE);
    for (const Room& room : rooms_) {
        RECT place{};
        SendMessageW(buttons_, TB_GETITEMRECT, static_cast<WPARAM>(room.number),
                     reinterpret_cast<LPARAM>(&place));
        OffsetRect(&place, edge_, edge_);
        const int height = room.is_box ? box_height : place.bottom - place.top;
        const int top = (place.top + place.bottom - height) / 2, indent = room.is_box ? edge_ : 0;
        MoveWindow(room.control, place.left + indent, top, place.right - place.left - 2 * indent, height,
                   TRUE);
    }
}

Text ViewerBar::chosen_page() const { return window_text(page_box_); }

Text ViewerBar::wanted_words() const { return window_text(search_box_); }

void ViewerBar::clear_search() { show(search_box_, u""); }

void ViewerBar::show_state_of(const PageView& pages)
{
    const auto number = [](std::size_t value) { return decimal(static_cast<std::int64_t>(value)); };
    if (GetFocus() != page_box_) show(page_box_, number(pages.page() + 1));
    show(page_count_, u" de " + number(pages.page_count()));
    show(zoom_, decimal(std::lround(pages.zoom() * 100)) + u" %");
    const bool searches = GetWindowTextLengthW(search_box_) > 0, finds = pages.found_count() > 0;
    show(found_, finds      ? u" " + number(pages.found() + 1) + u" de " + number(pages.found_count())
                 : searches ? u" No se encontró"
                            : u"");
    enable(ViewerCommand::previous_page, pages.page() > 0);
    enable(ViewerCommand::next_page, pages.page() + 1 < pages.page_count());
    enable(ViewerCommand::find_previous, finds);
    enable(ViewerCommand::find_next, finds);
    check(ViewerCommand::real_size, pages.fit() == Fit::nothing && pages.zoom() == 1);
    check(ViewerCommand::fit_width, pages.fit() == Fit::width);
    check(ViewerCommand::whole_page, pages.fit() == Fit::whole_page);
}

void ViewerBar::enable(ViewerCommand command, bool enabled)
{
    SendMessageW(buttons_, TB_ENABLEBUTTON, static_cast<WPARAM>(command), enabled);
}

void ViewerBar::check(ViewerCommand command, bool checked)
{
    SendMessageW(buttons_, TB_CHECKBUTTON, static_cast<WPARAM>(command), checked);
}

} // namespace tolvex
