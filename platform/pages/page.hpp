// Pages as printers, screens and PDF files take them: positioned marks, nothing left to decide. Lengths are
// in points (1/72 inch), from the upper left corner of the page.
#pragma once

#include "core/text.hpp"
#include "platform/pages/picture.hpp"

#include <memory>
#include <variant>
#include <vector>

namespace tolvex::pages {

struct Point
{
    double x = 0, y = 0;
};

struct Box
{
    double left = 0, top = 0, width = 0, height = 0;

    double right() const { return left + width; }
    double bottom() const { return top + height; }
};

struct Color
{
    std::uint8_t red = 0, green = 0, blue = 0;

    friend bool operator==(Color, Color) = default;
};

struct Font
{
    Text family;
    double size = 10;
    bool bold = false, italic = false;

    friend bool operator==(const Font&, const Font&) = default;
};

// One line of text. Its baseline begins at `start` and runs at `angle` degrees, clockwise (90: downwards).
struct TextMark
{
    Point start;
    Text text;
    Font font;
    Color color = {};
    double angle = 0;
    double word_spacing = 0; // added at each blank of justified text
};

enum class Dashes
{
    solid,
    dotted,
    dashed
};

struct LineMark
{
    Point from, to;
    double width = 1;
    Color color = {};
    Dashes dashes = Dashes::solid;
};

// A filled area.
struct FillMark
{
    Box box;
    Color color = {};
};

// A picture drawn to fill `box`; what lies outside `visible` is not shown.
struct PictureMark
{
    Box box, visible;
    std::shared_ptr<const Picture> picture;
};

// An area that opens an address.
struct LinkMark
{
    Box box;
    Text address;
};

// An entry of the document map: its label, nested under the entry of a smaller level before it.
struct OutlineMark
{
    Text label;
    int level = 0;
    double top = 0;
};

using Mark = std::variant<FillMark, PictureMark, LineMark, TextMark, LinkMark, OutlineMark>;

struct Page
{
    double width = 612, height = 792;
    std::vector<Mark> marks; // later ones cover earlier ones
};

// Takes pages one after another as they are ready.
class PageSink
{
public:
    virtual ~PageSink() = default;
    virtual void take(Page page) = 0;
};

// What a document says of itself.
struct DocumentProperties
{
    Text title, author;
};

// A page in words, a line for each mark: for tests and for people who look for a fault.
std::string described(const Page& page);

} // namespace tolvex::pages
