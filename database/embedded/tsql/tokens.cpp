#include "database/embedded/tsql/tokens.hpp"

#include "core/text.hpp"

namespace tolvex::embedded {

const Token& at(const Tokens& tokens, std::size_t i)
{
    static const Token nothing;
    return i < tokens.size() ? tokens[i] : nothing;
}

bool is_word(const Token& token, TextView word)
{
    return token.kind == Token::Kind::word && equal_ignoring_case(token.text, word);
}

void drop(Token& token) { token.kind = Token::Kind::dropped; }

void remove_dropped(Tokens& tokens)
{
    std::erase_if(tokens, [](const Token& token) { return token.kind == Token::Kind::dropped; });
}

Partners partners_of(const Tokens& tokens)
{
    Partners partners(tokens.size(), tokens.size());
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].is(u"(")) open.push_back(i);
        if (!tokens[i].is(u")") || open.empty()) continue;
        partners[i] = open.back();
        partners[open.back()] = i;
        open.pop_back();
    }
    return partners;
}

} // namespace tolvex::embedded
