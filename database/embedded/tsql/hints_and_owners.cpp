#include "database/embedded/tsql/passes.hpp"

#include "core/text.hpp"

#include <algorithm>
#include <array>

namespace tolvex::embedded {

namespace {

bool is_hint(const Token& token)
{
    static constexpr std::array<TextView, 10> hints = {
        u"nolock",  u"readuncommitted", u"readcommitted", u"readpast", u"rowlock",
        u"updlock", u"holdlock",        u"xlock",         u"tablock",  u"paglock"};
    return std::any_of(hints.begin(), hints.end(), [&](TextView hint) { return is_word(token, hint); });
}

// Position past a list of hints in parentheses; the position itself when there is none.
std::size_t past_hints(const Tokens& tokens, std::size_t opening)
{
    std::size_t i = opening;
    do {
        if (!is_hint(at(tokens, i + 1))) return opening;
        i += 2;
    } while (at(tokens, i).is(u","));
    return at(tokens, i).is(u")") ? i + 1 : opening;
}

bool is_owner(const Token& token)
{
    return is_word(token, u"dbo") ||
           (token.kind == Token::Kind::name && equal_ignoring_case(token.text, u"[dbo]"));
}

} // namespace

void drop_hints(Tokens& tokens)
{
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].is(u"(")) continue;
        const std::size_t end = past_hints(tokens, i);
        if (end > i && i > 0 && tokens[i - 1].is(u"with")) drop(tokens[i - 1]);
        std::for_each(tokens.begin() + i, tokens.begin() + end, drop);
    }
}

void drop_owner(Tokens& tokens)
{
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i)
        if (is_owner(tokens[i]) && tokens[i + 1].is(u".")) {
            drop(tokens[i]);
            drop(tokens[i + 1]);
        }
}

} // namespace tolvex::embedded
