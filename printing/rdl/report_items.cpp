#include "printing/rdl/report_items.hpp"

#include "printing/rdl/data_regions.hpp"
#include "printing/rdl/groups.hpp"
#include "printing/rdl/styles.hpp"

#include <array>
#include <cmath>

namespace tolvex::printing {

namespace {

// <Action>, or the first of the <Actions> of 2008. Where a click would lead to in a viewer is told and left
// out.
Action read_action(Reading& in, const Element& parent)
{
    const Element* const info = in.child(parent, u"ActionInfo");
    const std::vector<const Element*> actions =
        info == nullptr ? in.children(parent, u"Action") : in.members(*info, u"Actions", u"Action");
    return actions.empty() ? Action() : Action{in.expression(*actions.front(), u"Hyperlink")};
}

TextRun read_run(Reading& in, const Element& element, const Style& around)
{
    TextRun run{in.expression(element, u"Value"), with_text_of(read_style(in, element), around),
                read_action(in, element)};
    if (run.style.font_family.is_empty()) run.style.font_family = in.default_font;
    in.text(element, u"Label"); // what designers show for the expression
    return run;
}

Paragraph::List read_list_style(Reading& in, const Element& paragraph)
{
    const Text style = in.text(paragraph, u"ListStyle");
    if (style == u"Bulleted") return Paragraph::List::bulleted;
    return style == u"Numbered" ? Paragraph::List::numbered : Paragraph::List::none;
}

Paragraph read_paragraph(Reading& in, const Element& element, const Style& around)
{
    Paragraph paragraph;
    paragraph.style = with_text_of(read_style(in, element), around);
    for (const Element* run : in.members(element, u"TextRuns", u"TextRun"))
        paragraph.runs.push_back(read_run(in, *run, paragraph.style));
    paragraph.left_indent = in.length_expression(element, u"LeftIndent");
    paragraph.right_indent = in.length_expression(element, u"RightIndent");
    paragraph.hanging_indent = in.length_expression(element, u"HangingIndent");
    paragraph.space_before = in.length_expression(element, u"SpaceBefore");
    paragraph.space_after = in.length_expression(element, u"SpaceAfter");
    paragraph.list_level = in.whole_number(element, u"ListLevel").value_or(0);
    paragraph.list = read_list_style(in, element);
    return paragraph;
}

// The <Value> of 2005 is one paragraph of one run.
Paragraph read_value(Reading& in, const Element& textbox, const Style& style)
{
    Paragraph paragraph;
    paragraph.style = with_text_of({}, style);
    paragraph.runs.push_back({in.expression(textbox, u"Value"), paragraph.style, {}});
    Expression& font = paragraph.runs.front().style.font_family;
    if (font.is_empty()) font = in.default_font;
    return paragraph;
}

void read_textbox(Reading& in, const Element& element, ReportItem& item)
{
    Textbox textbox;
    textbox.can_grow = in.boolean(element, u"CanGrow");
    textbox.can_shrink = in.boolean(element, u"CanShrink");
    textbox.hide_duplicates = in.text(element, u"HideDuplicates");
    if (in.child(element, u"Paragraphs") == nullptr)
        textbox.paragraphs.push_back(read_value(in, element, item.style));
    for (const Element* paragraph : in.members(element, u"Paragraphs", u"Paragraph"))
        textbox.paragraphs.push_back(read_paragraph(in, *paragraph, item.style));
    item.content = std::move(textbox);
}

// The box that the line crosses, whichever way it is drawn.
void read_line(Reading& in, const Element& element, ReportItem& item)
{
    const double width = in.signed_length(element, u"Width").value_or(0);
    const double height = in.signed_length(element, u"Height").value_or(0);
    item.left += std::min(width, 0.0);
    item.top += std::min(height, 0.0);
    item.width = std::abs(width);
    item.height = std::abs(height);
    item.content = Line{(width < 0) != (height < 0)};
}

void read_rectangle(Reading& in, const Element& element, ReportItem& item)
{
    item.content = Rectangle{read_items(in, element, {item.width, item.height}), read_page_break(in, element),
                             in.boolean(element, u"KeepTogether")};
}

Image::Source read_source(Reading& in, const Element& image)
{
    const Text source = in.text(image, u"Source");
    if (source == u"Embedded") return Image::Source::embedded;
    if (source == u"External") return Image::Source::external;
    if (source == u"Database") return Image::Source::database;
    throw wrong(image, u"no se conoce el origen de imagen \"" + source + u"\"");
}

Image::Sizing read_sizing(Reading& in, const Element& image)
{
    const Text sizing = in.text(image, u"Sizing");
    if (sizing.empty() || sizing == u"AutoSize") return Image::Sizing::auto_size;
    if (sizing == u"Fit") return Image::Sizing::fit;
    if (sizing == u"FitProportional") return Image::Sizing::fit_proportional;
    if (sizing == u"Clip") return Image::Sizing::clip;
    throw wrong(image, u"no se conoce el ajuste de imagen \"" + sizing + u"\"");
}

void read_image(Reading& in, const Element& element, ReportItem& item)
{
    item.content = Image{read_source(in, element), read_sizing(in, element), in.expression(element, u"Value"),
                         in.expression(element, u"MIMEType")};
}

void read_subreport(Reading& in, const Element& element, ReportItem& item)
{
    Subreport subreport;
    subreport.report = in.text(element, u"ReportName");
    for (const Element* parameter : in.members(element, u"Parameters", u"Parameter"))
        subreport.parameters.push_back({attribute(*parameter, u"Name"), in.expression(*parameter, u"Value")});
    subreport.no_rows_message = in.expression(element, u"NoRowsMessage", u"NoRows");
    item.content = std::move(subreport);
}

void read_unsupported(Reading& in, const Element& element, ReportItem& item)
{
    in.remark(element, element.name + u" no se dibuja");
    in.pass_over(element);
    item.content = Unsupported{element.name};
}

using ReadContent = void (*)(Reading&, const Element&, ReportItem&);

struct Kind
{
    TextView name;
    ReadContent read;
};

constexpr std::array<Kind, 9> kinds = {{{u"Textbox", read_textbox},
                                        {u"Line", read_line},
                                        {u"Rectangle", read_rectangle},
                                        {u"Image", read_image},
                                        {u"Subreport", read_subreport},
                                        {u"Tablix", read_tablix},
                                        {u"Table", read_table},
                                        {u"Matrix", read_matrix},
                                        {u"List", read_list}}};

ReadContent reader_of(const Element& element)
{
    for (const Kind& kind : kinds)
        if (kind.name == element.name) return kind.read;
    return read_unsupported;
}

// What an item does not say of its size is the rest of what it stands in. A line reads its own, which may be
// negative.
void read_box(Reading& in, const Element& element, Size room, ReportItem& item)
{
    item.left = in.length(element, u"Left").value_or(0);
    item.top = in.length(element, u"Top").value_or(0);
    if (element.name == u"Line") return;
    item.width = in.length(element, u"Width").value_or(std::max(room.width - item.left, 0.0));
    item.height = in.length(element, u"Height").value_or(std::max(room.height - item.top, 0.0));
}

ReportItem read_item(Reading& in, const Element& element, Size room)
{
    in.name_item(element);
    ReportItem item;
    item.name = attribute(element, u"Name");
    item.place = place_of(element);
    read_box(in, element, room, item);
    item.z_index = in.whole_number(element, u"ZIndex").value_or(0);
    item.style = read_style(in, element);
    item.hidden = read_hidden(in, element);
    item.bookmark = in.expression(element, u"Bookmark");
    item.document_map_label = in.expression(element, u"DocumentMapLabel", u"Label");
    item.action = read_action(in, element);
    reader_of(element)(in, element, item);
    return item;
}

} // namespace

std::vector<ReportItem> read_items(Reading& in, const Element& container, Size room)
{
    std::vector<ReportItem> items;
    const Element* const all = in.child(container, u"ReportItems");
    if (all == nullptr) return items;
    for (const Element* element : in.children(*all)) items.push_back(read_item(in, *element, room));
    return items;
}

std::shared_ptr<const ReportItem> read_content(Reading& in, const Element& cell, Size room)
{
    const Element* const contents = in.child(cell, u"CellContents", u"ReportItems");
    if (contents == nullptr) return nullptr;
    std::vector<const Element*> elements = in.children(*contents);
    std::erase_if(elements, [](const Element* e) { return e->name == u"ColSpan" || e->name == u"RowSpan"; });
    if (elements.empty()) return nullptr;
    if (elements.size() > 1) throw wrong(*elements[1], u"en una celda cabe un solo elemento");
    ReportItem item = read_item(in, *elements.front(), room);
    item.left = item.top = 0;
    item.width = room.width;
    item.height = room.height;
    return std::make_shared<const ReportItem>(std::move(item));
}

} // namespace tolvex::printing
