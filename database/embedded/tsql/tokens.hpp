// The words of a T-SQL text, and what is to be written with them.
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

// The token at a position; past the end one that is nothing.
const Token& at(const Tokens& tokens, std::size_t i);

// Whether it is this word, in any letter case.
bool is_word(const Token& token, TextView word);

// Dropped tokens keep their places until they are removed.
void drop(Token& token);
void remove_dropped(Tokens& tokens);

// For every parenthesis the position of the other one; the number of tokens where there is none.
using Partners = std::vector<std::size_t>;
Partners partners_of(const Tokens& tokens);

} // namespace tolvex::embedded
