// Draws the marks of one page into a PDF document.
#pragma once

#include "platform/pages/page.hpp"
#include "platform/pages/pdf_fonts.hpp"
#include "platform/pages/pdf_outline.hpp"
#include "platform/pages/pdf_pictures.hpp"

namespace tolvex::pages {

class PdfPainter
{
public:
    // Adds an empty page of that size. Throws Error 5 for one that no PDF file can have.
    PdfPainter(HPDF_Doc document, const Page& page, PdfFonts& fonts, PdfPictures& pictures,
               PdfOutline& outline);

    void operator()(const FillMark& fill);
    void operator()(const PictureMark& mark);
    void operator()(const LineMark& line);
    void operator()(const TextMark& text);
    void operator()(const LinkMark& link);
    void operator()(const OutlineMark& entry);
    // No mark comes after it.
    void finish();

private:
    float from_below(double y) const;
    void go_to_start(const TextMark& text);
    void add_rectangle(const Box& box);

    const HPDF_Doc document_;
    const double height_;
    PdfFonts& fonts_;
    PdfPictures& pictures_;
    PdfOutline& outline_;
    const HPDF_Page page_;
};

} // namespace tolvex::pages
