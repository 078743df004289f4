#include "platform/pages/face.hpp"
#include "platform/pages/libharu.hpp"
#include "platform/pages/western.hpp"

#include "platform/files.hpp"

namespace tolvex::pages {

namespace {

// The characters of the part that a character is in.
Text characters_with(char16_t c)
{
    if (western_byte(c) != 0) return western_characters();
    Text block;
    for (int i = 0; i < 256; ++i) block += static_cast<char16_t>((c & 0xFF00) + i);
    return block;
}

} // namespace

FileFace::FileFace(const FontFile& file) : font_(files::read(file.path), file.index) {}

const FontPart* FileFace::part_with(char16_t c) const
{
    const int number = western_byte(c) != 0 ? -1 : c >> 8;
    const auto found = parts_.find(number);
    if (found != parts_.end()) return &found->second;
    return &parts_.try_emplace(number, font_.part(characters_with(c))).first->second;
}

BaseFace::BaseFace(const std::string& name) : name_(name), family_(to_text(name.substr(0, name.find('-'))))
{
    const HaruDocument document = new_haru_document();
    const HPDF_Font font =
        checked(document.get(), HPDF_GetFont(document.get(), name.c_str(), "WinAnsiEncoding"));
    measures_.ascent = HPDF_Font_GetAscent(font) / 1000.0;
    measures_.descent = -HPDF_Font_GetDescent(font) / 1000.0;
    for (const char16_t c : western_characters())
        widths_[western_byte(c)] = HPDF_Font_GetUnicodeWidth(font, c);
}

bool BaseFace::has(char16_t c) const { return western_byte(c) != 0; }

int BaseFace::width(char16_t c) const { return widths_[western_byte(c)]; }

} // namespace tolvex::pages
