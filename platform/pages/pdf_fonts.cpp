#include "platform/pages/pdf_fonts.hpp"
#include "platform/pages/pdf_streams.hpp"
#include "platform/pages/typeface.hpp"
#include "platform/pages/western.hpp"

#include <hpdf_font.h>
#include <hpdf_fontdef.h>

#include <cstdio>
#include <cstring>

namespace tolvex::pages {

namespace {

// Readers fail on longer ones.
constexpr std::size_t longest_piece = 4'000;

bool is_western(char16_t c) { return western_byte(c) != 0; }

// libharu keeps the glyphs whose width was asked for, and their pieces.
void keep_inner_pieces(HPDF_FontDef definition, const FontPart& part)
{
    const auto attributes = static_cast<HPDF_TTFontDefAttr>(definition->attr);
    for (const unsigned glyph : part.inner_pieces) attributes->glyph_tbl.flgs[glyph] = 1;
}

// Tells a subset from others of the same font: AAAAAA, AAAAAB, …
std::string subset_tag(std::size_t number)
{
    std::string tag(6, 'A');
    for (auto letter = tag.rbegin(); letter != tag.rend(); ++letter, number /= 26)
        *letter = static_cast<char>('A' + number % 26);
    return tag;
}

// The characters of its block are their own codes.
std::string identity_map(char16_t c)
{
    const unsigned first = c & 0xFF00U;
    char map[500];
    std::snprintf(map, sizeof map,
                  "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
                  "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
                  "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
                  "1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n"
                  "1 beginbfrange\n<%04X> <%04X> <%04X>\nendbfrange\n"
                  "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n",
                  first, first + 0xFF, first);
    return map;
}

// What libharu tells of the characters of a font, viewers read as the map of another kind of font.
void tell_characters(HPDF_Doc document, HPDF_Font font, char16_t c)
{
    replace_stream(document, static_cast<HPDF_FontAttr>(font->attr)->cmap_stream, identity_map(c));
}

} // namespace

PdfFonts::PdfFonts(HPDF_Doc document) : document_(document)
{
    HPDF_UseUTFEncodings(document);
    check(document);
}

std::vector<Spelling> PdfFonts::spelled(const Font& font, TextView text)
{
    const Typeface& used = typeface(font);
    std::vector<Spelling> pieces;
    for (const char16_t c : text) {
        const Drawn drawn = used.drawn(c);
        if (!drawn.face) continue;
        const HPDF_Font its_font = this->font(*drawn.face, drawn.character);
        if (pieces.empty() || pieces.back().font != its_font || pieces.back().bytes.size() > longest_piece)
            pieces.push_back({its_font, {}});
        const unsigned char byte = western_byte(drawn.character);
        pieces.back().bytes +=
            byte != 0 ? std::string(1, static_cast<char>(byte)) : to_utf8({&drawn.character, 1});
    }
    return pieces;
}

HPDF_Font PdfFonts::font(const Face& face, char16_t c)
{
    const FontPart* const part = face.part_with(c);
    HPDF_Font& font = fonts_[{&face, part}];
    if (!font)
        font = part ? embedded(face, *part, c)
                    : checked(document_, HPDF_GetFont(document_, face.name().c_str(), "WinAnsiEncoding"));
    return font;
}

HPDF_Font PdfFonts::embedded(const Face& face, const FontPart& part, char16_t c)
{
    const HPDF_FontDef definition =
        checked(document_, HPDF_TTFontDef_Load(document_->mmgr, new_stream(document_, part.file), HPDF_TRUE));
    keep_inner_pieces(definition, part);
    const std::string name = free_name(face.name());
    std::memcpy(definition->base_font, name.c_str(), name.size() + 1);
    HPDF_Doc_RegisterFontDef(document_, definition);
    check(document_);
    HPDF_TTFontDef_SetTagName(definition, subset_tag(fonts_.size()).data());
    const char* const encoding = is_western(c) ? "WinAnsiEncoding" : "UTF-8";
    const HPDF_Font font = checked(document_, HPDF_GetFont(document_, name.c_str(), encoding));
    if (!is_western(c)) tell_characters(document_, font, c);
    return font;
}

// Parts of a face, and faces of the same name, need names of their own.
std::string PdfFonts::free_name(const std::string& name) const
{
    std::string free = name;
    for (int number = 2; HPDF_Doc_FindFontDef(document_, free.c_str()); ++number)
        free = name + '-' + std::to_string(number);
    return free;
}

} // namespace tolvex::pages
