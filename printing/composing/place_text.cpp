#include "printing/composing/place_text.hpp"

#include "core/errors.hpp"
#include "platform/pages/fonts.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

using pages::Box;

constexpr double tolerance = 1; // points that a line may stand below a box that does not grow

bool is_number_or_date(const Variant& value)
{
    return value.get_if<std::int64_t>() || value.get_if<double>() || value.get_if<Currency>() ||
           value.get_if<Date>();
}

// Line ends of every make are one, a tab is some blanks.
Text as_lines(const Text& text)
{
    if (text.find_first_of(u"\r\t") == Text::npos) return text;
    return replace_all(replace_all(replace_all(text, u"\r\n", u"\n"), u"\r", u"\n"), u"\t", u"    ");
}

struct RunText
{
    Text text;
    Variant value;
};

// What a run shows; deliberate: what fails shows "#Error", as users of layout designers know it.
RunText run_text(const TextRun& run, const TextLook& look, const ScopeEnvironment& here, const Place& place)
{
    try {
        const Variant value = run.value.evaluate(here);
        if (run.value.is_literal()) return {as_lines(run.value.source()), value};
        return {as_lines(formatted(value, look.format, *look.culture)), value};
    } catch (const Error& error) {
        here.report().composition().remark(place, error.description());
        return {u"#Error", u"#Error"};
    }
}

Horizontal resolved(Horizontal horizontal, const Variant& value)
{
    if (horizontal != Horizontal::general) return horizontal;
    return is_number_or_date(value) ? Horizontal::right : Horizontal::left;
}

Text bullet(const Paragraph& paragraph, int number)
{
    if (paragraph.list == Paragraph::List::bulleted) return u"•  ";
    return paragraph.list == Paragraph::List::numbered ? decimal(number) + u".  " : u"";
}

class TextLayer
{
public:
    TextLayer(Canvas& canvas, const ReportItem& item, const Scope* scope)
        : canvas_(canvas), here_(canvas.environment(scope)), item_(item),
          laid_(&item, scope, canvas.look(item, here_))
    {}

    LaidText laid_in(const Box& box) &&
    {
        std::vector<ParagraphText> paragraphs;
        for (const Paragraph& paragraph : std::get<Textbox>(item_.content).paragraphs)
            paragraphs.push_back(paragraph_text(paragraph));
        return std::move(*this).laid_in(box, paragraphs);
    }

    LaidText words_in(const Box& box, const Text& words) &&
    {
        const TextLook& look = text_look(item_.style);
        ParagraphText paragraph;
        paragraph.spans.push_back({as_lines(words), &look, {}});
        paragraph.horizontal = horizontal_of(item_.style, here_, item_.place);
        return std::move(*this).laid_in(box, {paragraph});
    }

private:
    LaidText laid_in(const Box& box, const std::vector<ParagraphText>& paragraphs) &&
    {
        const Look& look = laid_.look;
        const double across = box.width - look.padding_left - look.padding_right;
        const double down = box.height - look.padding_top - look.padding_bottom;
        laid_.lines = broken_into_lines(paragraphs, std::max(look.rotation ? down : across, 1.0));
        for (const TextLine& line : laid_.lines) laid_.height += line.space_before + line.height();
        laid_.height = look.rotation ? box.height : laid_.height + look.padding_top + look.padding_bottom;
        return std::move(laid_);
    }

