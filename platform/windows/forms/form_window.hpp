// A form as a window. Events of its controls are posted, so that they run from a plain message loop and never
// from within a hook or a control; an event may therefore show windows of its own or close the form.
#pragma once

#include "platform/windows/forms/message_hook.hpp"
#include "platform/windows/forms/native_control.hpp"
#include "platform/windows/forms/page_tabs.hpp"
#include "platform/windows/forms/tool_bar.hpp"

namespace tolvex {

class FormWindow : public FormView, public KeyTaker, public std::enable_shared_from_this<FormWindow>
{
public:
    // Both make a window that is not shown yet, and load the form into it. Modal ones leave their destruction
    // to their loop.
    static std::shared_ptr<FormWindow> open_modal(Form& form);
    static std::shared_ptr<FormWindow> open(std::unique_ptr<Form> form);
    // Closes the form of that name, if one is open without being modal.
    static void close_older(TextView name);

    FormWindow(Form& form, std::unique_ptr<Form> owned);
    ~FormWindow() override;

    HWND handle() const override { return handle_; }
    void show();
    void destroy();
    // It has to go, or is gone.
    bool is_closing() const { return closing_; }
    bool takes_key(MSG& message) override;

    void set_caption(const Text& caption) override;
    Text text(TextView control) const override;
    void set_text(TextView control, const Text& text) override;
    bool checked(TextView check) const override;
    void set_checked(TextView check, bool on) override;
    void enable(TextView control, bool enabled) override;
    void set_visible(TextView control, bool visible) override;
    void set_background(TextView control, Background background) override;
    void fill(TextView combo, const std::vector<Item>& items) override;
    Text chosen(TextView combo) const override;
    void choose(TextView combo, TextView value) override;
    void clear_rows(TextView list) override;
    void set_columns(TextView list, const std::vector<ListColumn>& columns) override;
    void add_row(TextView list, const ListRow& row) override;
    void show_last_row(TextView list) override;
    std::optional<ListRow> selected_row(TextView list) const override;
    void set_busy(bool busy) override;
    void close() override;
    WindowHandle window() const override { return reinterpret_cast<WindowHandle>(handle_); }

private:
    // Numbers of controls and tools, in order, and messages that the window posts to itself.
    static constexpr int first_control = 100, first_tool = 1000;
    static constexpr UINT event_message = WM_APP, close_message = WM_APP + 1;

    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept;

    void make(HWND owner);
    void create(HWND owner);
    void create_controls();
    void set_font(int dots_per_inch);
    void measure();
    void resize(SIZE size);
    void place_controls();
    TextView chosen_page() const { return tabs_ ? tabs_->chosen() : TextView(); }
    void show_page();
    void move_to_middle_of(HWND owner);
    void change_resolution(int dots_per_inch, const RECT& suggested);

    INT_PTR answer(UINT message, WPARAM first, LPARAM second);
    INT_PTR answer(NMHDR& notification);
    void commanded(int id, int code);
    void run_posted(int id);
    void run(const std::function<void()>& event);
    void finish();
    void destroyed();
    void forget();
    HBRUSH background_of(HDC paper, HWND window) const;
    bool show_busy_cursor();

    bool turns_page(const MSG& key);
    bool moves_focus(const MSG& key);
    void focus_next(bool backwards);
    void focus_first();

    const NativeControl* control_of(HWND window) const;
    const NativeControl& at(TextView name) const;
    NativeControl& at(TextView name);
    ListView& list_at(TextView name) const;

    std::unique_ptr<Form> owned_;
    Form& form_;
    const FormDescription& description_;
    HWND handle_ = nullptr;
    MessageHook hook_;
    std::unique_ptr<FormFont> font_;
    std::unique_ptr<ToolBar> tool_bar_;
    std::unique_ptr<PageTabs> tabs_;
    std::vector<NativeFrame> frames_;
    std::vector<NativeControl> controls_;   // in tab order
    SIZE least_ = {};                       // size of the window
    bool loaded_ = false, running_ = false; // an event
    bool close_wanted_ = false, closing_ = false, busy_ = false;
};

} // namespace tolvex
