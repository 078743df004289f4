// Text boxes and groups of a layout by their names, in any letter case.
#pragma once

#include "printing/rdl/layout.hpp"

#include <set>
#include <unordered_map>

namespace tolvex::printing {

class LayoutIndex
{
public:
    explicit LayoutIndex(const Layout& layout);

    struct TextBox
    {
        const ReportItem* item = nullptr;
        Text
            scope; // the group or data region that it stands in; empty for none, and in the cells of a matrix
    };
    // Null when there is none.
    const TextBox* text_box(TextView name) const;
    bool has_group(TextView name) const { return groups_.contains(lower_case(name)); }

private:
    void add(const std::vector<ReportItem>& items, const Text& scope);
    void add(const ReportItem& item, const Text& scope);
    void add(const Tablix& tablix, const Text& region);
    void add(const std::vector<TablixMember>& members, const Text& scope, std::vector<Text>& leaves);

    std::unordered_map<Text, TextBox> text_boxes_;
    std::set<Text> groups_;
};

} // namespace tolvex::printing