    ParagraphText paragraph_text(const Paragraph& paragraph)
    {
        ParagraphText text;
        number_ = paragraph.list == Paragraph::List::numbered ? number_ + 1 : 0;
        Horizontal horizontal = horizontal_of(paragraph.style, here_, item_.place);
        const Text mark = bullet(paragraph, number_);
        Variant value;
        for (const TextRun& run : paragraph.runs) {
            const TextLook& look = text_look(run.style);
            RunText shown = run_text(run, look, here_, item_.place);
            if (&run == &paragraph.runs.front()) {
                value = shown.value;
                shown.text.insert(0, mark);
                text.hanging_indent = pages::text_width(look.font, mark);
            }
            text.spans.push_back(
                {std::move(shown.text), &look, property(run.action.hyperlink, here_, item_.place)});
        }
        if (first_) laid_.value = value;
        first_ = false;
        text.horizontal = resolved(horizontal, value);
        const auto length = [&](const Expression& each) { return length_property(each, here_, item_.place); };
        text.left_indent = length(paragraph.left_indent) + 18 * paragraph.list_level;
        text.right_indent = length(paragraph.right_indent);
        text.hanging_indent += length(paragraph.hanging_indent);
        text.line_height = length(paragraph.style.line_height);
        text.space_before = length(paragraph.space_before);
        text.space_after = length(paragraph.space_after);
        return text;
    }

    const TextLook& text_look(const Style& style)
    {
        if (const TextLook* known = canvas_.literal_text_look(style, here_, item_.place)) return *known;
        return laid_.text_looks.emplace_back(text_look_of(style, here_, item_.place));
    }

    Canvas& canvas_;
    ScopeEnvironment here_;
    const ReportItem& item_;
    LaidText laid_;
    int number_ = 0;
    bool first_ = true;
};

Box inner_box(const Look& look, const Box& box)
{
    return {box.left + look.padding_left, box.top + look.padding_top,
            std::max(box.width - look.padding_left - look.padding_right, 0.0),
            std::max(box.height - look.padding_top - look.padding_bottom, 0.0)};
}

double offset(const LaidText& laid, double room)
{
    double used = 0;
    for (const TextLine& line : laid.lines) used += line.space_before + line.height();
    if (laid.look.vertical == Look::Vertical::top || used >= room) return 0;
    return laid.look.vertical == Look::Vertical::bottom ? room - used : (room - used) / 2;
}

double start_of(const TextLine& line)
{
    const double rest = line.room - line.width;
    if (line.horizontal == Horizontal::right) return line.indent + rest;
    return line.indent + (line.horizontal == Horizontal::center ? rest / 2 : 0);
}

// Puts the spans of a line from `start` on, along the line's angle.
class LinePainter
{
public:
    LinePainter(Strip& strip, double angle) : strip_(strip), angle_(angle) {}

    void put(const TextLine& line, pages::Point start)
    {
        for (const Span& span : line.spans) {
            const double width = pages::text_width(span.look->font, span.text);
            strip_.put(pages::TextMark{start, span.text, span.look->font, span.look->color, angle_, 0});
            decorate(*span.look, start, width);
            if (!span.address.empty()) strip_.put(pages::LinkMark{area(line, start, width), span.address});
            start = along(start, width, 0);
        }
    }

private:
    // A point `on` further along the line and `below` it.
    pages::Point along(pages::Point from, double on, double below) const
    {
        if (angle_ == 90) return {from.x - below, from.y + on};
        if (angle_ == 270) return {from.x + below, from.y - on};
        return {from.x + on, from.y + below};
    }

    void decorate(const TextLook& look, pages::Point start, double width)
    {
        const pages::FontMeasures& measures = pages::measures(look.font);
        const double size = look.font.size;
        if (look.underlined) rule(look, start, width, measures.underline * size);
        if (look.struck) rule(look, start, width, -0.3 * size);
        if (look.overlined) rule(look, start, width, -measures.ascent * size);
    }

    void rule(const TextLook& look, pages::Point start, double width, double below)
    {
        strip_.put(pages::LineMark{along(start, 0, below), along(start, width, below), look.font.size / 16,
                                   look.color, pages::Dashes::solid});
    }

    Box area(const TextLine& line, pages::Point start, double width) const
    {
        const pages::Point a = along(start, 0, -line.ascent), b = along(start, width, line.descent);
        return {std::min(a.x, b.x), std::min(a.y, b.y), std::abs(a.x - b.x), std::abs(a.y - b.y)};
    }

    Strip& strip_;
    double angle_;
};

