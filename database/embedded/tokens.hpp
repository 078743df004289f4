// The words of a T-SQL text.
#pragma once

#include "tolvex/types.hpp"

#include <vector>

namespace tolvex::embedded {

struct Token
{
    // Keywords, in lower case, are the words that divide a statement. A name is a quoted one, its quotes
    // included.
    enum class Kind : std::uint8_t
    {
        dropped,
        word,
        keyword,
        name,
        literal,
        number,
        symbol
    };

    Kind kind = Kind::dropped;
    bool starts_statement = false;
    std::uint16_t sums_begun = 0, sums_ended = 0;
    TextView text = {};
    TextView before = {}, after = {}; // written at either side
    TextView alias = {}, limit = {};  // of the select item or the select that ends here

    // Whether it is this keyword or symbol.
    bool is(TextView wanted) const
    {
        return (kind == Kind::keyword || kind == Kind::symbol) && text == wanted;
    }
};

using Tokens = std::vector<Token>;

// Views into the text, without blanks and comments. A quote that nobody closes runs to the end.
Tokens tokenize(TextView sql);

} // namespace tolvex::embedded
