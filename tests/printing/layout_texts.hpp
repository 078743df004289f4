// Layouts as texts, and what was read of one as a text, for tests to compare.
#pragma once

#include "core/numbers.hpp"
#include "printing/rdl/layout.hpp"

namespace tolvex::printing::testing {

inline std::string report(const std::string& schema, const std::string& inside)
{
    return "<?xml version='1.0' encoding='utf-8'?>\n<Report"
           " xmlns='http://schemas.microsoft.com/sqlserver/reporting/" +
           schema +
           "/reportdefinition' xmlns:rd='http://schemas.microsoft.com/SQLServer/reporting/reportdesigner'>" +
           inside + "</Report>";
}

// A report of 2005 and one of 2010 with these items in a body of 400 x 300 points.
inline std::string report_2005(const std::string& items, const std::string& more = "")
{
    return report("2005/01", "<Width>400pt</Width><Body><Height>300pt</Height><ReportItems>\n" + items +
                                 "</ReportItems></Body>" + more);
}

inline std::string report_2010(const std::string& items, const std::string& more = "")
{
    return report("2010/01", "<ReportSections><ReportSection><Width>400pt</Width><Page/>"
                             "<Body><Height>300pt</Height><ReportItems>\n" +
                                 items + "</ReportItems></Body></ReportSection></ReportSections>" + more);
}

// A text box of each schema that shows a value and nothing else.
inline std::string textbox_2005(const std::string& name, const std::string& value)
{
    return "<Textbox Name='" + name + "'><Value>" + value + "</Value></Textbox>";
}

inline std::string textbox_2010(const std::string& name, const std::string& value)
{
    return "<Textbox Name='" + name + "'><Paragraphs><Paragraph><TextRuns><TextRun><Value>" + value +
           "</Value></TextRun></TextRuns></Paragraph></Paragraphs></Textbox>";
}

inline std::string number(double value) { return to_utf8(number_as_text(value)); }

std::string outline(const ReportItem& item, const std::string& indent = "");

inline std::string outline(const Expression& expression, const std::string& name)
{
    return expression.is_empty() ? "" : " " + name + "(" + to_utf8(expression.source()) + ")";
}

inline std::string outline(const std::vector<Sorting>& sorting)
{
    std::string text;
    for (const Sorting& one : sorting) text += outline(one.value, one.descending ? "down" : "up");
    return text;
}

inline std::string outline(const PageBreak& page_break)
{
    static const char* const names[] = {"", " break-start", " break-end", " break-both", " break-between"};
    return names[static_cast<int>(page_break.location)] + outline(page_break.disabled, "disabled") +
           outline(page_break.reset_page_number, "reset");
}

inline std::string outline(const std::vector<TablixMember>& members, const std::string& indent)
{
    std::string text;
    for (const TablixMember& member : members) {
        text += indent + (member.group ? "group " + to_utf8(member.group->name) : "static");
        if (member.group) {
            for (const Expression& by : member.group->by) text += outline(by, "by");
            text += outline(member.group->page_break) + outline(member.group->document_map_label, "label");
        }
        text += outline(member.sorting) + outline(member.hidden, "hidden");
        if (member.keep_with_group == KeepWithGroup::after) text += " with-next";
        if (member.keep_with_group == KeepWithGroup::before) text += " with-last";
        if (member.repeat_on_new_page) text += " repeats";
        text += "\n";
        if (member.header)
            text += indent + " header " + number(member.header->size) + "\n" +
                    (member.header->content ? outline(*member.header->content, indent + "  ") : "");
        text += outline(member.members, indent + "  ");
    }
    return text;
}

inline std::string outline(const std::vector<TablixCell>& cells, const std::string& indent)
{
    std::string text;
    for (const TablixCell& cell : cells) {
        if (cell.column_span * cell.row_span > 1)
            text += indent + "over " + std::to_string(cell.column_span) + " x " +
                    std::to_string(cell.row_span) + "\n";
        text += cell.content ? outline(*cell.content, indent) : indent + "-\n";
    }
    return text;
}

inline std::string outline(const Tablix& tablix, const std::string& indent)
{
    std::string text = indent + "data " + to_utf8(tablix.data_set) + outline(tablix.sorting) +
                       outline(tablix.page_break) + outline(tablix.no_rows_message, "none") + "\n";
    for (const Filter& filter : tablix.filters) {
        text += indent + "filter" + outline(filter.value, to_utf8(filter.comparison));
        for (const Expression& operand : filter.operands) text += outline(operand, "value");
        text += "\n";
    }
    text += indent + "columns";
    for (const double width : tablix.column_widths) text += " " + number(width);
    text += "\n" + outline(tablix.column_members, indent + "  ") + indent + "rows\n" +
            outline(tablix.row_members, indent + "  ");
    for (const auto& cells : tablix.corner) text += indent + "corner\n" + outline(cells, indent + "  ");
    for (const TablixRow& row : tablix.rows)
        text += indent + "row " + number(row.height) + "\n" + outline(row.cells, indent + "  ");
    return text;
}

// Its kind, name, box and content, a line each.
inline std::string outline(const ReportItem& item, const std::string& indent)
{
    static const char* const kinds[] = {"textbox",   "line",        "rectangle", "image",
                                        "subreport", "unsupported", "tablix"};
    std::string text = indent + kinds[item.content.index()] + " " + to_utf8(item.name) + " " +
                       number(item.left) + "," + number(item.top) + " " + number(item.width) + "x" +
                       number(item.height) + outline(item.hidden, "hidden") +
                       outline(item.document_map_label, "label") + outline(item.action.hyperlink, "link");
    if (const auto* const textbox = std::get_if<Textbox>(&item.content))
        for (const Paragraph& paragraph : textbox->paragraphs)
            for (const TextRun& run : paragraph.runs) text += outline(run.value, "text");
    text += "\n";
    if (const auto* const rectangle = std::get_if<Rectangle>(&item.content))
        for (const ReportItem& inner : rectangle->items) text += outline(inner, indent + "  ");
    if (const auto* const tablix = std::get_if<std::shared_ptr<const Tablix>>(&item.content))
        text += outline(**tablix, indent + "  ");
    return text;
}

inline std::string outline(const Layout& layout)
{
    std::string text;
    for (const ReportItem& item : layout.body.items) text += outline(item);
    return text;
}

// One a line: line, element, text.
inline std::string outline(const std::vector<Remark>& remarks)
{
    std::string text;
    for (const Remark& remark : remarks)
        text += std::to_string(remark.place.line) + " " +
                to_utf8(remark.place.element + u": " + remark.text) + "\n";
    return text;
}

} // namespace tolvex::printing::testing
