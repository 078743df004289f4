// A toolkit without windows: forms live in memory and a program plays the user. Tests and the command line
// fill the same forms with it that the windows show.
#pragma once

#include "platform/forms.hpp"

#include <map>

namespace tolvex {

// An open form, as its behaviour sees it and as its user does.
class FormInMemory : public FormView
{
public:
    explicit FormInMemory(Form& form);
    ~FormInMemory() override;
    FormInMemory(const FormInMemory&) = delete;

    // What a user does. Throws Error 5 for what a user could not do: there is no such control or item, or it
    // is disabled, hidden or read only.
    void type(TextView text_box, const Text& text);
    void pick(TextView combo, TextView item_value);
    void tick(TextView check, bool on);
    // A button, or a tool by its key.
    void click(TextView name);
    // The row whose first column holds that text.
    void select_row(TextView list, TextView first_column);
    void double_click(TextView list);

    // What a user sees.
    bool is_open() const { return open_; }
    const Text& caption() const { return caption_; }
    ControlKind kind(TextView control) const { return at(control).kind; }
    bool is_enabled(TextView control) const { return at(control).enabled; }
    bool is_visible(TextView control) const { return at(control).visible; }
    Background background(TextView control) const { return at(control).background; }
    const std::vector<Item>& items(TextView combo) const { return at(combo).items; }
    const std::vector<ListColumn>& columns(TextView list) const { return at(list).columns; }
    const std::vector<ListRow>& rows(TextView list) const { return at(list).rows; }

    void set_caption(const Text& caption) override { caption_ = caption; }
    Text text(TextView control) const override;
    void set_text(TextView control, const Text& text) override { at(control).text = text; }
    bool checked(TextView check) const override { return at(check).checked; }
    void set_checked(TextView check, bool on) override { at(check).checked = on; }
    void enable(TextView control, bool enabled) override { at(control).enabled = enabled; }
    void set_visible(TextView control, bool visible) override { at(control).visible = visible; }
    void set_background(TextView control, Background background) override;
    void fill(TextView combo, const std::vector<Item>& items) override;
    Text chosen(TextView combo) const override;
    void choose(TextView combo, TextView value) override;
    void clear_rows(TextView list) override;
    void set_columns(TextView list, const std::vector<ListColumn>& columns) override;
    void add_row(TextView list, const ListRow& row) override { at(list).rows.push_back(row); }
    void show_last_row(TextView) override {}
    std::optional<ListRow> selected_row(TextView list) const override;
    void set_busy(bool) override {}
    void close() override { open_ = false; }
    WindowHandle window() const override { return nullptr; }

private:
    struct Held
    {
        ControlKind kind = ControlKind::label;
        bool enabled = true, visible = true, read_only = false;
        Text text;
        bool checked = false;
        Background background = Background::plain;
        std::vector<Item> items;
        std::optional<std::size_t> chosen, selected;
        std::vector<ListColumn> columns;
        std::vector<ListRow> rows;
    };

    void add(const Control& control);
    const Held& at(TextView control) const;
    Held& at(TextView control);
    // The control, if a user can use it.
    Held& usable(TextView control);

    Form& form_;
    Text caption_;
    bool open_ = true;
    std::map<Text, Held, std::less<>> controls_;
};

class ToolkitInMemory : public Toolkit
{
public:
    using User = std::function<void(FormInMemory&)>;

    // Who uses the forms of that name when they are shown modally; without one they are closed at once.
    void set_user(TextView form_name, User user) { users_[Text(form_name)] = std::move(user); }
    // The form of that name that is open without being modal. Throws Error 5 when there is none.
    FormInMemory& open_form(TextView form_name);
    bool is_open(TextView form_name) const;

    Text next_folder, next_file; // what the user picks
    Text last_title;             // of the latest file dialog or folder browser

    void show_modal(Form& form) override;
    void show(std::unique_ptr<Form> form) override;
    Text choose_folder(WindowHandle owner, const Text& title) override;
    Text choose_file(WindowHandle owner, const Text& title, const FileKind& kind) override;

private:
    struct Window
    {
        std::unique_ptr<Form> form;
        std::unique_ptr<FormInMemory> view;
    };

    std::map<Text, User, std::less<>> users_;
    std::map<Text, Window, std::less<>> windows_;
};

} // namespace tolvex
