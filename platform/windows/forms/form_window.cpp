#include "platform/windows/forms/form_window.hpp"

#include "platform/windows/forms/visual_styles.hpp"

namespace tolvex {

namespace {

// Nothing of it is destroyed at the end of the process: other modules may be gone by then.
std::vector<std::shared_ptr<FormWindow>>& open_windows()
{
    static auto& windows = *new std::vector<std::shared_ptr<FormWindow>>;
    return windows;
}

} // namespace

std::shared_ptr<FormWindow> FormWindow::open_modal(Form& form)
{
    const auto made = std::make_shared<FormWindow>(form, nullptr);
    made->make(GetActiveWindow());
    return made;
}

std::shared_ptr<FormWindow> FormWindow::open(std::unique_ptr<Form> form)
{
    Form& shown = *form;
    const auto made = std::make_shared<FormWindow>(shown, std::move(form));
    made->make(nullptr);
    return made;
}

void FormWindow::make(HWND owner)
try {
    stay_loaded();
    const VisualStyles styles;
    open_windows().push_back(shared_from_this());
    create(owner);
    loaded_ = true;
    run([this] { form_.load(*this); });
} catch (...) {
    destroy();
    forget();
    throw;
}

void FormWindow::close_older(TextView name)
{
    const auto windows = open_windows();
    for (const auto& open : windows) {
        if (!open->owned_ || open->description_.name != name) continue;
        const DWORD thread = GetWindowThreadProcessId(open->handle_, nullptr);
        if (thread == 0) // it has ended, and the window with it
            open->forget();
        else if (open->running_ || thread != GetCurrentThreadId())
            open->close();
        else
            open->destroy();
    }
}

FormWindow::FormWindow(Form& form, std::unique_ptr<Form> owned)
    : owned_(std::move(owned)), form_(form), description_(form.description()), hook_(*this)
{}

FormWindow::~FormWindow() = default;

void FormWindow::show()
{
    if (closing_) return;
    ShowWindow(handle_, SW_SHOW);
    SetForegroundWindow(handle_);
    focus_first();
}

void FormWindow::close()
{
    close_wanted_ = true;
    PostMessageW(handle_, close_message, 0, 0);
}

void FormWindow::finish()
{
    closing_ = true;
    if (owned_) destroy();
}

void FormWindow::destroy()
{
    if (handle_) DestroyWindow(handle_);
}

void FormWindow::destroyed()
{
    closing_ = true;
    if (loaded_) run_event([this] { form_.unload(*this); });
    loaded_ = false;
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0); // a modal loop may be waiting
}

void FormWindow::forget() { std::erase(open_windows(), shared_from_this()); }

} // namespace tolvex
