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

// How much of a text is no wider than `room`.
std::size_t units_within(TextView text, const pages::Font& font, double room)
{
    std::size_t units = 0;
    for (double width = 0; units < text.size(); ++units) {
        width += pages::text_width(font, text.substr(units, 1));
        if (width > room + rounding) break;
    }
    return units;
}

// At least one character of a text, and no half of one.
std::size_t whole_characters(TextView text, std::size_t units)
{
    if (units == 0) units = 1;
    if (!is_high_surrogate(text[units - 1]) || units == text.size()) return units;
    return units == 1 ? 2 : units - 1;
}

TextView without_blanks_at_end(TextView text)
{
    const auto last = text.find_last_not_of(u' ');
    return text.substr(0, last == TextView::npos ? 0 : last + 1);
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
            last.resize(without_blanks_at_end(last).size());
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
        if (paragraph_->line_height > 0) ascent = paragraph_->line_height - descent;
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
        while (!word.empty()) {
            const TextView letters = without_blanks_at_end(word);
            const std::size_t units = units_within(letters, span.look->font, line_.room - reached_);
            if (units == letters.size()) return append(word, span);
            if (reached_ == 0) {
                const std::size_t part = whole_characters(word, units);
                append(word.substr(0, part), span);
                word.remove_prefix(part);
            }
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
