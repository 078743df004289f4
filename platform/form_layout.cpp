#include "platform/form_layout.hpp"

#include <algorithm>

namespace tolvex {

namespace {

constexpr int character = 4, line = 8;
constexpr int tabs_height = 14, tabs_gap = 5;
constexpr int margin = 7, row_gap = 4, section_gap = 7, control_gap = 8, label_gap = 3, button_gap = 5;
constexpr int field_height = 12, button_height = 14, tool_bar_height = 17, tool_bar_gap = 3;
constexpr int field_padding = 6, combo_padding = 14, check_padding = 12,
              button_padding = 18; // beside the text
constexpr int least_field = 30 * character, least_list = 90 * character, least_button = 48,
              least_content = 70 * character;
constexpr int list_line = line + 2, list_header = 14, list_scroll_bar = 10;
constexpr int frame_side = 7, frame_top = 12, frame_bottom = 7;

// Short captions in capitals are wider than their average.
int text_width(TextView text) { return static_cast<int>(text.size()) * character + character; }

bool has_label(const Control& control)
{
    return (control.kind == ControlKind::text || control.kind == ControlKind::combo) &&
           !control.caption.empty();
}

int label_width(const Control& control)
{
    return has_label(control) ? text_width(control.caption) + label_gap : 0;
}

// Takes what its row leaves.
bool stretches(const Control& control)
{
    return control.width == 0 && control.kind != ControlKind::button && control.kind != ControlKind::check;
}

int least_width(const Control& control)
{
    const int stated = control.width * character;
    switch (control.kind) {
    case ControlKind::label:
        return std::max(stated, text_width(control.caption));
    case ControlKind::text:
        return stated == 0 ? least_field : stated + field_padding;
    case ControlKind::combo:
        return stated == 0 ? least_field : stated + combo_padding;
    case ControlKind::check:
        return std::max(stated, text_width(control.caption)) + check_padding;
    case ControlKind::button:
        return std::max(stated, text_width(control.caption)) + button_padding;
    case ControlKind::list:
        return stated == 0 ? least_list : stated + list_scroll_bar;
    }
    return stated;
}

int least_height(const Control& control)
{
    if (control.kind == ControlKind::list) return list_header + control.lines * list_line;
    if (control.kind == ControlKind::button) return button_height;
    return field_height + (control.lines - 1) * line;
}

int row_height(const Row& row)
{
    int height = 0;
    for (const Control& control : row) height = std::max(height, least_height(control));
    return height;
}

bool has_list(const Row& row)
{
    return std::any_of(row.begin(), row.end(), [](const Control& c) { return c.kind == ControlKind::list; });
}

// Rows of labelled fields of a width of their own stand in columns, one below the other.
bool is_tabular(const Row& row)
{
    return std::all_of(row.begin(), row.end(), [](const Control& c) { return has_label(c) && c.width > 0; });
}

// A row that is not shown at first takes no room.
bool is_hidden(const Row& row)
{
    return std::none_of(row.begin(), row.end(), [](const Control& c) { return c.visible; });
}

// A column of labels and the fields after them.
struct Column
{
    int start = 0, label_width = 0, field_width = 0;

    int field() const { return start + label_width; }
    int end() const { return field() + field_width; }
};

int side_of(const Section& section) { return section.frame.empty() ? 0 : frame_side; }

// From the edge of the rows to the fields that come first in them, the same within and without frames.
int first_fields(const FormDescription& form)
{
    int start = 0;
    for (const Section& section : form.sections)
        for (const Row& row : section.rows)
            if (!is_hidden(row)) start = std::max(start, side_of(section) + label_width(row[0]));
    return start;
}

std::vector<Column> columns_of(const FormDescription& form, const Section& section)
{
    std::vector<Column> columns = {{0, first_fields(form) - side_of(section), 0}};
    for (const Row& row : section.rows) {
        if (is_hidden(row) || !is_tabular(row)) continue;
        columns.resize(std::max(columns.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            columns[i].label_width = std::max(columns[i].label_width, label_width(row[i]));
            columns[i].field_width = std::max(columns[i].field_width, least_width(row[i]));
        }
    }
    for (std::size_t i = 1; i < columns.size(); ++i) columns[i].start = columns[i - 1].end() + control_gap;
    return columns;
}

// The controls of a row from its left edge, each field made wider by `spare` if it stretches.
std::vector<PlacedControl> place_row(const Row& row, const std::vector<Column>& columns, int spare)
{
    std::vector<PlacedControl> placed;
    const bool tabular = is_tabular(row);
    int x = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const Control& control = row[i];
        const bool aligned =
            tabular || (i == 0 && control.kind != ControlKind::label && control.kind != ControlKind::list);
        const int start = aligned ? columns[i].start : x;
        const int field = aligned ? columns[i].field() : x + label_width(control);
        const int width = least_width(control) + (stretches(control) ? spare : 0);
        const Box label = {start, 0, has_label(control) ? field - start - label_gap : 0, field_height};
        placed.push_back({&control, {field, 0, width, least_height(control)}, label});
        x = field + width + control_gap;
    }
    return placed;
}

int width_of(const std::vector<PlacedControl>& row) { return row.empty() ? 0 : row.back().box.right(); }

int buttons_width(const FormDescription& form)
{
    int width = 0;
    for (const Control& button : form.buttons)
        width += std::max(least_width(button), least_button) + button_gap;
    return std::max(0, width - button_gap);
}

int content_width(const FormDescription& form)
{
    int width = std::max(least_content, buttons_width(form));
    for (const Section& section : form.sections) {
        const auto columns = columns_of(form, section);
        for (const Row& row : section.rows)
            if (!is_hidden(row))
                width = std::max(width, width_of(place_row(row, columns, 0)) + 2 * side_of(section));
    }
    return width;
}

// Lays out from top to bottom; `spare` is how much higher each list becomes.
class Layouter
{
public:
    Layouter(const FormDescription& form, int width, int list_spare)
        : form_(form), width_(width), list_spare_(list_spare)
    {}