// Lines from the top, each whole on its page; where the box ends below the last one.
double put_lines(Strip& strip, const LaidText& laid, const Box& box, bool may_grow)
{
    const Box inner = inner_box(laid.look, box);
    LinePainter painter(strip, 0);
    double y = inner.top + offset(laid, inner.height);
    for (const TextLine& line : laid.lines) {
        y += line.space_before;
        const bool first = &line == &laid.lines.front();
        if (!may_grow && !first && y + line.height() > inner.bottom() + tolerance) break;
        y = strip.make_room(y, line.height());
        painter.put(line, {inner.left + start_of(line), y + line.ascent});
        y += line.height();
    }
    return y + laid.look.padding_bottom;
}

void put_upright_lines(Strip& strip, const LaidText& laid, const Box& box)
{
    const Box inner = inner_box(laid.look, box);
    LinePainter painter(strip, laid.look.rotation);
    double across = offset(laid, inner.width);
    for (const TextLine& line : laid.lines) {
        across += line.space_before;
        if (laid.look.rotation == 90)
            painter.put(line, {inner.right() - across - line.ascent, inner.top + start_of(line)});
        else
            painter.put(line, {inner.left + across + line.ascent, inner.bottom() - start_of(line)});
        across += line.height();
    }
}

bool hides_duplicate(Canvas& canvas, const LaidText& laid, double y)
{
    const auto* textbox = std::get_if<Textbox>(&laid.item->content);
    if (!textbox || textbox->hide_duplicates.empty()) return false;
    return canvas.is_duplicate(*laid.item, scope_named(laid.scope, textbox->hide_duplicates), laid.value, y);
}

} // namespace

LaidText lay_text(Canvas& canvas, const ReportItem& item, const Box& box, const Scope* scope)
{
    return TextLayer(canvas, item, scope).laid_in(box);
}

LaidText lay_words(Canvas& canvas, const ReportItem& item, const Text& words, double width,
                   const Scope* scope)
{
    return TextLayer(canvas, item, scope).words_in({0, 0, width, 0}, words);
}

double height_with(const LaidText& laid, double height)
{
    const auto& box = std::get<Textbox>(laid.item->content);
    if (box.can_grow && laid.height > height) return laid.height;
    return box.can_shrink && laid.height < height ? laid.height : height;
}

void record_hidden(Canvas& canvas, const ReportItem& item, double y, const Scope* scope)
{
    if (!std::holds_alternative<Textbox>(item.content) || !canvas.is_read_by_page_sections(item)) return;
    const LaidText laid = lay_text(canvas, item, {0, 0, item.width, item.height}, scope);
    canvas.strip().record(y, item, laid.value);
}

double place_text(Canvas& canvas, const LaidText& laid, const Box& box)
{
    const Strip::Behind behind = canvas.strip().behind(box.top);
    const double bottom = std::max(box.bottom(), put_text(canvas, laid, box));
    put_frame(canvas, laid, {box.left, box.top, box.width, bottom - box.top}, behind);
    return bottom;
}

double put_text(Canvas& canvas, const LaidText& laid, const Box& box)
{
    Strip& strip = canvas.strip();
    if (hides_duplicate(canvas, laid, box.top)) return box.top;
    if (laid.look.rotation) return put_upright_lines(strip, laid, box), box.top;
    const auto* textbox = std::get_if<Textbox>(&laid.item->content);
    const bool may_grow = !textbox || textbox->can_grow;
    const double end = put_lines(strip, laid, box, may_grow);
    return may_grow ? end : box.top;
}

void put_frame(Canvas& canvas, const LaidText& laid, const Box& box, const Strip::Behind& behind)
{
    if (laid.look.background) canvas.strip().put_behind(behind, {box, *laid.look.background});
    put_borders(canvas, laid.look, box);
    put_marks_of(canvas, *laid.item, box, laid.scope);
    if (canvas.is_read_by_page_sections(*laid.item)) canvas.strip().record(box.top, *laid.item, laid.value);
}

} // namespace tolvex::printing
