#include "platform/pages/page.hpp"

#include <array>
#include <cstdio>

namespace tolvex::pages {

namespace {

// To the hundredth of a point, which is finer than any device.
std::string number(double value)
{
    char digits[400]; // the largest double has 309 before its point
    std::snprintf(digits, sizeof digits, "%.2f", value);
    std::string text = digits;
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text == "-0" ? "0" : text;
}

std::string at(Point point) { return number(point.x) + ' ' + number(point.y); }

std::string area(const Box& box)
{
    return at({box.left, box.top}) + ' ' + number(box.width) + 'x' + number(box.height);
}

std::string name(Color color)
{
    char digits[8];
    std::snprintf(digits, sizeof digits, "#%02X%02X%02X", color.red, color.green, color.blue);
    return digits;
}

std::string name(const Font& font)
{
    return to_utf8(font.family) + ' ' + number(font.size) + (font.bold ? " bold" : "") +
           (font.italic ? " italic" : "");
}

std::string quoted(TextView text) { return '"' + to_utf8(text) + '"'; }

std::string words(const FillMark& fill) { return "fill " + area(fill.box) + ' ' + name(fill.color); }

std::string words(const PictureMark& mark)
{
    static constexpr std::array formats = {"png", "jpeg", "bmp", "gif"};
    const Picture& picture = *mark.picture;
    return "picture " + area(mark.box) + " visible " + area(mark.visible) + ' ' +
           formats[static_cast<std::size_t>(picture.format)] + ' ' + std::to_string(picture.width) + 'x' +
           std::to_string(picture.height);
}

std::string words(const LineMark& line)
{
    static constexpr std::array dashes = {"", " dotted", " dashed"};
    return "line " + at(line.from) + " to " + at(line.to) + " width " + number(line.width) + ' ' +
           name(line.color) + dashes[static_cast<std::size_t>(line.dashes)];
}

std::string words(const TextMark& text)
{
    return "text " + at(text.start) + ' ' + quoted(text.text) + ' ' + name(text.font) + ' ' +
           name(text.color) + (text.angle != 0 ? " angle " + number(text.angle) : "") +
           (text.word_spacing != 0 ? " word spacing " + number(text.word_spacing) : "");
}

std::string words(const LinkMark& link) { return "link " + area(link.box) + ' ' + quoted(link.address); }

std::string words(const OutlineMark& entry)
{
    return "outline " + std::to_string(entry.level) + ' ' + quoted(entry.label) + " at " + number(entry.top);
}

} // namespace

std::string described(const Page& page)
{
    std::string description = "page " + number(page.width) + 'x' + number(page.height) + '\n';
    for (const Mark& mark : page.marks)
        description += std::visit([](const auto& one) { return words(one); }, mark) + '\n';
    return description;
}

} // namespace tolvex::pages
