// The toolkit of Windows.
#include "platform/windows/choosers.hpp"
#include "platform/windows/forms/modal_loop.hpp"
#include "platform/windows/screen.hpp"

namespace tolvex {

namespace {

class WindowsToolkit : public Toolkit
{
public:
    void show_modal(Form& form) override
    {
        require_a_screen();
        run_modal(*FormWindow::open_modal(form));
    }

    void show(std::unique_ptr<Form> form) override
    {
        require_a_screen();
        FormWindow::close_older(form->description().name);
        FormWindow::open(std::move(form))->show();
    }

    Text choose_folder(WindowHandle owner, const Text& title) override
    {
        return tolvex::choose_folder(owner, title);
    }

    Text choose_file(WindowHandle owner, const Text& title, const FileKind& kind) override
    {
        return tolvex::choose_file(owner, title, kind);
    }
};

} // namespace

Toolkit& native_toolkit()
{
    static auto& windows = *new WindowsToolkit; // outlives the windows that are open when the process ends
    return windows;
}

} // namespace tolvex