    FormLayout lay_out()
    {
        add_tool_bar();
        for (const Section& section : form_.sections) {
            turn_to_page(section.page);
            add(section);
        }
        turn_to_page({});
        if (!form_.sections.empty()) y_ += margin - section_gap;
        if (!form_.buttons.empty()) y_ += button_height + margin;
        made_.size = {width_ + 2 * margin, y_};
        return std::move(made_);
    }

    // The buttons, once the height of the form is known.
    static void add_buttons(FormLayout& layout, const FormDescription& form)
    {
        int x = layout.size.width - margin - buttons_width(form);
        for (const Control& button : form.buttons) {
            const int width = std::max(least_width(button), least_button);
            layout.controls.push_back(
                {&button, {x, layout.size.height - margin - button_height, width, button_height}, {}});
            x += width + button_gap;
        }
    }

private:
    void add_tool_bar()
    {
        y_ = margin;
        if (form_.tools.empty()) return;
        made_.tool_bar = {margin, tool_bar_gap, width_, tool_bar_height};
        y_ = made_.tool_bar.bottom() + tool_bar_gap;
    }

    // Every page begins where the first one does; what follows them stands below the longest.
    void turn_to_page(TextView page)
    {
        if (page == page_) return;
        pages_bottom_ = std::max(pages_bottom_, y_);
        if (!page.empty() && made_.pages.empty()) {
            made_.tabs = {margin, y_, width_, tabs_height};
            pages_top_ = made_.tabs.bottom() + tabs_gap;
        }
        if (!page.empty()) made_.pages.push_back(page);
        y_ = page.empty() ? pages_bottom_ : pages_top_;
        page_ = page;
    }

    void add(const Section& section)
    {
        const int top = y_;
        const auto columns = columns_of(form_, section);
        if (!section.frame.empty()) y_ += frame_top;
        for (const Row& row : section.rows) add(row, columns, side_of(section));
        y_ -= row_gap;
        if (!section.frame.empty()) {
            y_ += frame_bottom;
            made_.frames.push_back({section.frame, {margin, top, width_, y_ - top}, page_});
        }
        y_ += section_gap;
    }

    void add(const Row& row, const std::vector<Column>& columns, int side)
    {
        if (is_hidden(row)) {
            for (const Control& control : row) made_.controls.push_back({&control, {}, {}, page_});
            return;
        }
        const int height = row_height(row) + (has_list(row) ? list_spare_ : 0);
        const int room = width_ - 2 * side - width_of(place_row(row, columns, 0));
        const int sharers = static_cast<int>(std::count_if(row.begin(), row.end(), stretches));
        for (PlacedControl& placed : place_row(row, columns, sharers ? room / sharers : 0)) {
            placed.box.x += margin + side;
            placed.label.x += margin + side;
            if (placed.control->kind == ControlKind::list) placed.box.height += list_spare_;
            // Single lines stand in the middle of a row with buttons, beside the first line of a high one.
            const bool middle = height <= button_height;
            placed.box.y = y_ + (middle ? (height - placed.box.height) / 2 : 0);
            placed.label.y = y_ + (middle ? (height - placed.label.height) / 2 : 0);
            placed.page = page_;
            made_.controls.push_back(placed);
        }
        y_ += height + row_gap;
    }

    const FormDescription& form_;
    const int width_, list_spare_;
    int y_ = 0, pages_top_ = 0, pages_bottom_ = 0;
    TextView page_;
    FormLayout made_;
};

int lists_in(const FormDescription& form)
{
    int lists = 0;
    for (const Section& section : form.sections)
        lists += static_cast<int>(std::count_if(section.rows.begin(), section.rows.end(), has_list));
    return lists;
}

} // namespace

FormLayout lay_out(const FormDescription& form, Size wanted)
{
    const int width = std::max(content_width(form), wanted.width - 2 * margin);
    FormLayout layout = Layouter(form, width, 0).lay_out();
    const int spare = std::max(0, wanted.height - layout.size.height), lists = lists_in(form);
    if (spare > 0 && lists > 0) layout = Layouter(form, width, spare / lists).lay_out();
    layout.size.height = std::max(layout.size.height, wanted.height);
    Layouter::add_buttons(layout, form);
    return layout;
}

} // namespace tolvex
