// A window in which a person reads a document, and its life: modeless, without an owner, under the host's
// message loop.
#pragma once

#include "platform/windows/forms/message_hook.hpp"
#include "platform/windows/viewer/bar.hpp"

namespace tolvex {

class ViewerWindow : public KeyTaker, public std::enable_shared_from_this<ViewerWindow>
{
public:
    // It lives until the person closes it.
    static void open(std::vector<pages::Page> pages, const pages::DocumentProperties& properties);

    ViewerWindow(std::vector<pages::Page> pages, const pages::DocumentProperties& properties);
    ~ViewerWindow();

    HWND handle() const override { return handle_; }
    bool takes_key(MSG& message) override;

private:
    // Commands are posted, so that they run from a plain message loop and never within a hook or a control.
    static constexpr UINT command_message = WM_APP, close_message = WM_APP + 1;

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept;
    LRESULT answer(UINT message, WPARAM first, LPARAM second);

    void create();
    void set_icons();
    RECT opening_place() const;
    void set_resolution(int dots_per_inch);
    void place_parts();
    void commanded(int number, int code);
    void post(ViewerCommand command) const;
    void run_posted(ViewerCommand command);
    void run(ViewerCommand command);
    void close();

    ViewerFocus focus() const;
    void choose_all_of(HWND box);
    void go_to_chosen_page();
    void leave_box();
    void print();
    void save();

    const ComponentsInUse components_; // pictures are decoded when they are first seen
    const std::vector<pages::Page> pages_;
    const pages::DocumentProperties properties_;
    MessageHook hook_;
    HWND handle_ = nullptr, had_focus_ = nullptr;
    HICON icons_[2] = {};
    std::unique_ptr<ViewerBar> bar_;
    std::unique_ptr<PageView> view_;
    bool running_ = false, close_wanted_ = false;
};

} // namespace tolvex
