#include "platform/pages/text_search.hpp"

#include "core/simplified.hpp"
#include "platform/pages/fonts.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tolvex::pages {

namespace {

constexpr char16_t line_end = u'\n';

// Line ends within a text and other controls are blanks, so that places stay the same.
Text on_one_line(TextView text)
{
    Text line = simplified(text);
    for (char16_t& c : line)
        if (c < u' ' || c == 0x00A0) c = u' ';
    return line;
}

bool is_blank(char16_t c) { return c == u' ' || c == line_end; }

// Words as they are looked for: a single blank between two.
Text looked_for(TextView words)
{
    const Text simple = on_one_line(words);
    Text wanted;
    for (const char16_t c : simple)
        if (c != u' ' || (!wanted.empty() && wanted.back() != u' ')) wanted += c;
    return trim(wanted);
}

} // namespace

TextSearch::TextSearch(const std::vector<Page>& pages)
{
    for (std::size_t page = 0; page < pages.size(); ++page)
        for (std::size_t mark = 0; mark < pages[page].marks.size(); ++mark) {
            const auto* text = std::get_if<TextMark>(&pages[page].marks[mark]);
            if (!text) continue;
            lines_.push_back({text_.size(), page, mark});
            text_ += on_one_line(text->text) + line_end;
        }
}

std::vector<Found> TextSearch::find(TextView words) const
{
    const Text wanted = looked_for(words);
    std::vector<Found> all;
    if (wanted.empty()) return all;
    for (std::size_t at = text_.find(wanted.front()); at != Text::npos; at = text_.find(wanted.front(), at)) {
        const std::size_t end = end_of_match(at, wanted);
        if (end != Text::npos) all.push_back(parts(at, end));
        at = end == Text::npos ? at + 1 : end;
    }
    return all;
}

std::size_t TextSearch::end_of_match(std::size_t begin, TextView words) const
{
    std::size_t at = begin;
    for (const char16_t c : words) {
        if (c == u' ') {
            if (at >= text_.size() || !is_blank(text_[at])) return Text::npos;
            while (at < text_.size() && is_blank(text_[at])) ++at;
            continue;
        }
        while (at > begin && at < text_.size() && text_[at] == line_end) ++at;
        if (at >= text_.size() || text_[at] != c) return Text::npos;
        ++at;
    }
    return at;
}

Found TextSearch::parts(std::size_t begin, std::size_t end) const
{
    Found found;
    auto line =
        std::partition_point(lines_.begin(), lines_.end(), [=](const Line& l) { return l.begin <= begin; }) -
        1;
    for (; line != lines_.end() && line->begin < end; ++line) {
        const auto next = line + 1;
        const std::size_t line_stop = (next == lines_.end() ? text_.size() : next->begin) - 1;
        const std::size_t from = std::max(begin, line->begin), to = std::min(end, line_stop);
        if (to > from) found.push_back({line->page, line->mark, from - line->begin, to - from});
    }
    return found;
}

std::array<Point, 4> area(const TextMark& text, std::size_t first, std::size_t count)
{
    const auto width = [&](TextView part) {
        const auto blanks = static_cast<double>(std::count(part.begin(), part.end(), u' '));
        return text_width(text.font, part) + blanks * text.word_spacing;
    };
    const TextView all = text.text;
    const double from = width(all.substr(0, first)), to = from + width(all.substr(first, count));
    const FontMeasures& measured = measures(text.font);
    const double above = -measured.ascent * text.font.size, below = measured.descent * text.font.size;
    const double radians = text.angle * std::numbers::pi / 180, cosine = std::cos(radians),
                 sine = std::sin(radians);
    const auto turned = [&](double along, double across) {
        return Point{text.start.x + along * cosine - across * sine,
                     text.start.y + along * sine + across * cosine};
    };
    return {turned(from, above), turned(to, above), turned(to, below), turned(from, below)};
}

} // namespace tolvex::pages
