// What the commands of a viewer do.
#include "platform/windows/viewer/window.hpp"

#include "core/numbers.hpp"
#include "platform/forms.hpp"
#include "platform/pages/pdf.hpp"
#include "platform/windows/choosers.hpp"
#include "platform/windows/pages/paper_output.hpp"
#include "platform/windows/viewer/print_dialog.hpp"

#include <span>

namespace tolvex {

namespace {

class BusyCursor
{
public:
    BusyCursor() : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~BusyCursor() { SetCursor(before_); }
    BusyCursor(const BusyCursor&) = delete;

private:
    const HCURSOR before_;
};

// A title as the name of a file.
Text file_name(const Text& title)
{
    Text name = trim(title);
    for (char16_t& c : name)
        if (c < u' ' || TextView(u"\\/:*?\"<>|").find(c) != TextView::npos) c = u'-';
    return name + u".pdf";
}

} // namespace

bool ViewerWindow::takes_key(MSG& message)
{
    std::optional<ViewerCommand> command;
    if (message.message == WM_KEYDOWN) command = command_of_key(message.wParam, focus());
    if (message.message == WM_CHAR) command = command_of_character(message.wParam, focus());
    if (!command) return IsDialogMessageW(handle_, &message);
    post(*command);
    return true;
}

ViewerFocus ViewerWindow::focus() const
{
    const HWND focused = GetFocus();
    if (bar_ && focused == bar_->page_box()) return ViewerFocus::page_box;
    if (bar_ && focused == bar_->search_box()) return ViewerFocus::search_box;
    return ViewerFocus::pages;
}

void ViewerWindow::commanded(int number, int code)
{
    if (number == ViewerBar::search_box_number && code == EN_CHANGE && view_)
        view_->find(bar_->wanted_words());
    if (number == ViewerBar::page_box_number && code == EN_KILLFOCUS && view_) bar_->show_state_of(*view_);
    if (code == BN_CLICKED && number >= static_cast<int>(ViewerCommand::print) &&
        number <= static_cast<int>(ViewerCommand::close))
        post(static_cast<ViewerCommand>(number));
}

void ViewerWindow::post(ViewerCommand command) const
{
    PostMessageW(handle_, command_message, static_cast<WPARAM>(command), 0);
}

// Another command that comes while one runs is none; a viewer that has to close meanwhile does so afterwards.
void ViewerWindow::run_posted(ViewerCommand command)
{
    if (running_) return;
    running_ = true;
    run_event([&] { run(command); });
    running_ = false;
    if (close_wanted_) close();
}

void ViewerWindow::run(ViewerCommand command)
{
    PageView& view = *view_;
    switch (command) {
    case ViewerCommand::print:
        return print();
    case ViewerCommand::save:
        return save();
    case ViewerCommand::previous_page:
        return view.go_to(view.page() > 0 ? view.page() - 1 : 0);
    case ViewerCommand::next_page:
        return view.go_to(view.page() + 1);
    case ViewerCommand::zoom_out:
        return view.zoom_out();
    case ViewerCommand::zoom_in:
        return view.zoom_in();
    case ViewerCommand::real_size:
        return view.set_zoom(1);
    case ViewerCommand::fit_width:
        return view.set_fit(Fit::width);
    case ViewerCommand::whole_page:
        return view.set_fit(Fit::whole_page);
    case ViewerCommand::find_previous:
        return view.find_next(-1);
    case ViewerCommand::find_next:
        return view.find_next(1);
    case ViewerCommand::find:
        return choose_all_of(bar_->search_box());
    case ViewerCommand::choose_page:
        return choose_all_of(bar_->page_box());
    case ViewerCommand::go_to_chosen_page:
        return go_to_chosen_page();
    case ViewerCommand::leave_box:
        return leave_box();
    case ViewerCommand::line_up:
        return view.scroll_lines(0, -1);
    case ViewerCommand::line_down:
        return view.scroll_lines(0, 1);
    case ViewerCommand::left:
        return view.is_wider_than_window() ? view.scroll_lines(-1, 0) : run(ViewerCommand::previous_page);
    case ViewerCommand::right:
        return view.is_wider_than_window() ? view.scroll_lines(1, 0) : run(ViewerCommand::next_page);
    case ViewerCommand::screen_up:
        return view.scroll_screens(-1);
    case ViewerCommand::screen_down:
        return view.scroll_screens(1);
    case ViewerCommand::page_start:
        return view.go_to(view.page());
    case ViewerCommand::page_end:
        return view.go_to_end_of(view.page());
    case ViewerCommand::document_start:
        return view.go_to(0);
    case ViewerCommand::document_end:
        return view.go_to_end_of(view.page_count() - 1);
    case ViewerCommand::close:
        close_wanted_ = true;
    }
}

// --- the boxes ---

void ViewerWindow::choose_all_of(HWND box)
{
    SetFocus(box);
    SendMessageW(box, EM_SETSEL, 0, -1);
}

void ViewerWindow::go_to_chosen_page()
{
    const double number = leading_number(bar_->chosen_page());
    SetFocus(view_->handle());
    if (number >= 1) view_->go_to(static_cast<std::size_t>(std::min(number, 1e9)) - 1);
    bar_->show_state_of(*view_);
}

void ViewerWindow::leave_box()
{
    if (focus() == ViewerFocus::search_box) bar_->clear_search();
    SetFocus(view_->handle());
    bar_->show_state_of(*view_);
}

// --- paper and file ---

void ViewerWindow::print()
{
    const auto choice = ask_how_to_print(handle_, pages_);
    if (!choice) return;
    const BusyCursor busy;
    put_on_paper(std::span(pages_).subspan(choice->first, choice->count), properties_.title, choice->settings,
                 choice->times);
}

void ViewerWindow::save()
{
    const Text path = choose_new_file(reinterpret_cast<WindowHandle>(handle_), u"Guardar como PDF",
                                      {u"Documentos PDF (*.pdf)", u"*.pdf"}, file_name(properties_.title));
    if (path.empty()) return;
    const BusyCursor busy;
    pages::PdfFile file(path, properties_);
    for (const pages::Page& page : pages_) file.take(page);
    file.finish();
}

} // namespace tolvex
