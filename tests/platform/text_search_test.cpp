#include "platform/pages/text_search.hpp"

#include "support/tables.hpp"

namespace tolvex::testing {
namespace {

using namespace pages;

TextMark line(const char16_t* text) { return {{0, 100}, text, {u"Arial", 10}}; }

std::vector<Page> two_pages()
{
    return {
        {612, 792, {FillMark{}, line(u"María PEÑA Güemes"), line(u"El sello sigue"), line(u"en la página")}},
        {612, 792, {line(u"siguiente"), line(u"dQ5xZ/"), line(u"8kM+aaaa")}}};
}

// Each place as page.mark:first+count of its parts.
std::string places(const Text& words)
{
    std::string all;
    for (const Found& found : TextSearch(two_pages()).find(words)) {
        for (const FoundPart& part : found)
            all += (&part == &found.front() ? "" : " ") + std::to_string(part.page) + '.' +
                   std::to_string(part.mark) + ':' + std::to_string(part.first) + '+' +
                   std::to_string(part.count);
        all += ';';
    }
    return all;
}

TEST(TextSearch, finds_words_however_they_are_written_and_wherever_lines_end)
{
    expect_all<Text, std::string>(places, {{u"pena", "0.1:6+4;"},
                                           {u"maria  Peña", "0.1:0+10;"},
                                           {u"GUEMES", "0.1:11+6;"},
                                           {u"sigue en la", "0.2:9+5 0.3:0+5;"},
                                           {u"pagina siguiente", "0.3:6+6 1.0:0+9;"}, // on the next page
                                           {u"xz/8k", "1.1:3+3 1.2:0+2;"},            // a seal over two lines
                                           {u"sigue", "0.2:9+5;"},
                                           {u"aa", "1.2:4+2;1.2:6+2;"}, // they do not overlap
                                           {u"siguenada", ""},
                                           {u"siguiented q", ""},
                                           {u"  ", ""},
                                           {u"", ""}});
}

// Marked on the page as wide as it is drawn, along the line.
TEST(TextSearch, area_of_found_characters)
{
    TextMark text{{100, 200}, u"Total a pagar", {u"Courier New", 10}, {}, 0, 5};
    const auto level = area(text, 6, 1); // six characters of 6 points and a wide blank before it
    EXPECT_NEAR(level[0].x, 100 + 6 * 6 + 5, 0.1);
    EXPECT_NEAR(level[1].x - level[0].x, 6, 0.1);
    EXPECT_LT(level[0].y, 200 - 5);
    EXPECT_GT(level[2].y, 200);
    text.angle = 90; // downwards: what was to the right is below
    const auto turned = area(text, 6, 1);
    EXPECT_NEAR(turned[0].y, 200 + 6 * 6 + 5, 0.1);
    EXPECT_GT(turned[0].x, 100 + 5);
}

} // namespace
} // namespace tolvex::testing
