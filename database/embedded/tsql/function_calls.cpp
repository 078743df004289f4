#include "database/embedded/tsql/passes.hpp"

#include <algorithm>

namespace tolvex::embedded {

namespace {

void quote(Tokens& tokens, std::size_t first, std::size_t end)
{
    if (first >= end || end > tokens.size()) return;
    tokens[first].before = u"'";
    tokens[end - 1].after = u"'";
}

// convert(varchar(10), x, 103) to convert('varchar(10)', x, 103)
void rewrite_convert(Tokens& tokens, std::size_t opening, const Partners& partners)
{
    std::size_t comma = opening + 2;
    if (at(tokens, comma).is(u"(")) comma = partners[comma] + 1;
    if (at(tokens, comma).is(u",")) quote(tokens, opening + 1, comma);
}

// cast(x as varchar(10)) to cast_to(x, 'varchar(10)')
void rewrite_cast(Tokens& tokens, std::size_t opening, const Partners& partners)
{
    const std::size_t closing = partners[opening];
    if (closing == tokens.size()) return;
    constexpr std::size_t longest_type = 6; // decimal(18,2)
    const std::size_t furthest = closing - std::min(closing - opening, longest_type + 1);
    std::size_t as = closing;
    while (as > furthest && !tokens[as].is(u"as")) --as;
    if (!tokens[as].is(u"as")) return;
    tokens[opening - 1].text = u"cast_to";
    tokens[as].text = u",";
    tokens[as].kind = Token::Kind::symbol;
    quote(tokens, as + 1, closing);
}

void rename(Token& function, TextView name)
{
    function.kind = Token::Kind::word;
    function.text = name;
}

} // namespace

void rewrite_functions(Tokens& tokens, const Partners& partners)
{
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        Token& function = tokens[i];
        if (!tokens[i + 1].is(u"(")) continue;
        if (function.is(u"left"))
            rename(function, u"\"left\"");
        else if (function.is(u"right"))
            rename(function, u"\"right\"");
        else if (is_word(function, u"isnull"))
            rename(function, u"ifnull");
        else if (is_word(function, u"convert"))
            rewrite_convert(tokens, i + 1, partners);
        else if (is_word(function, u"cast"))
            rewrite_cast(tokens, i + 1, partners);
        else if (is_word(function, u"getdate")) {
            rename(function, u"datetime");
            tokens[i + 1].after = u"'now','localtime'";
        }
    }
}

} // namespace tolvex::embedded
