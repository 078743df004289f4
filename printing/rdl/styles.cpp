#include "printing/rdl/styles.hpp"

namespace tolvex::printing {

namespace {

struct Side
{
    BorderStyle Style::*border;
    TextView name, newer_name;
};

constexpr Side sides[] = {{&Style::left, u"Left", u"LeftBorder"},
                          {&Style::top, u"Top", u"TopBorder"},
                          {&Style::right, u"Right", u"RightBorder"},
                          {&Style::bottom, u"Bottom", u"BottomBorder"}};

constexpr Expression Style::*text_properties[] = {
    &Style::color,      &Style::font_family, &Style::font_size, &Style::font_weight, &Style::font_style,
    &Style::decoration, &Style::format,      &Style::language,  &Style::text_align,  &Style::line_height};

constexpr Expression Style::*box_properties[] = {
    &Style::background_color, &Style::vertical_align, &Style::writing_mode,  &Style::padding_left,
    &Style::padding_right,    &Style::padding_top,    &Style::padding_bottom};

void complete(Expression& expression, const Expression& with)
{
    if (expression.is_empty()) expression = with;
}

void complete(BorderStyle& border, const BorderStyle& with)
{
    complete(border.style, with.style);
    complete(border.width, with.width);
    complete(border.color, with.color);
}

// <Border> and <LeftBorder> of 2008: one element for a side.
BorderStyle read_side(Reading& in, const Element& style, TextView name)
{
    const Element* const border = in.child(style, name);
    if (border == nullptr) return {};
    return {in.choice(*border, u"Style"), in.length_expression(*border, u"Width"),
            in.choice(*border, u"Color")};
}

// <BorderStyle>, <BorderWidth> and <BorderColor> of 2005: one element for a property, with its sides.
BorderStyle read_properties_of_side(Reading& in, const Element& style, TextView side)
{
    BorderStyle border;
    if (const Element* const styles = in.child(style, u"BorderStyle"))
        border.style = in.expression(*styles, side);
    if (const Element* const widths = in.child(style, u"BorderWidth"))
        border.width = in.length_expression(*widths, side);
    if (const Element* const colors = in.child(style, u"BorderColor"))
        border.color = in.expression(*colors, side);
    return border;
}

BorderStyle read_border(Reading& in, const Element& style, TextView side, TextView newer_name)
{
    BorderStyle border = read_side(in, style, newer_name);
    complete(border, read_properties_of_side(in, style, side));
    return border;
}

void read_borders(Reading& in, const Element& element, Style& style)
{
    const BorderStyle common = read_border(in, element, u"Default", u"Border");
    for (const Side& side : sides) {
        style.*side.border = read_border(in, element, side.name, side.newer_name);
        complete(style.*side.border, common);
    }
}

// General is the name of 2005 for what is later called Default.
Expression read_alignment(Reading& in, const Element& element)
{
    const Expression alignment = in.choice(element, u"TextAlign");
    return alignment.source() == u"General" ? Expression() : alignment;
}

} // namespace

Style read_style(Reading& in, const Element& parent)
{
    Style style;
    const Element* const element = in.child(parent, u"Style");
    if (element == nullptr) return style;
    read_borders(in, *element, style);
    style.background_color = in.choice(*element, u"BackgroundColor");
    style.color = in.choice(*element, u"Color");
    style.font_family = in.expression(*element, u"FontFamily");
    style.font_size = in.length_expression(*element, u"FontSize");
    style.font_weight = in.choice(*element, u"FontWeight");
    style.font_style = in.choice(*element, u"FontStyle");
    style.decoration = in.choice(*element, u"TextDecoration");
    style.format = in.expression(*element, u"Format");
    style.language = in.choice(*element, u"Language");
    style.text_align = read_alignment(in, *element);
    style.vertical_align = in.choice(*element, u"VerticalAlign");
    style.writing_mode = in.choice(*element, u"WritingMode");
    style.line_height = in.length_expression(*element, u"LineHeight");
    style.padding_left = in.length_expression(*element, u"PaddingLeft");
    style.padding_right = in.length_expression(*element, u"PaddingRight");
    style.padding_top = in.length_expression(*element, u"PaddingTop");
    style.padding_bottom = in.length_expression(*element, u"PaddingBottom");
    return style;
}

Style with_text_of(Style inner, const Style& outer)
{
    for (const auto property : text_properties) complete(inner.*property, outer.*property);
    return inner;
}

Style overlaid(const Style& above, const Style& below)
{
    Style style = with_text_of(above, below);
    for (const auto property : box_properties) complete(style.*property, below.*property);
    for (const Side& side : sides) complete(style.*side.border, below.*side.border);
    return style;
}

} // namespace tolvex::printing
