#include "platform/pages/pdf_painter.hpp"
#include "platform/pages/pdf_streams.hpp"

#include <hpdf_pages.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tolvex::pages {

namespace {

// What PDF files admit: coordinates, line widths, sizes of fonts.
float number(double value, double least = -32'000, double most = 32'000)
{
    return std::isnan(value) ? 0.0F : static_cast<float>(std::clamp(value, least, most));
}

float share(std::uint8_t of_color) { return static_cast<float>(of_color) / 255.0F; }

HPDF_RGBColor rgb(Color color) { return {share(color.red), share(color.green), share(color.blue)}; }

bool same(const HPDF_RGBColor& a, const HPDF_RGBColor& b) { return a.r == b.r && a.g == b.g && a.b == b.b; }

// --- what stays set on a page until it is set anew ---------------------------------------------------------

void set_fill(HPDF_Page page, Color color)
{
    const HPDF_RGBColor wanted = rgb(color);
    if (!same(wanted, HPDF_Page_GetRGBFill(page))) HPDF_Page_SetRGBFill(page, wanted.r, wanted.g, wanted.b);
}

void set_stroke(HPDF_Page page, Color color, float width)
{
    const HPDF_RGBColor wanted = rgb(color);
    if (!same(wanted, HPDF_Page_GetRGBStroke(page)))
        HPDF_Page_SetRGBStroke(page, wanted.r, wanted.g, wanted.b);
    if (width != HPDF_Page_GetLineWidth(page)) HPDF_Page_SetLineWidth(page, width);
}

void set_font(HPDF_Page page, HPDF_Font font, float size)
{
    if (font != HPDF_Page_GetCurrentFont(page) || size != HPDF_Page_GetCurrentFontSize(page))
        HPDF_Page_SetFontAndSize(page, font, size);
}

void set_word_space(HPDF_Page page, double points)
{
    const float wanted = number(points, HPDF_MIN_WORDSPACE, HPDF_MAX_WORDSPACE);
    if (wanted != HPDF_Page_GetWordSpace(page)) HPDF_Page_SetWordSpace(page, wanted);
}

// --- pieces of marks ---------------------------------------------------------------------------------------

// In multiples of the line's width, which must be whole.
void set_dashes(HPDF_Page page, const LineMark& line)
{
    const auto unit = static_cast<HPDF_UINT16>(number(std::round(line.width), 1, 30));
    const auto dash = static_cast<HPDF_UINT16>(line.dashes == Dashes::dotted ? unit : 3 * unit);
    const HPDF_UINT16 pattern[] = {dash, unit};
    HPDF_Page_SetDash(page, pattern, 2, 0);
}

HPDF_Page new_page(HPDF_Doc document, const Page& page)
{
    const auto fits = [](double length) {
        return length >= HPDF_MIN_PAGE_SIZE && length <= HPDF_MAX_PAGE_SIZE;
    };
    if (!fits(page.width) || !fits(page.height))
        throw invalid_call(u"una página de PDF mide entre 3 y 14400 puntos de ancho y de alto");
    const HPDF_Page added = checked(document, HPDF_AddPage(document));
    HPDF_Page_SetWidth(added, number(page.width));
    HPDF_Page_SetHeight(added, number(page.height));
    return checked(document, added);
}

bool is_inside(const Box& inner, const Box& outer)
{
    return inner.left >= outer.left && inner.top >= outer.top && inner.right() <= outer.right() &&
           inner.bottom() <= outer.bottom();
}

// Addresses are ASCII: other characters are spelled as their bytes.
std::string as_address(TextView text)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string address;
    for (const char c : to_utf8(text)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > ' ' && byte < 0x7F)
            address += c;
        else
            address.append({'%', digits[byte >> 4], digits[byte & 15]});
    }
    return address;
}

} // namespace

PdfPainter::PdfPainter(HPDF_Doc document, const Page& page, PdfFonts& fonts, PdfPictures& pictures,
                       PdfOutline& outline)
    : document_(document), height_(page.height), fonts_(fonts), pictures_(pictures), outline_(outline),
      page_(new_page(document, page))
{}

