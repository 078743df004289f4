// Font files by fontconfig, which knows also the families that have the metrics of others.
#include "platform/pages/fonts.hpp"
#include "core/text.hpp"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <memory>

namespace tolvex::pages {

namespace {

struct Destroy
{
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};
using Pattern = std::unique_ptr<FcPattern, Destroy>;
using FontSet = std::unique_ptr<FcFontSet, Destroy>;

std::string text_property(FcPattern* pattern, const char* property, int number = 0)
{
    FcChar8* text = nullptr;
    if (FcPatternGetString(pattern, property, number, &text) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(text);
}

Pattern wanted(const Font& font)
{
    Pattern pattern(FcPatternCreate());
    if (!pattern) throw std::bad_alloc();
    const std::string family = to_utf8(font.family);
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, font.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern.get(), FC_SLANT, font.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

// The family itself and those with its metrics: others are but weakly bound to it.
std::vector<Text> families_as_good(FcPattern* pattern)
{
    std::vector<Text> families;
    FcValue value;
    FcValueBinding binding;
    for (int i = 0; FcPatternGetWithBinding(pattern, FC_FAMILY, i, &value, &binding) == FcResultMatch; ++i)
        if (binding != FcValueBindingWeak)
            families.push_back(to_text(reinterpret_cast<const char*>(value.u.s)));
    return families;
}

bool is_of_one(const std::vector<Text>& families, FcPattern* font)
{
    std::string family;
    for (int i = 0; !(family = text_property(font, FC_FAMILY, i)).empty(); ++i)
        for (const Text& wanted : families)
            if (equal_ignoring_case(wanted, to_text(family))) return true;
    return false;
}

// Of fonts whose weight is variable a file shows only one.
bool is_plain_true_type(FcPattern* font)
{
    FcBool variable = FcFalse;
    FcPatternGetBool(font, FC_VARIABLE, 0, &variable);
    return !variable && text_property(font, FC_FONTFORMAT) == "TrueType";
}

} // namespace

FontFile find_font_file(const Font& font)
{
    const Pattern pattern = wanted(font);
    const std::vector<Text> families = families_as_good(pattern.get());
    FcResult result = FcResultMatch;
    const FontSet fonts(FcFontSort(nullptr, pattern.get(), FcFalse, nullptr, &result));
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        FcPattern* const found = fonts->fonts[i];
        if (!is_plain_true_type(found) || !is_of_one(families, found)) continue;
        int index = 0;
        FcPatternGetInteger(found, FC_INDEX, 0, &index);
        return {to_text(text_property(found, FC_FILE)), static_cast<unsigned>(index) & 0xFFFFU};
    }
    return {};
}

} // namespace tolvex::pages
