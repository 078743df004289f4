#include "platform/pages/typeface.hpp"
#include "platform/pages/western.hpp"

#include "core/errors.hpp"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace tolvex::pages {

namespace {

// --- families ----------------------------------------------------------------------------------------------

enum class Look
{
    sans,
    serif,
    fixed
};

// What the name of a family says of its look. The first word that is found in it tells.
Look look(TextView family)
{
    static constexpr std::pair<TextView, Look> words[] = {
        {u"courier", Look::fixed},   {u"consol", Look::fixed},   {u"mono", Look::fixed},
        {u"fixed", Look::fixed},     {u"terminal", Look::fixed}, {u"typewriter", Look::fixed},
        {u"sans", Look::sans},       {u"gothic", Look::sans},    {u"arial", Look::sans},
        {u"serif", Look::serif},     {u"times", Look::serif},    {u"roman", Look::serif},
        {u"cambria", Look::serif},   {u"georgia", Look::serif},  {u"garamond", Look::serif},
        {u"book", Look::serif},      {u"century", Look::serif},  {u"palatino", Look::serif},
        {u"constantia", Look::serif}};
    const Text name = lower_case(family);
    const auto found = std::find_if(std::begin(words), std::end(words),
                                    [&](const auto& word) { return name.find(word.first) != Text::npos; });
    return found == std::end(words) ? Look::sans : found->second;
}

// Families to try for one that is not there, the likeliest first.
std::vector<Text> stand_ins(Look look)
{
    switch (look) {
    case Look::fixed:
        return {u"Courier New", u"DejaVu Sans Mono", u"Noto Sans Mono"};
    case Look::serif:
        return {u"Times New Roman", u"DejaVu Serif", u"Noto Serif"};
    default:
        return {u"Arial", u"DejaVu Sans", u"Noto Sans"};
    }
}

// Families with many characters, of which some are on every system.
std::vector<Text> lending_families()
{
    return {u"Arial",     u"DejaVu Sans",      u"Segoe UI",        u"Segoe UI Symbol",
            u"Noto Sans", u"Arial Unicode MS", u"Microsoft YaHei", u"SimSun",
            u"MS Gothic", u"Malgun Gothic"};
}

std::string base_font(Look look, bool bold, bool italic)
{
    static constexpr const char* names[3][4] = {
        {"Helvetica", "Helvetica-Bold", "Helvetica-Oblique", "Helvetica-BoldOblique"},
        {"Times-Roman", "Times-Bold", "Times-Italic", "Times-BoldItalic"},
        {"Courier", "Courier-Bold", "Courier-Oblique", "Courier-BoldOblique"}};
    return names[static_cast<int>(look)][(bold ? 1 : 0) + (italic ? 2 : 0)];
}

// --- faces -------------------------------------------------------------------------------------------------

// A font file that could not be used is not tried again: null.
std::unique_ptr<Face> try_file(const FontFile& file)
{
    try {
        return std::make_unique<FileFace>(file);
    } catch (const Error&) {
        return nullptr;
    }
}

// Families share the faces that stand in for them.
const Face* file_face(const Font& font)
{
    static std::map<std::pair<Text, unsigned>, std::unique_ptr<Face>> faces;
    const FontFile file = find_font_file(font);
    if (file.path.empty()) return nullptr;
    const auto key = std::pair(file.path, file.index);
    if (!faces.contains(key)) faces[key] = try_file(file);
    return faces[key].get();
}

const Face& base_face(const std::string& name)
{
    static std::map<std::string, BaseFace> faces;
    return faces.try_emplace(name, name).first->second;
}

const Face& find_face(const Font& font)
{
    if (const Face* const own = file_face(font)) return *own;
    for (const Text& family : stand_ins(look(font.family)))
        if (const Face* const found = file_face({family, font.size, font.bold, font.italic})) return *found;
    return base_face(base_font(look(font.family), font.bold, font.italic));
}

// --- characters --------------------------------------------------------------------------------------------

// Direction marks, joiners, what chooses a variant, the second half of a character beyond 16 bits.
bool is_invisible(char16_t c)
{
    return (c >= 0x200B && c <= 0x200F) || (c >= 0x202A && c <= 0x202E) || (c >= 0x2060 && c <= 0x2064) ||
           (c >= 0xFE00 && c <= 0xFE0F) || c == 0xFEFF || (c >= 0xDC00 && c <= 0xDFFF);
}

bool is_blank(char16_t c)
{
    return c < u' ' || (c >= 0x7F && c <= 0xA0) || (c >= 0x2000 && c <= 0x200A) || c == 0x202F ||
           c == 0x2028 || c == 0x2029 || c == 0x205F || c == 0x3000;
}

} // namespace

Typeface::Typeface(const Font& font) : bold_(font.bold), italic_(font.italic), face_(&find_face(font)) {}

Drawn Typeface::drawn(char16_t c) const
{
    if (c >= u' ' && face_->has(c)) return {face_, c};
    return substitute(c);
}

Drawn Typeface::substitute(char16_t c) const
{
    if (is_invisible(c)) return {};
    if (is_blank(c)) return {face_, u' '};
    if (lenders_.empty()) {
        lenders_.push_back(face_);
        for (const Text& family : lending_families())
            if (const Face* const face = file_face({family, 10, bold_, italic_})) lenders_.push_back(face);
    }
    const auto lender =
        std::find_if(lenders_.begin(), lenders_.end(), [c](auto* face) { return face->has(c); });
    return lender == lenders_.end() ? Drawn{face_, u'?'} : Drawn{*lender, c};
}

const Typeface& typeface(const Font& font)
{
    static std::map<std::tuple<Text, bool, bool>, Typeface> typefaces;
    static Font last;
    static const Typeface* last_found = nullptr;
    if (last_found && font.family == last.family && font.bold == last.bold && font.italic == last.italic)
        return *last_found;
    last_found = &typefaces.try_emplace(std::tuple(font.family, font.bold, font.italic), font).first->second;
    last = font;
    return *last_found;
}

} // namespace tolvex::pages