void PdfPainter::operator()(const FillMark& fill)
{
    set_fill(page_, fill.color);
    add_rectangle(fill.box);
    HPDF_Page_Fill(page_);
    check(document_);
}

void PdfPainter::operator()(const PictureMark& mark)
{
    if (mark.box.width <= 0 || mark.box.height <= 0) return;
    const HPDF_Image image = pictures_.image(mark.picture);
    HPDF_Page_GSave(page_);
    if (!is_inside(mark.box, mark.visible)) {
        add_rectangle(mark.visible);
        HPDF_Page_Clip(page_);
        HPDF_Page_EndPath(page_);
    }
    HPDF_Page_DrawImage(page_, image, number(mark.box.left), from_below(mark.box.bottom()),
                        number(mark.box.width), number(mark.box.height));
    HPDF_Page_GRestore(page_);
    check(document_);
}

void PdfPainter::operator()(const LineMark& line)
{
    if (line.dashes != Dashes::solid) HPDF_Page_GSave(page_);
    set_stroke(page_, line.color, number(line.width, 0, HPDF_MAX_LINEWIDTH));
    if (line.dashes != Dashes::solid) set_dashes(page_, line);
    HPDF_Page_MoveTo(page_, number(line.from.x), from_below(line.from.y));
    HPDF_Page_LineTo(page_, number(line.to.x), from_below(line.to.y));
    HPDF_Page_Stroke(page_);
    if (line.dashes != Dashes::solid) HPDF_Page_GRestore(page_);
    check(document_);
}

void PdfPainter::operator()(const TextMark& text)
{
    const float size = number(text.font.size, 0, HPDF_MAX_FONTSIZE);
    const std::vector<Spelling> pieces = fonts_.spelled(text.font, text.text);
    if (size <= 0 || pieces.empty()) return;
    HPDF_Page_BeginText(page_);
    set_fill(page_, text.color);
    set_word_space(page_, text.word_spacing);
    go_to_start(text);
    for (const Spelling& piece : pieces) {
        set_font(page_, piece.font, size);
        HPDF_Page_ShowText(page_, piece.bytes.c_str());
    }
    HPDF_Page_EndText(page_);
    check(document_);
}

void PdfPainter::operator()(const LinkMark& link)
{
    const std::string address = as_address(link.address);
    if (address.size() > HPDF_LIMIT_MAX_STRING_LEN) return; // no program opens it either
    const HPDF_Rect area = {number(link.box.left), from_below(link.box.bottom()), number(link.box.right()),
                            from_below(link.box.top)};
    const HPDF_Annotation annotation =
        checked(document_, HPDF_Page_CreateURILinkAnnot(page_, area, address.c_str()));
    HPDF_LinkAnnot_SetBorderStyle(annotation, 0, 0, 0);
    check(document_);
}

void PdfPainter::operator()(const OutlineMark& entry)
{
    outline_.add(entry.label, entry.level, page_, from_below(entry.top));
}

void PdfPainter::finish()
{
    const auto attributes = static_cast<HPDF_PageAttr>(page_->attr);
    compress_now(document_, attributes->contents);
    attributes->stream = attributes->contents->stream;
}

void PdfPainter::go_to_start(const TextMark& text)
{
    const float x = number(text.start.x), y = from_below(text.start.y);
    if (text.angle == 0) {
        HPDF_Page_MoveTextPos(page_, x, y);
        return;
    }
    const double radians = text.angle * std::numbers::pi / 180;
    const float cosine = number(std::cos(radians)), sine = number(std::sin(radians));
    HPDF_Page_SetTextMatrix(page_, cosine, -sine, sine, cosine, x, y);
}

float PdfPainter::from_below(double y) const { return number(height_ - y); }

void PdfPainter::add_rectangle(const Box& box)
{
    HPDF_Page_Rectangle(page_, number(box.left), from_below(box.bottom()), number(box.width),
                        number(box.height));
}

} // namespace tolvex::pages
