// The fonts of one PDF document: a part of a face becomes one when a character of it is first drawn.
#pragma once

#include "platform/pages/face.hpp"
#include "platform/pages/libharu.hpp"

namespace tolvex::pages {

// Some characters that are drawn with one font of the document, as that font spells them.
struct Spelling
{
    HPDF_Font font = nullptr;
    std::string bytes;
};

class PdfFonts
{
public:
    explicit PdfFonts(HPDF_Doc document);

    // A text in pieces, a font for each.
    std::vector<Spelling> spelled(const Font& font, TextView text);

private:
    HPDF_Font font(const Face& face, char16_t c);
    HPDF_Font embedded(const Face& face, const FontPart& part, char16_t c);
    std::string free_name(const std::string& name) const;

    const HPDF_Doc document_;
    std::map<std::pair<const Face*, const FontPart*>, HPDF_Font> fonts_;
};

} // namespace tolvex::pages
