#include "printing/rdl/layout_visitor.hpp"

namespace tolvex::printing {

namespace {

class Way
{
public:
    Way(const Layout& layout, LayoutVisitor& visitor) : layout_(layout), visitor_(visitor) {}

    void go()
    {
        const Surroundings report{{u"Report", 1}, {}};
        expression(layout_.language, report);
        variables(layout_.variables, report);
        for (const ReportParameter& one : layout_.parameters) parameter(one);
        for (const DataSet& one : layout_.data_sets) data_set(one);
        style(layout_.page_style, report);
        style(layout_.body_style, report);
        if (layout_.header) section(*layout_.header, report);
        rectangle(layout_.body, report);
        if (layout_.footer) section(*layout_.footer, report);
    }

private:
    void expression(const Expression& expression, const Surroundings& at)
    {
        if (!expression.is_empty()) visitor_.visit_expression(expression, at);
    }

    void variables(const std::vector<Variable>& variables, const Surroundings& at)
    {
        for (const Variable& variable : variables) expression(variable.value, at);
    }

    void filters(const std::vector<Filter>& filters, const Surroundings& at)
    {
        for (const Filter& filter : filters) {
            expression(filter.value, at);
            for (const Expression& operand : filter.operands) expression(operand, at);
        }
    }

    void sorting(const std::vector<Sorting>& sorting, const Surroundings& at)
    {
        for (const Sorting& one : sorting) expression(one.value, at);
    }

    void page_break(const PageBreak& page_break, const Surroundings& at)
    {
        expression(page_break.disabled, at);
        expression(page_break.reset_page_number, at);
    }

    void parameter(const ReportParameter& parameter)
    {
        const Surroundings at{parameter.place, {}};
        for (const Expression& value : parameter.defaults) expression(value, at);
        for (const ParameterValue& valid : parameter.valid_values) {
            expression(valid.value, at);
            expression(valid.label, at);
        }
    }

    void data_set(const DataSet& data_set)
    {
        const Surroundings outside{data_set.place, {}}, inside{data_set.place, data_set.name};
        expression(data_set.command, outside);
        for (const QueryParameter& parameter : data_set.parameters) expression(parameter.value, outside);
        for (const Field& field : data_set.fields) expression(field.value, inside);
        filters(data_set.filters, inside);
        sorting(data_set.sorting, inside);
    }

    void border(const BorderStyle& border, const Surroundings& at)
    {
        expression(border.style, at);
        expression(border.width, at);
        expression(border.color, at);
    }

    void style(const Style& style, const Surroundings& at)
    {
        for (const BorderStyle* side : {&style.left, &style.top, &style.right, &style.bottom})
            border(*side, at);
        for (const Expression* property :
             {&style.background_color, &style.color, &style.font_family, &style.font_size, &style.font_weight,
              &style.font_style, &style.decoration, &style.format, &style.language, &style.text_align,
              &style.vertical_align, &style.writing_mode, &style.line_height, &style.padding_left,
              &style.padding_top, &style.padding_right, &style.padding_bottom})
            expression(*property, at);
    }

    void section(const PageSection& section, const Surroundings& at)
    {
        style(section.style, at);
        items(section.items, at);
    }

    void items(const std::vector<ReportItem>& items, const Surroundings& around)
    {
        for (const ReportItem& one : items) item(one, around);
    }

    void item(const ReportItem& item, const Surroundings& around)
    {
        const Surroundings at{item.place, around.data_set};
        visitor_.visit_item(item, at);
        style(item.style, at);
        for (const Expression* property :
             {&item.hidden, &item.bookmark, &item.document_map_label, &item.action.hyperlink})
            expression(*property, at);
        std::visit([&](const auto& content) { this->content(content, at); }, item.content);
    }

    void content(const Textbox& textbox, const Surroundings& at)
    {
        for (const Paragraph& one : textbox.paragraphs) paragraph(one, at);
    }

    void content(const Line&, const Surroundings&) {}
    void content(const Unsupported&, const Surroundings&) {}
    void content(const Rectangle& content, const Surroundings& at) { rectangle(content, at); }

    void content(const Image& image, const Surroundings& at)
    {
        expression(image.value, at);
        expression(image.mime_type, at);
    }

    void content(const Subreport& subreport, const Surroundings& at)
    {
        for (const SubreportParameter& parameter : subreport.parameters) expression(parameter.value, at);
        expression(subreport.no_rows_message, at);
    }

    void content(const std::shared_ptr<const Tablix>& tablix, const Surroundings& around)
    {
        const Surroundings at{around.place, data_set_of(*tablix, around)};
        for (const auto& row : tablix->corner) cells(row, at);
        members(tablix->column_members, at);
        members(tablix->row_members, at);
        for (const TablixRow& row : tablix->rows) cells(row.cells, at);
        filters(tablix->filters, at);
        sorting(tablix->sorting, at);
        page_break(tablix->page_break, at);
        expression(tablix->no_rows_message, at);
    }

    Text data_set_of(const Tablix& tablix, const Surroundings& around) const
    {
        if (!tablix.data_set.empty()) return tablix.data_set;
        if (!around.data_set.empty()) return around.data_set;
        return layout_.data_sets.size() == 1 ? layout_.data_sets.front().name : Text();
    }

    void rectangle(const Rectangle& rectangle, const Surroundings& at)
    {
        items(rectangle.items, at);
        page_break(rectangle.page_break, at);
    }

    void paragraph(const Paragraph& paragraph, const Surroundings& at)
    {
        style(paragraph.style, at);
        for (const Expression* property :
             {&paragraph.left_indent, &paragraph.right_indent, &paragraph.hanging_indent,
              &paragraph.space_before, &paragraph.space_after})
            expression(*property, at);
        for (const TextRun& run : paragraph.runs) {
            expression(run.value, at);
            style(run.style, at);
            expression(run.action.hyperlink, at);
        }
    }

    void cells(const std::vector<TablixCell>& cells, const Surroundings& at)
    {
        for (const TablixCell& cell : cells)
            if (cell.content) item(*cell.content, at);
    }

    void members(const std::vector<TablixMember>& members, const Surroundings& at)
    {
        for (const TablixMember& one : members) member(one, {one.place, at.data_set});
    }

    void member(const TablixMember& member, const Surroundings& at)
    {
        visitor_.visit_member(member, at);
        expression(member.hidden, at);
        sorting(member.sorting, at);
        if (member.group) group(*member.group, at);
        if (member.header && member.header->content) item(*member.header->content, at);
        members(member.members, at);
    }

    void group(const Group& group, const Surroundings& at)
    {
        for (const Expression& by : group.by) expression(by, at);
        filters(group.filters, at);
        variables(group.variables, at);
        page_break(group.page_break, at);
        expression(group.document_map_label, at);
    }

    const Layout& layout_;
    LayoutVisitor& visitor_;
};

} // namespace

void visit(const Layout& layout, LayoutVisitor& visitor) { Way(layout, visitor).go(); }

} // namespace tolvex::printing
