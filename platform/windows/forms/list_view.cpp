#include "platform/windows/forms/list_view.hpp"

namespace tolvex {

namespace {

constexpr int cell_margin = 4; // layout units

} // namespace

ListView::ListView(HWND window) : window_(window)
{
    SendMessageW(window, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
}

void ListView::clear_rows()
{
    rows_.clear();
    ListView_SetItemState(window_, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetItemCountEx(window_, 0, 0);
}

void ListView::set_columns(const std::vector<ListColumn>& columns, const FormFont& font)
{
    const int before = Header_GetItemCount(ListView_GetHeader(window_));
    for (int i = 0; i < before; ++i) ListView_DeleteColumn(window_, 0);
    columns_ = columns;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_FMT;
        column.fmt = columns_[i].right_aligned ? LVCFMT_RIGHT : LVCFMT_LEFT;
        column.pszText = wide(columns_[i].caption);
        ListView_InsertColumn(window_, static_cast<int>(i), &column);
    }
    widen_columns(font);
}

void ListView::widen_columns(const FormFont& font)
{
    for (std::size_t i = 0; i < columns_.size(); ++i)
        ListView_SetColumnWidth(window_, static_cast<int>(i),
                                font.pixels_across(columns_[i].width * 4 + cell_margin));
}

// The control takes its time for each change of the number of rows: it is told once, after all of them.
void ListView::add_row(const ListRow& row)
{
    rows_.push_back(row);
    if (!rows_posted_)
        rows_posted_ =
            PostMessageW(GetParent(window_), rows_message, static_cast<WPARAM>(GetDlgCtrlID(window_)), 0);
}

void ListView::show_rows()
{
    rows_posted_ = false;
    ListView_SetItemCountEx(window_, static_cast<int>(rows_.size()), LVSICF_NOSCROLL);
}

void ListView::show_last_row()
{
    show_rows();
    ListView_EnsureVisible(window_, static_cast<int>(rows_.size()) - 1, FALSE);
}

std::optional<ListRow> ListView::selected_row() const
{
    const int selected = ListView_GetNextItem(window_, -1, LVNI_SELECTED);
    if (selected < 0 || static_cast<std::size_t>(selected) >= rows_.size()) return std::nullopt;
    return rows_[static_cast<std::size_t>(selected)];
}

void ListView::give_text(LVITEMW& item) const
{
    if (!(item.mask & LVIF_TEXT) || item.cchTextMax <= 0) return;
    const auto row = static_cast<std::size_t>(item.iItem), column = static_cast<std::size_t>(item.iSubItem);
    const Text text = row < rows_.size() && column < rows_[row].size() ? rows_[row][column] : Text();
    lstrcpynW(item.pszText, wide(text), item.cchTextMax);
}

} // namespace tolvex
