// A table of rows. The rows are kept here and the control asks for those that it shows, so that thousands are
// filled in at once.
#pragma once

#include "platform/windows/forms/form_font.hpp"

#include <commctrl.h>

namespace tolvex {

class ListView
{
public:
    // Posted to the form, with the control's number, once there are rows to show_rows().
    static constexpr UINT rows_message = WM_APP + 2;
    static constexpr DWORD style = LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_OWNERDATA;

    explicit ListView(HWND window);

    void clear_rows();
    void set_columns(const std::vector<ListColumn>& columns, const FormFont& font);
    void add_row(const ListRow& row);
    void show_rows();
    void show_last_row();
    std::optional<ListRow> selected_row() const;
    // The text of a cell that the control is about to draw.
    void give_text(LVITEMW& item) const;
    // Gives the columns their widths in that font.
    void widen_columns(const FormFont& font);

private:
    HWND window_;
    std::vector<ListColumn> columns_;
    std::vector<ListRow> rows_;
    bool rows_posted_ = false;
};

} // namespace tolvex
