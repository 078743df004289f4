#include "printing/composing/text_block.hpp"

#include "platform/pages/fonts.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

constexpr double rounding = 0.01; // points by which a text may be wider than its measures

// Where a word that begins at `from` ends: after its blanks, before a line's end.
std::size_t word_end(TextView text, std::size_t from)
{
    std::size_t end = from;
    while (end < text.size() && text[end] != u' ' && text[end] != u'\n') {
        const bool hyphen =
            text[end] == u'-' && end > from && end + 1 < text.size() && !is_digit(text[end + 1]);
        ++end;
        if (hyphen) return end;
    }
    while (end < text.size() && text[end] == u' ') ++end;
    return end;
}

bool is_high_surrogate(char16_t c) { return c >= 0xD800 && c < 0xDC00; }

// How much of a text, at least one character, is no wider than `room`.
std::size_t units_within(TextView text, const pages::Font& font, double room)
{
    std::size_t low = 1, high = text.size();
    while (low < high) {
        const std::size_t middle = (low + high + 1) / 2;
        if (pages::text_width(font, text.substr(0, middle)) <= room + rounding)
            low = middle;
        else
            high = middle - 1;
    }
    if (low < text.size() && is_high_surrogate(text[low - 1])) low += low == 1 ? 1 : -1;
    return low;
}

Text without_blanks_at_end(TextView text)
{
    const auto last = text.find_last_not_of(u' ');
    return Text(text.substr(0, last == TextView::npos ? 0 : last + 1));
}

class LineBreaker
{
public:
    explicit LineBreaker(double width) : width_(width) {}

    void paragraph(const ParagraphText& paragraph)
    {
        paragraph_ = &paragraph;
        first_of_paragraph_ = true;
        begin_line();
        line_.space_before = paragraph.space_before + space_after_;
        space_after_ = paragraph.space_after;
        for (const Span& span : paragraph.spans) spread(span);
        end_line();
    }

    std::vector<TextLine> lines() && { return std::move(lines_); }

private:
    void begin_line()
    {
        line_ = {};
        line_.horizontal = paragraph_->horizontal;
        line_.indent = paragraph_->left_indent + (first_of_paragraph_ ? 0 : paragraph_->hanging_indent);
        if (first_of_paragraph_ && paragraph_->hanging_indent < 0) line_.indent -= paragraph_->hanging_indent;
        line_.room = std::max(width_ - line_.indent - paragraph_->right_indent, 0.0);
        reached_ = 0;
    }

    void end_line()
    {
        if (line_.ascent == 0 && !paragraph_->spans.empty()) stand_in(*paragraph_->spans.front().look);
        while (!line_.spans.empty()) {
            Text& last = line_.spans.back().text;
            last = without_blanks_at_end(last);
            if (!last.empty()) break;
            line_.spans.pop_back();
        }
        line_.width = 0;
        for (const Span& span : line_.spans) line_.width += pages::text_width(span.look->font, span.text);
        lines_.push_back(std::move(line_));
        first_of_paragraph_ = false;
    }

    void next_line()
    {
        end_line();
        begin_line();
    }

    // An empty line is as high as the font that would stand in it.
    void stand_in(const TextLook& look)
    {
        const pages::FontMeasures& measures = pages::measures(look.font);
        double ascent = measures.ascent * look.font.size;
        const double descent = measures.descent * look.font.size;
        if (look.line_height > 0) ascent = look.line_height - descent;
        line_.ascent = std::max(line_.ascent, ascent);
        line_.descent = std::max(line_.descent, descent);
    }

    void spread(const Span& span)
    {
        const TextView text = span.text;
        for (std::size_t at = 0; at < text.size();) {
            if (text[at] == u'\n') {
                stand_in(*span.look);
                next_line();
                ++at;
                continue;
            }
            const std::size_t end = word_end(text, at);
            word(text.substr(at, end - at), span);
            at = end;
        }
    }

    void word(TextView word, const Span& span)
    {
        const pages::Font& font = span.look->font;
        while (!word.empty()) {
            const double room = line_.room - reached_;
            const double width = pages::text_width(font, without_blanks_at_end(word));
            if (width <= room + rounding) return append(word, span);
            if (reached_ > 0) {
                next_line();
                continue;
            }
            const std::size_t units = units_within(word, font, line_.room);
            append(word.substr(0, units), span);
            word.remove_prefix(units);
            if (!word.empty()) next_line();
        }
    }

    void append(TextView text, const Span& span)
    {
        stand_in(*span.look);
        reached_ += pages::text_width(span.look->font, text);
        if (line_.spans.empty() || line_.spans.back().look != span.look ||
            line_.spans.back().address != span.address)
            line_.spans.push_back({{}, span.look, span.address});
        line_.spans.back().text += text;
    }

    double width_;
    const ParagraphText* paragraph_ = nullptr;
    bool first_of_paragraph_ = true;
    double space_after_ = 0, reached_ = 0;
    TextLine line_;
    std::vector<TextLine> lines_;
};

} // namespace

std::vector<TextLine> broken_into_lines(const std::vector<ParagraphText>& paragraphs, double width)
{
    LineBreaker breaker(width);
    for (const ParagraphText& paragraph : paragraphs) breaker.paragraph(paragraph);
    return std::move(breaker).lines();
}

} // namespace tolvex::printing
