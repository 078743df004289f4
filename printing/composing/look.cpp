#include "printing/composing/look.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "printing/rdl/lengths.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

const pages::Font default_font{u"Arial", 10, false, false};

bool is_bold(TextView weight)
{
    if (weight.empty()) return false;
    if (is_digit(weight[0])) return leading_number(weight) >= 600;
    return equal_ignoring_case(weight, u"Bold") || equal_ignoring_case(weight, u"Bolder") ||
           equal_ignoring_case(weight, u"SemiBold") || equal_ignoring_case(weight, u"ExtraBold") ||
           equal_ignoring_case(weight, u"Heavy");
}

Stroke stroke_of(const BorderStyle& border, const ScopeEnvironment& here, const Place& place)
{
    const Text style = property(border.style, here, place);
    Stroke stroke;
    if (style.empty() || equal_ignoring_case(style, u"None")) return stroke;
    stroke.width = length_property(border.width, here, place, 1);
    stroke.color = color(property(border.color, here, place)).value_or(pages::Color{});
    if (equal_ignoring_case(style, u"Dotted")) stroke.dashes = pages::Dashes::dotted;
    if (equal_ignoring_case(style, u"Dashed") || equal_ignoring_case(style, u"DashDot"))
        stroke.dashes = pages::Dashes::dashed;
    stroke.twofold = equal_ignoring_case(style, u"Double");
    return stroke;
}

Look::Vertical vertical_of(TextView align)
{
    if (equal_ignoring_case(align, u"Middle")) return Look::Vertical::middle;
    return equal_ignoring_case(align, u"Bottom") ? Look::Vertical::bottom : Look::Vertical::top;
}

int rotation_of(TextView writing_mode)
{
    if (equal_ignoring_case(writing_mode, u"Vertical") || equal_ignoring_case(writing_mode, u"tb-rl"))
        return 90;
    return equal_ignoring_case(writing_mode, u"Rotate270") ? 270 : 0;
}

} // namespace

Text property(const Expression& expression, const ScopeEnvironment& here, const Place& place)
{
    if (expression.is_literal()) return expression.source();
    try {
        return expression.evaluate(here).text();
    } catch (const Error& error) {
        here.report().composition().remark(place, error.description());
        return {};
    }
}

double length_property(const Expression& expression, const ScopeEnvironment& here, const Place& place,
                       double otherwise)
{
    if (expression.is_empty()) return otherwise;
    return points(property(expression, here, place)).value_or(otherwise);
}

bool is_true(const Expression& expression, const ScopeEnvironment& here, const Place& place)
{
    if (expression.is_empty()) return false;
    try {
        const Variant value = expression.evaluate(here);
        if (const auto* text = value.get_if<Text>()) return equal_ignoring_case(trim(*text), u"true");
        return value.boolean();
    } catch (const Error& error) {
        here.report().composition().remark(place, error.description());
        return false;
    }
}

Look look_of(const Style& style, const ScopeEnvironment& here, const Place& place)
{
    Look look;
    look.left = stroke_of(style.left, here, place);
    look.top = stroke_of(style.top, here, place);
    look.right = stroke_of(style.right, here, place);
    look.bottom = stroke_of(style.bottom, here, place);
    look.background = color(property(style.background_color, here, place));
    look.padding_left = length_property(style.padding_left, here, place);
    look.padding_top = length_property(style.padding_top, here, place);
    look.padding_right = length_property(style.padding_right, here, place);
    look.padding_bottom = length_property(style.padding_bottom, here, place);
    look.vertical = vertical_of(property(style.vertical_align, here, place));
    look.rotation = rotation_of(property(style.writing_mode, here, place));
    return look;
}

TextLook text_look_of(const Style& style, const ScopeEnvironment& here, const Place& place)
{
    TextLook look;
    look.font = default_font;
    if (const Text family = property(style.font_family, here, place); !family.empty())
        look.font.family = family;
    look.font.size =
        std::clamp(length_property(style.font_size, here, place, default_font.size), 1.0, 1000.0);
    look.font.bold = is_bold(property(style.font_weight, here, place));
    look.font.italic = equal_ignoring_case(property(style.font_style, here, place), u"Italic");
    look.color = color(property(style.color, here, place)).value_or(pages::Color{});
    const Text decoration = property(style.decoration, here, place);
    look.underlined = equal_ignoring_case(decoration, u"Underline");
    look.overlined = equal_ignoring_case(decoration, u"Overline");
    look.struck = equal_ignoring_case(decoration, u"LineThrough");
    look.format = property(style.format, here, place);
    const Text language = property(style.language, here, place);
    look.culture = language.empty() ? &here.culture() : &culture(language);
    return look;
}

Horizontal horizontal_of(const Style& style, const ScopeEnvironment& here, const Place& place)
{
    const Text align = property(style.text_align, here, place);
    if (equal_ignoring_case(align, u"Left")) return Horizontal::left;
    if (equal_ignoring_case(align, u"Center")) return Horizontal::center;
    if (equal_ignoring_case(align, u"Right")) return Horizontal::right;
    return Horizontal::general;
}

} // namespace tolvex::printing
