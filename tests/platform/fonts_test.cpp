#include "platform/pages/fonts.hpp"
#include "platform/pages/true_type.hpp"

#include "platform/files.hpp"
#include "support/tables.hpp"

#include <random>

namespace tolvex::testing {
namespace {

using namespace pages;

struct Width
{
    Font font;
    Text text;
    double points;
};

// The widths are those of the families that designers' layouts name, whichever font has them here.
TEST(Fonts, texts_are_as_wide_as_in_the_family_that_was_asked_for)
{
    const Width widths[] = {{{u"Arial", 10}, u"Hola", 20.56},
                            {{u"helvetica", 10}, u"Hola", 20.56},
                            {{u"Arial", 10, true}, u"Hola", 21.67},
                            {{u"Times New Roman", 20}, u"Año", 34.44},
                            {{u"Times New Roman", 20, true, true}, u"Hola", 41.12},
                            {{u"Courier New", 10, false, true}, u"1,234.50 €", 60},
                            {{u"Arial", 10}, u"", 0}};
    for (const Width& width : widths)
        EXPECT_NEAR(text_width(width.font, width.text), width.points, 0.05) << to_utf8(width.font.family);
}

// A layout made on another machine keeps its look: no serifs, serifs, or all characters of one width.
TEST(Fonts, a_family_that_is_not_there_has_one_of_its_look_for_it)
{
    const Text text = u"iiiii WWWWW 1234";
    const double sans = text_width({u"Arial", 10}, text), serif = text_width({u"Times New Roman", 10}, text),
                 fixed = text_width({u"Courier New", 10}, text);
    expect_all<Text, double>(
        [&](const Text& family) {
            return text_width({family + u" X9", 10}, text);
        },
        {{u"Tahoma", sans},
         {u"Microsoft Sans Serif", sans},
         {u"Century Gothic", sans},
         {u"Cambria", serif},
         {u"Consolas", fixed},
         {u"Lucida Console", fixed}});
}

TEST(Fonts, characters_that_a_font_lacks_have_a_substitute)
{
    const Font arial{u"Arial", 10};
    const double question = text_width(arial, u"?"), blank = text_width(arial, u" ");
    expect_all<Text, double>([&](const Text& text) { return text_width(arial, text); },
                             {{u"\xE000", question},       // private
                              {u"\xD83D\xDE00", question}, // beyond 16 bits: one sign for both halves
                              {u"\t", blank},
                              {u"\x200B\xFEFF", 0}});
    EXPECT_GT(text_width(arial, u"\x2713"), question); // a check mark, which another family lends
}

TEST(Fonts, measures_leave_room_for_accents_and_descenders)
{
    const FontMeasures& arial = measures({u"Arial", 10});
    EXPECT_NEAR(arial.ascent, 0.905, 0.001);
    EXPECT_NEAR(arial.descent, 0.212, 0.001);
    EXPECT_NEAR(arial.underline, 0.1, 0.045);
}

// Whatever stands in a file: an error, or a font whose parts can be cut.
void open_whatever_it_is(const std::string& bytes)
{
    try {
        const TrueTypeFont font(bytes);
        const TrueTypeFont part(font.part(u" AaÁáñ").file);
        part.width(u'a');
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 5);
    }
}

TEST(TrueTypeFont, damaged_files_do_no_harm)
{
    const std::string whole = files::read(find_font_file({u"Arial", 10}).path);
    for (std::size_t size = 0; size < whole.size(); size += whole.size() / 100)
        open_whatever_it_is(whole.substr(0, size));
    std::mt19937 numbers(7);
    for (int round = 0; round < 300; ++round) {
        std::string damaged = whole.substr(0, whole.size() / 4 * 3);
        const std::size_t start =
            round % 2 == 0 ? 0 : numbers() % damaged.size(); // half of them: the directory
        for (int i = 0; i < 20; ++i)
            damaged[(start + numbers() % 400) % damaged.size()] = static_cast<char>(numbers());
        open_whatever_it_is(damaged);
    }
}

TEST(TrueTypeFont, a_part_draws_its_characters_as_the_whole_font_does)
{
    const TrueTypeFont whole(files::read(find_font_file({u"Arial", 10}).path));
    const TrueTypeFont part(whole.part(u" AaÁáñ").file);
    for (const char16_t c : Text(u" AaÁáñ")) EXPECT_EQ(part.width(c), whole.width(c));
    EXPECT_TRUE(part.has(u'ñ'));
    EXPECT_FALSE(part.has(u'b'));
    EXPECT_EQ(part.name(), whole.name());
    EXPECT_EQ(error_number([] { TrueTypeFont("OTTO" + std::string(100, '\0')); }), 5);
}

} // namespace
} // namespace tolvex::testing
