#include "platform/windows/viewer/page_view.hpp"

#include "platform/windows/component_call.hpp"

#include <windowsx.h>

#include <algorithm>
#include <cmath>

namespace tolvex {

namespace {

constexpr int gap_at_96 = 12, line_at_96 = 48;
constexpr double steps[] = {0.1, 0.25, 0.33, 0.5, 0.67, 0.75, 0.9, 1, 1.1, 1.25,
                            1.5, 1.75, 2,    2.5, 3,    4,    5,   6, 8};
constexpr double least_zoom = steps[0], most_zoom = steps[std::size(steps) - 1];

LONG whole(double number) { return static_cast<LONG>(std::lround(number)); }

// The documented name of the control that shows a report.
constexpr wchar_t class_name[] = L"CRViewer";

void register_class(WNDPROC procedure)
{
    WNDCLASSEXW kind{};
    kind.cbSize = sizeof kind;
    kind.lpfnWndProc = procedure;
    kind.hInstance = this_module();
    kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    kind.lpszClassName = class_name;
    RegisterClassExW(&kind); // fails from the second time on
}

} // namespace

PageView::PageView(HWND viewer, const std::vector<pages::Page>& pages, std::function<void()> changed)
    : pages_(pages), changed_(std::move(changed)), stack_(pages, 1, gap_at_96, 0)
{
    register_class(procedure);
    handle_ = CreateWindowExW(0, class_name, class_name,
                              WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_HSCROLL | WS_VSCROLL, 0, 0, 0, 0,
                              viewer, nullptr, this_module(), this);
    if (!handle_)
        throw Error(numbers::internal, u"La ventana no se pudo crear: " + system_message(GetLastError()));
}

void PageView::set_resolution(int dots_per_inch)
{
    const Anchor held = anchor({});
    dots_per_inch_ = dots_per_inch;
    lay_out(held);
}

LRESULT CALLBACK PageView::procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept
try {
    const ComponentCall call;
    if (message == WM_NCCREATE) {
        auto* const made = static_cast<PageView*>(reinterpret_cast<CREATESTRUCTW*>(second)->lpCreateParams);
        made->handle_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* const view = reinterpret_cast<PageView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return view ? view->answer(message, first, second) : DefWindowProcW(window, message, first, second);
} catch (...) {
    return 0; // without memory the message is as if it had not come
}

LRESULT PageView::answer(UINT message, WPARAM first, LPARAM second)
{
    switch (message) {
    case WM_PAINT:
        paint();
        return 0;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_SIZE:
        resized();
        return 0;
    case WM_VSCROLL:
        scroll_by_bar(SB_VERT, LOWORD(first));
        return 0;
    case WM_HSCROLL:
        scroll_by_bar(SB_HORZ, LOWORD(first));
        return 0;
    case WM_MOUSEWHEEL:
        turn_wheel(first, {GET_X_LPARAM(second), GET_Y_LPARAM(second)});
        return 0;
    case WM_MOUSEHWHEEL:
        scroll_lines(static_cast<double>(GET_WHEEL_DELTA_WPARAM(first)) / WHEEL_DELTA, 0);
        return TRUE;
    case WM_LBUTTONDOWN:
        SetFocus(handle_);
        SetCapture(handle_);
        dragged_from_ = POINT{GET_X_LPARAM(second), GET_Y_LPARAM(second)};
        return 0;
    case WM_MOUSEMOVE:
        if (dragged_from_) drag({GET_X_LPARAM(second), GET_Y_LPARAM(second)});
        return 0;
    case WM_LBUTTONUP:
        ReleaseCapture();
        return 0;
    case WM_CAPTURECHANGED:
        dragged_from_.reset();
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_NCDESTROY:
        SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
        break;
    }
    const Interlude while_it_is_scrolled;
    return DefWindowProcW(handle_, message, first, second);
}

// --- pages ---

void PageView::go_to(std::size_t page)
{
    page = std::min(page, pages_.size() - 1);
    scroll_to(scrolled_.x, stack_.box(page).top - pixels(gap_at_96));
    page_ = page; // what lies at the end need not come to the top
    changed_();
}

void PageView::go_to_end_of(std::size_t page)
{
    page = std::min(page, pages_.size() - 1);
    scroll_to(scrolled_.x, stack_.box(page).bottom() + pixels(gap_at_96) - client_.cy);
    page_ = page;
    changed_();
}

void PageView::take_page_in_sight()
{
    page_ = stack_.page_at(scrolled_.y + client_.cy / 3);
    changed_();
}

// --- scale ---

void PageView::set_zoom(double zoom)
{
    fit_ = Fit::nothing;
    change_zoom(zoom, anchor(middle()));
}

void PageView::set_fit(Fit fit)
{
    fit_ = fit;
    const std::size_t page = page_;
    change_zoom(zoom_that_fits(fit), anchor({}));
    if (fit == Fit::whole_page) go_to(page);
}

int PageView::width_of_real_size() const
{
    RECT outer{};
    GetWindowRect(handle_, &outer);
    const int scroll_bar = outer.right - outer.left - client_.cx;
    return pages::PageStack(pages_, dots_per_inch_ / 72.0, pixels(gap_at_96), 0).width() + scroll_bar;
}

void PageView::zoom_by_step(int direction, POINT around)
{
    constexpr double slack = 0.005; // a scale that fits the window may lie next to a step
    double wanted = direction > 0 ? most_zoom : least_zoom;
    for (const double step : steps) {
        if (direction > 0 && step > zoom_ + slack) wanted = std::min(wanted, step);
        if (direction < 0 && step < zoom_ - slack) wanted = std::max(wanted, step);
    }
    fit_ = Fit::nothing;
    change_zoom(wanted, anchor(around));
}

double PageView::zoom_that_fits(Fit fit) const
{
    double width = 1;
    for (const pages::Page& page : pages_) width = std::max(width, page.width);
    const double real_size = dots_per_inch_ / 72.0;
    const double across = std::max<double>(client_.cx - 2 * pixels(gap_at_96), 1) / (width * real_size);
    const double down =
        std::max<double>(client_.cy - 2 * pixels(gap_at_96), 1) / (pages_[page_].height * real_size);
    return fit == Fit::width ? across : std::min(across, down);
}

void PageView::change_zoom(double zoom, const Anchor& anchor)
{
    zoom_ = std::clamp(zoom, least_zoom, most_zoom);
    lay_out(anchor);
}

POINT PageView::corner_of(std::size_t page) const
{
    const pages::PixelBox& box = stack_.box(page);
    return {box.left - scrolled_.x, box.top - scrolled_.y};
}

PageView::Anchor PageView::anchor(POINT at) const
{
    const std::size_t page = stack_.page_at(scrolled_.y + at.y);
    const POINT corner = corner_of(page);
    const LONG down = at.y - corner.y;
    return {page, (at.x - corner.x) / scale(), std::max<LONG>(down, 0) / scale(),
            static_cast<double>(std::min<LONG>(down, 0)) / pixels(gap_at_96), at};
}

void PageView::lay_out(const Anchor& anchor)
{
    if (!fonts_ || fonts_->scale() != scale()) fonts_ = std::make_unique<GdiFonts>(scale());
    stack_ = pages::PageStack(pages_, scale(), pixels(gap_at_96), client_.cx);
    const pages::PixelBox& box = stack_.box(anchor.page);
    const LONG down = whole(anchor.y * scale() + anchor.above * pixels(gap_at_96));
    scroll_to(box.left + whole(anchor.x * scale()) - anchor.at.x, box.top + down - anchor.at.y);
    InvalidateRect(handle_, nullptr, FALSE);
}

// Showing or hiding a scroll bar changes the size once more.
void PageView::resized()
{
    RECT client{};
    GetClientRect(handle_, &client);
    const Anchor held = anchor({});
    client_ = {client.right, client.bottom};
    if (laying_out_) return;
    laying_out_ = true;
    const std::size_t page = page_;
    if (fit_ != Fit::nothing)
        change_zoom(zoom_that_fits(fit_), held);
    else
        lay_out(held);
    if (fit_ == Fit::whole_page) go_to(page);
    laying_out_ = false;
}

// --- scrolling ---

void PageView::scroll_to(long x, long y)
{
    const POINT before = scrolled_;
    scrolled_.x = std::clamp<LONG>(x, 0, std::max<LONG>(stack_.width() - client_.cx, 0));
    scrolled_.y = std::clamp<LONG>(y, 0, std::max<LONG>(stack_.height() - client_.cy, 0));
    ScrollWindowEx(handle_, before.x - scrolled_.x, before.y - scrolled_.y, nullptr, nullptr, nullptr,
                   nullptr, SW_INVALIDATE);
    show_scroll_bars();
    take_page_in_sight();
}

void PageView::show_scroll_bars()
{
    SCROLLINFO bar{sizeof bar,
                   SIF_PAGE | SIF_POS | SIF_RANGE,
                   0,
                   stack_.width() - 1,
                   static_cast<UINT>(client_.cx),
                   scrolled_.x,
                   0};
    SetScrollInfo(handle_, SB_HORZ, &bar, TRUE);
    bar = {sizeof bar,
           SIF_PAGE | SIF_POS | SIF_RANGE | SIF_DISABLENOSCROLL,
           0,
           stack_.height() - 1,
           static_cast<UINT>(client_.cy),
           scrolled_.y,
           0};
    SetScrollInfo(handle_, SB_VERT, &bar, TRUE);
}

void PageView::scroll_lines(double across, double down)
{
    const double line = pixels(line_at_96);
    scroll_to(scrolled_.x + whole(across * line), scrolled_.y + whole(down * line));
}

void PageView::scroll_screens(int down)
{
    if (fit_ == Fit::whole_page && (down > 0 || page_ > 0))
        return go_to(page_ + static_cast<std::size_t>(down));
    scroll_to(scrolled_.x, scrolled_.y + down * std::max<LONG>(client_.cy - pixels(line_at_96), 1));
}

void PageView::scroll_by_bar(int bar, int code)
{
    SCROLLINFO asked{};
    asked.cbSize = sizeof asked;
    asked.fMask = SIF_TRACKPOS;
    GetScrollInfo(handle_, bar, &asked);
    const bool across = bar == SB_HORZ;
    const LONG line = pixels(line_at_96),
               screen = std::max<LONG>((across ? client_.cx : client_.cy) - line, 1);
    LONG to = across ? scrolled_.x : scrolled_.y;
    switch (code) {
    case SB_LINEUP:
        to -= line;
        break;
    case SB_LINEDOWN:
        to += line;
        break;
    case SB_PAGEUP:
        to -= screen;
        break;
    case SB_PAGEDOWN:
        to += screen;
        break;
    case SB_TOP:
        to = 0;
        break;
    case SB_BOTTOM:
        to = across ? stack_.width() : stack_.height();
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        to = asked.nTrackPos;
        break;
    default:
        return;
    }
    scroll_to(across ? to : scrolled_.x, across ? scrolled_.y : to);
}

// With Ctrl it changes the scale about the pointer, with Shift it scrolls across.
void PageView::turn_wheel(WPARAM keys_and_turn, POINT on_screen)
{
    const int turn = GET_WHEEL_DELTA_WPARAM(keys_and_turn);
    if (keys_and_turn & MK_CONTROL) {
        turned_ += turn;
        if (std::abs(turned_) < WHEEL_DELTA) return;
        turned_ = 0;
        ScreenToClient(handle_, &on_screen);
        return zoom_by_step(turn, on_screen);
    }
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines == WHEEL_PAGESCROLL) return scroll_screens(turn > 0 ? -1 : 1);
    constexpr double usual_lines = 3, our_lines = 2;
    const double scrolled = -static_cast<double>(turn) / WHEEL_DELTA * lines / usual_lines * our_lines;
    if (keys_and_turn & MK_SHIFT)
        scroll_lines(scrolled, 0);
    else
        scroll_lines(0, scrolled);
}

void PageView::drag(POINT to)
{
    const POINT from = *dragged_from_;
    dragged_from_ = to;
    SetCursor(LoadCursorW(nullptr, IDC_SIZEALL));
    scroll_to(scrolled_.x + from.x - to.x, scrolled_.y + from.y - to.y);
}

// --- searching ---

void PageView::find(TextView words)
{
    if (!search_) search_.emplace(pages_);
    found_ = search_->find(words);
    const auto first = std::find_if(found_.begin(), found_.end(), [this](const pages::Found& found) {
        return found.front().page >= page_;
    });
    current_found_ = first == found_.end() ? 0 : static_cast<std::size_t>(first - found_.begin());
    reveal_found();
}

void PageView::find_next(int direction)
{
    if (found_.empty()) return;
    current_found_ = (current_found_ + (direction > 0 ? 1 : found_.size() - 1)) % found_.size();
    reveal_found();
}

// Scrolls only where it is not seen already, and then brings it to the upper third.
void PageView::reveal_found()
{
    InvalidateRect(handle_, nullptr, FALSE);
    if (found_.empty()) return changed_();
    const pages::FoundPart& part = found_[current_found_].front();
    const auto& text = std::get<pages::TextMark>(pages_[part.page].marks[part.mark]);
    const auto corners = pages::area(text, part.first, part.count);
    const auto [left, right] = std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
    const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
    const POINT corner = corner_of(part.page);
    const LONG from_x = corner.x + whole(left * scale()), to_x = corner.x + whole(right * scale());
    const LONG from_y = corner.y + whole(top * scale()), to_y = corner.y + whole(bottom * scale());
    const bool seen_across = from_x >= 0 && to_x <= client_.cx, seen_down = from_y >= 0 && to_y <= client_.cy;
    scroll_to(seen_across ? scrolled_.x : scrolled_.x + from_x - client_.cx / 3,
              seen_down ? scrolled_.y : scrolled_.y + from_y - client_.cy / 3);
    page_ = part.page;
    changed_();
}

} // namespace tolvex
