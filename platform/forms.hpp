// Forms: what a window shows (FormDescription), how it behaves (Form) and what its behaviour may do with it
// (FormView). A toolkit draws them; a form knows none.
#pragma once

#include "core/text.hpp"

#include <functional>
#include <memory>
#include <optional>

namespace tolvex {

// A window of the host's own system, known to its adapter only; null for none.
struct NativeWindow;
using WindowHandle = NativeWindow*;

// --- what a window shows ---

enum class ControlKind
{
    label,  // a text that stands for itself
    text,   // a text box
    combo,  // a drop-down list whose items carry a text and a value
    check,  // a box that is on or off
    button, // "&" in its caption marks the access key
    list    // a table of rows, one of which may be selected
};

// One control. A text box or combo box has its caption as a label before it.
struct Control
{
    ControlKind kind;
    TextView name; // the documented one
    TextView caption = {};
    int width = 0; // in characters of the form's font; 0 takes the rest of the row, a button what it needs
    int lines = 1; // a text box of more than one scrolls
    bool enabled = true;
    bool read_only = false; // of a text box: its text can be marked and copied
    bool secret = false;    // of a text box: what stands in it cannot be read
    bool visible = true;    // a row of which nothing is takes no room
};

// Controls side by side.
using Row = std::vector<Control>;

// Rows one below the other, within a frame when it has a caption. The sections of all pages follow one
// another; they share one place, in which tabs with their names bring one forward.
struct Section
{
    TextView frame;
    std::vector<Row> rows;
    TextView page = {};
};

enum class Icon
{
    new_record,
    edit_record
};

// A button of the tool bar; its key tells it apart when it is clicked.
struct Tool
{
    TextView key, caption;
    Icon icon;
};

// The tab order is that of the description: sections, rows, controls, then the buttons at the bottom.
struct FormDescription
{
    TextView name; // the documented one
    std::vector<Tool> tools = {};
    std::vector<Section> sections = {};
    std::vector<Control> buttons = {};
    bool resizable = false;
    // Enter moves to the next field and Escape to the previous one; both keys do nothing else.
    bool enter_moves = true;
};

// --- what its behaviour may do ---

// An item of a combo box.
struct Item
{
    Text text, value;
};

struct ListColumn
{
    Text caption;
    int width = 0; // in characters
    bool right_aligned = false;
};

using ListRow = std::vector<Text>;

enum class Background
{
    plain,
    alarm // red
};

// An open window, its controls reached by their names.
class FormView
{
public:
    virtual ~FormView() = default;

    virtual void set_caption(const Text& caption) = 0;
    // Of a text box or label; of a combo box the chosen item's text.
    virtual Text text(TextView control) const = 0;
    virtual void set_text(TextView control, const Text& text) = 0;
    virtual bool checked(TextView check) const = 0;
    virtual void set_checked(TextView check, bool on) = 0;
    virtual void enable(TextView control, bool enabled) = 0;
    virtual void set_visible(TextView control, bool visible) = 0;
    virtual void set_background(TextView control, Background background) = 0;

    // Replaces the items of a combo box; none is chosen.
    virtual void fill(TextView combo, const std::vector<Item>& items) = 0;
    // The chosen item's value; empty when none is.
    virtual Text chosen(TextView combo) const = 0;
    // Chooses the first item with that value, or none.
    virtual void choose(TextView combo, TextView value) = 0;

    virtual void clear_rows(TextView list) = 0;
    virtual void set_columns(TextView list, const std::vector<ListColumn>& columns) = 0;
    virtual void add_row(TextView list, const ListRow& row) = 0;
    // Brings the end of a list that grows into sight.
    virtual void show_last_row(TextView list) = 0;
    virtual std::optional<ListRow> selected_row(TextView list) const = 0;

    // Shows that the form works, or that it is done.
    virtual void set_busy(bool busy) = 0;
    // The form unloads once the event that asked for it is over.
    virtual void close() = 0;
    virtual WindowHandle window() const = 0;
};

// Runs a work, showing meanwhile that the form is busy.
template <class Work>
auto while_busy(FormView& view, Work work)
{
    struct Busy
    {
        explicit Busy(FormView& form) : view(form) { view.set_busy(true); }
        ~Busy() { view.set_busy(false); }
        FormView& view;
    } busy(view);
    return work();
}

// --- how it behaves ---

// An error that leaves one of these is shown to the user; the window stays open.
class Form
{
public:
    virtual ~Form() = default;
    virtual const FormDescription& description() const = 0;
    virtual void load(FormView& view) = 0;
    // A button, or a tool by its key.
    virtual void clicked(FormView&, TextView) {}
    // The user chose another item of a combo box.
    virtual void item_chosen(FormView&, TextView) {}
    // The user double-clicked the selected row of a list, or pressed Enter on it.
    virtual void row_activated(FormView&, TextView) {}
    virtual void unload(FormView&) {}
};

// Runs a form's event and shows what went wrong in a message: nothing may leave into the host's message loop.
void run_event(const std::function<void()>& event) noexcept;

// --- what draws them ---

// What a file dialog offers: "Certificados (*.cer)" and its pattern "*.cer".
struct FileKind
{
    Text description, pattern;
};

class Toolkit
{
public:
    virtual ~Toolkit() = default;
    // Shows the form and returns when it is closed; other windows of the thread wait meanwhile.
    virtual void show_modal(Form& form) = 0;
    // Shows the form and returns at once. One form of a name is open at a time: an older one is closed.
    virtual void show(std::unique_ptr<Form> form) = 0;
    // Path of a file-system folder, or of an existing file; empty when the user cancels. Errors count as
    // cancelling.
    virtual Text choose_folder(WindowHandle owner, const Text& title) = 0;
    virtual Text choose_file(WindowHandle owner, const Text& title, const FileKind& kind) = 0;
};

// The toolkit in use: the host's own unless another was set. Throws Error 445 where a host has no windows.
Toolkit& toolkit();
// Null brings the host's own back. The toolkit must outlive its use.
void use_toolkit(Toolkit* other);

// An adapter's work.
Toolkit& native_toolkit();

} // namespace tolvex
