// What a font of a page turns out to be on this machine: its face, and those that lend it characters.
#pragma once

#include "platform/pages/face.hpp"

#include <vector>

namespace tolvex::pages {

// A character as it is drawn: without a face nothing is.
struct Drawn
{
    const Face* face = nullptr;
    char16_t character = 0;
};

class Typeface
{
public:
    explicit Typeface(const Font& font);

    const Face& face() const { return *face_; }
    // By the face itself or a lender, else as a question mark.
    Drawn drawn(char16_t c) const;

private:
    Drawn substitute(char16_t c) const;

    const bool bold_, italic_;
    const Face* face_;
    mutable std::vector<const Face*> lenders_; // found when a character is first missing
};

// The one of this font; its size does not matter. It lives as long as the process.
const Typeface& typeface(const Font& font);

} // namespace tolvex::pages
