// A TrueType font as its file holds it: its characters, their widths, and smaller fonts cut from it.
#pragma once

#include "platform/pages/fonts.hpp"

namespace tolvex::pages {

// A font file of its own with some of the characters of another.
struct FontPart
{
    std::string file;
    // Glyphs that are pieces of a piece of others (of a letter with two marks): whoever keeps but the glyphs
    // that are used, and their pieces, must keep these too.
    std::vector<unsigned> inner_pieces;
};

class TrueTypeFont
{
public:
    // From the bytes of a font file; `index` counts the fonts of a collection. Throws Error 5 when it is
    // damaged, has no TrueType outlines, or does not allow documents to carry it.
    explicit TrueTypeFont(std::string file, unsigned index = 0);

    bool has(char16_t c) const { return glyph_of_[c] != 0; }
    // In whole thousandths of the font's size, as PDF files state widths.
    int width(char16_t c) const { return advance(glyph_of_[c]) * 1000 / units_per_em_; }
    const FontMeasures& measures() const { return measures_; }
    // The one that it is known by in documents (LiberationSans-Bold).
    const std::string& name() const { return name_; }
    // The one that users choose it by (Liberation Sans).
    const Text& family() const { return family_; }

    // With those of these characters that the font has; they stand in ascending order.
    FontPart part(TextView characters) const;

private:
    std::string_view optional_table(std::string_view tag) const;
    std::string_view table(std::string_view tag) const;
    void check_that_documents_may_carry_it() const;
    void read_sizes();
    void read_characters();
    void read_measures();
    void read_name();
    void read_family();
    int advance(unsigned glyph) const;
    unsigned left_bearing(unsigned glyph) const;
    std::string_view outline(unsigned glyph) const;

    const std::string file_;
    std::size_t directory_ = 0; // where the list of its tables begins
    unsigned glyphs_ = 0, advances_ = 0;
    int units_per_em_ = 0;
    bool long_offsets_ = false;
    std::string_view metrics_, offsets_, outlines_;
    std::vector<std::uint16_t> glyph_of_;
    FontMeasures measures_;
    std::string name_;
    Text family_;
};

} // namespace tolvex::pages
