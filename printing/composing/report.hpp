// A layout with what it is composed from: the values of its parameters and the rows of its data sets.
#pragma once

#include "database/connection.hpp"
#include "printing/composing/given_value.hpp"
#include "printing/composing/layout_index.hpp"
#include "printing/composing/scope.hpp"

#include <deque>

namespace tolvex::printing {

// The page that an expression stands on. Numbers begin at 1 and begin anew where a page break says so; the
// overall ones never do.
struct PageNumbers
{
    int page = 1, total = 1, overall_page = 1, overall_total = 1;
};

// What a report shares with its subreports.
struct Composition
{
    Connection& connection;
    Date now;
    PageNumbers numbers{};
    std::vector<Remark> remarks{};                        // each once
    std::map<Text, std::unique_ptr<Layout>> subreports{}; // by their files, read once
    std::vector<Text> open_files{};                       // of the reports around what is being placed
    std::size_t cells = 0;                                // of tables, measured so far

    void remark(const Place& place, const Text& text);
    // Throws Error when there are more than any report needs: tables in tables that multiply each other.
    void count_cells(std::size_t more);
};

class Report
{
public:
    // Gives its parameters their values and runs the data sets. Throws Error for a value that is missing or
    // of another type, and for a query that fails, with the name of the data set.
    Report(const Layout& layout, const std::vector<GivenValue>& given, Composition& composition);
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    const Layout& layout() const { return layout_; }
    Composition& composition() const { return composition_; }
    const Culture& culture() const { return *culture_; }

    // All rows of a data set as a scope; the only one for the empty name. Null when there is no such data
    // set.
    const Scope* data_set(TextView name) const;
    // The scope of what stands in no data region: the only data set or, of several, the first.
    const Scope* outermost() const { return data_sets_.empty() ? nullptr : &data_sets_.front(); }
    const Variant* parameter(TextView name) const;
    // The words for a value of a parameter; the value itself where the layout has none.
    Variant parameter_label(TextView name, const Variant& value) const;
    const Variable* variable(TextView name) const;
    const LayoutIndex& index() const { return index_; }

    // The sum, count … that RunningValue has come to, kept so that a long table is gone through once.
    struct Running
    {
        const AggregateCall* call;
        std::uint32_t begin, upto;
        const RowOrder* order;
        std::uint32_t first_row; // a later table's order may lie where an earlier one's was
        Accumulator accumulator;
    };
    Running& running(const AggregateCall& call, const Scope& scope) const;

private:
    void check_names(const std::vector<GivenValue>& given) const;
    void set_parameters(const std::vector<GivenValue>& given);
    Variant default_of(const ReportParameter& parameter, const std::vector<GivenValue>& given);
    void run_data_set(const DataSet& data_set, const std::vector<GivenValue>& given);
    void fill(DataTable& table, Recordset rows);

    const Layout& layout_;
    Composition& composition_;
    const Culture* culture_;
    std::vector<std::pair<Text, Variant>> parameters_;
    std::deque<DataTable> tables_;
    std::deque<RowOrder> orders_;
    std::deque<Scope> data_sets_;
    const LayoutIndex index_;
    mutable std::deque<Running> running_;
};

} // namespace tolvex::printing
