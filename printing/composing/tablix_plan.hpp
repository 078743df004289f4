// A table or matrix spread out: which rows and columns its groups make of the data. Nothing is measured yet.
#pragma once

#include "printing/composing/canvas.hpp"

namespace tolvex::printing {

// Instances are numbered in the order in which they are shown; -1 stands for none.
struct RowInstance
{
    int row = 0; // of the body
    const TablixMember* member = nullptr;
    const Scope* scope = nullptr;
    int repeated = -1; // the row above that each new page repeats last; that row tells the one before it
    bool new_page = false, resets_page_number = false;
    int kept_rows = 1; // rows from this one on that a group wants on one page
    std::vector<const Scope*>
        group_labels; // groups that begin here and are in the document map, outermost first
};

struct ColumnInstance
{
    int column = 0;               // of the body
    const Scope* scope = nullptr; // null where no column is grouped
    double left = 0, width = 0;
};

// The header of a member, beside the rows (or above the columns) from first to last.
struct HeaderInstance
{
    const TablixMember* member = nullptr;
    const Scope* scope = nullptr;
    int first = 0, last = -1;
    double offset = 0; // from the left (or the top) of the headers
};

class TablixPlan
{
public:
    // `around` is where the table stands in the data. Throws Error when its data set does not exist.
    TablixPlan(const Canvas& canvas, const ReportItem& item, const Scope* around);
    TablixPlan(const TablixPlan&) = delete;
    TablixPlan& operator=(const TablixPlan&) = delete;

    const Scope& region() const { return *region_; }
    const std::vector<RowInstance>& rows() const { return rows_; }
    const std::vector<ColumnInstance>& columns() const { return columns_; }
    const std::vector<HeaderInstance>& row_headers() const { return row_headers_; }
    const std::vector<HeaderInstance>& column_headers() const { return column_headers_; }
    // Of each level of headers, outermost first.
    const std::vector<double>& row_header_widths() const { return row_header_widths_; }
    const std::vector<double>& column_header_heights() const { return column_header_heights_; }
    double row_headers_width() const { return row_headers_width_; }
    double column_headers_height() const { return column_headers_height_; }
    double width() const;
    bool ends_page() const { return new_page_; } // what follows the table begins a page

    // The rows of a cell: those of its row that belong to its column too. They live in `own` where it needs
    // rows of its own.
    struct CellScope
    {
        Scope scope;
        RowOrder order;
    };
    const Scope* cell_scope(const RowInstance& row, const ColumnInstance& column, CellScope& own) const;

private:
    // What the members of one branch of the hierarchy pass on to those below them.
    struct Branch
    {
        const Scope* scope = nullptr;
        double offset = 0; // of their headers
        int repeated = -1;
    };
    void expand_rows(const std::vector<TablixMember>& members, Branch branch);
    void expand_row_member(const TablixMember& member, const Branch& branch);
    void expand_row_groups(const TablixMember& member, const Branch& branch);
    void expand_row_instance(const TablixMember& member, const Branch& branch);
    void move_new_pages();
    void want_new_page(const Group& group, const Scope* scope, bool wanted);
    void expand_columns(const std::vector<TablixMember>& members, const Scope* scope, double offset);
    void expand_column_member(const TablixMember& member, const Scope* scope, double offset);
    void rank_rows(const RowOrder& order);
    std::vector<const Scope*> instances(const TablixMember& member, const Scope& around);
    const Scope& with_order_of_its_own(const Scope& scope);
    bool is_hidden(const TablixMember& member, const Scope* scope) const;
    void number_leaves(const std::vector<TablixMember>& members, int& next);

    const Canvas& canvas_;
    const Tablix& tablix_;
    std::deque<RowOrder> orders_;
    std::deque<Scope> scopes_;
    const Scope* region_ = nullptr;
    std::unordered_map<const TablixMember*, int> leaves_; // their row or column of the body
    std::unordered_map<const RowOrder*, std::vector<std::uint32_t>>
        ranks_; // of each row in an order of columns
    std::vector<RowInstance> rows_;
    std::vector<ColumnInstance> columns_;
    std::vector<HeaderInstance> row_headers_, column_headers_;
    std::vector<double> row_header_widths_, column_header_heights_;
    double row_headers_width_ = 0, column_headers_height_ = 0;
    bool new_page_ = false, resets_page_number_ = false; // for the row that comes next
};

} // namespace tolvex::printing
