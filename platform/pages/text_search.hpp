// Finding words on pages, as a reader looks for them: whatever their case and accents, and also where they go
// on in another line or on the next page.
#pragma once

#include "platform/pages/page.hpp"

#include <array>

namespace tolvex::pages {

// Characters of one text mark.
struct FoundPart
{
    std::size_t page = 0, mark = 0, first = 0, count = 0;
};

// One place where the words are: a part for each mark that they are spread over, in order.
using Found = std::vector<FoundPart>;

class TextSearch
{
public:
    explicit TextSearch(const std::vector<Page>& pages);

    // All of them, in the order of the pages. A blank stands for any blanks and ends of lines; within a word
    // a line may end too, as long seals do.
    std::vector<Found> find(TextView words) const;

private:
    struct Line
    {
        std::size_t begin, page, mark;
    };

    std::size_t end_of_match(std::size_t begin, TextView words) const;
    Found parts(std::size_t begin, std::size_t end) const;

    Text text_; // of all marks, simplified, an end of line after each
    std::vector<Line> lines_;
};

// The corners of the area that these characters of a text take up on their page.
std::array<Point, 4> area(const TextMark& text, std::size_t first, std::size_t count);

} // namespace tolvex::pages
