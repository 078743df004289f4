#include "database/embedded/tsql/passes.hpp"

#include <algorithm>

namespace tolvex::embedded {

namespace {

bool is_identifier(const Token& token)
{
    return token.kind == Token::Kind::word || token.kind == Token::Kind::name;
}

// Before a union too, where the engine takes no limit and says so: it would otherwise apply to the whole.
bool ends_select(const Token& token)
{
    return token.is(u")") || token.is(u";") || token.is(u"select") || token.is(u"union") ||
           token.is(u"except") || token.is(u"intersect") || token.starts_statement;
}

bool ends_select_list(const Token& token)
{
    return ends_select(token) || token.is(u"from") || token.is(u"into") || token.is(u"where") ||
           token.is(u"order") || token.is(u"group");
}

std::size_t past_operand(const Tokens& tokens, std::size_t i, const Partners& partners)
{
    return tokens[i].is(u"(") ? std::min(partners[i], tokens.size() - 1) + 1 : i + 1;
}

// One item of a select list: Alias=expression to expression as Alias. Gives the position past the item.
std::size_t rewrite_item(Tokens& tokens, std::size_t i, const Partners& partners)
{
    TextView alias;
    const bool may_name = is_identifier(at(tokens, i)) || at(tokens, i).kind == Token::Kind::literal;
    if (may_name && at(tokens, i + 1).is(u"=")) {
        alias = tokens[i].text;
        drop(tokens[i]);
        drop(tokens[i + 1]);
        i += 2;
    }
    while (i < tokens.size() && !tokens[i].is(u",") && !ends_select_list(tokens[i]))
        i = past_operand(tokens, i, partners);
    if (!alias.empty()) tokens[i - 1].alias = alias;
    return i;
}

// top n: dropped here, a limit at the end of the select. Gives the position past it.
std::size_t rewrite_top(Tokens& tokens, std::size_t top, const Partners& partners)
{
    const bool parenthesized = at(tokens, top + 1).is(u"(");
    const std::size_t count = top + (parenthesized ? 2 : 1);
    const std::size_t past = count + (parenthesized ? 2 : 1);
    if (at(tokens, count).kind != Token::Kind::number || past > tokens.size()) return top + 1;
    std::for_each(tokens.begin() + top, tokens.begin() + past, drop);
    std::size_t end = past;
    while (end < tokens.size() && !ends_select(tokens[end])) end = past_operand(tokens, end, partners);
    tokens[end - 1].limit = tokens[count].text;
    return past;
}

} // namespace

void rewrite_selects(Tokens& tokens, const Partners& partners)
{
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].is(u"select")) continue;
        std::size_t item = i + 1;
        if (at(tokens, item).is(u"distinct") || at(tokens, item).is(u"all")) ++item;
        if (at(tokens, item).is(u"top")) item = rewrite_top(tokens, item, partners);
        item = rewrite_item(tokens, item, partners);
        while (at(tokens, item).is(u",")) item = rewrite_item(tokens, item + 1, partners);
    }
}

} // namespace tolvex::embedded
