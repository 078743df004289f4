#include "database/embedded/tsql/tokenizer.hpp"

#include "core/text.hpp"

#include <algorithm>
#include <array>

namespace tolvex::embedded {

namespace {

using Kind = Token::Kind;

constexpr std::array<TextView, 55> keywords = {
    u"all",         u"and",    u"as",       u"asc",    u"begin",     u"between",  u"by",   u"case",
    u"commit",      u"cross",  u"default",  u"delete", u"desc",      u"distinct", u"do",   u"else",
    u"end",         u"escape", u"except",   u"exists", u"for",       u"from",     u"full", u"group",
    u"having",      u"in",     u"inner",    u"insert", u"intersect", u"into",     u"is",   u"join",
    u"left",        u"like",   u"limit",    u"not",    u"offset",    u"on",       u"or",   u"order",
    u"outer",       u"right",  u"rollback", u"select", u"set",       u"then",     u"top",  u"tran",
    u"transaction", u"union",  u"update",   u"values", u"when",      u"where",    u"with"};
static_assert(std::is_sorted(keywords.begin(), keywords.end()));

constexpr std::size_t longest_keyword = 11;

bool is_letter_or_digit(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || is_digit(c) || c == u'_' || c == u'@' ||
           c == u'#' || c == u'$' || c >= 0x80;
}

bool is_blank(char16_t c) { return c == u' ' || (c >= u'\t' && c <= u'\r'); }

bool is_comparison(char16_t c) { return c == u'<' || c == u'>' || c == u'=' || c == u'!'; }

// The keyword that the word is; an empty text when it is none.
TextView keyword_of(TextView word)
{
    if (word.size() > longest_keyword) return {};
    std::array<char16_t, longest_keyword> letters;
    std::transform(word.begin(), word.end(), letters.begin(),
                   [](char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 0x20) : c; });
    const TextView lower(letters.data(), word.size());
    const auto found = std::lower_bound(keywords.begin(), keywords.end(), lower);
    return found != keywords.end() && *found == lower ? *found : TextView();
}

// Past what belongs together from a position on.
template <class Belongs>
std::size_t past_all(TextView sql, std::size_t from, Belongs belongs)
{
    while (from < sql.size() && belongs(sql[from])) ++from;
    return from;
}

} // namespace

bool Tokenizer::next(Token& token)
{
    skip_blanks();
    if (position_ == sql_.size()) return false;
    const char16_t c = sql_[position_];
    if ((c == u'N' || c == u'n') && at(position_ + 1) == u'\'') ++position_; // N'…' is a plain literal here
    if (at(position_) == u'\'')
        take(token, Kind::literal, past_quoted(position_, u"'"));
    else if (c == u'"')
        take(token, Kind::name, past_quoted(position_, u"\""));
    else if (c == u'[')
        take(token, Kind::name, past_quoted(position_, u"]"));
    else if (is_digit(c) || (c == u'.' && is_digit(at(position_ + 1))))
        take(token, Kind::number, end_of_number());
    else if (is_letter_or_digit(c))
        take_word(token);
    else if (is_comparison(c))
        take(token, Kind::symbol, past_all(sql_, position_, is_comparison));
    else
        take(token, Kind::symbol, position_ + 1);
    qualified_ = token.is(u".");
    return true;
}

void Tokenizer::skip_blanks()
{
    for (;;) {
        if (is_blank(at(position_)))
            ++position_;
        else if (is_at(u"--"))
            position_ = std::min(sql_.find(u'\n', position_), sql_.size());
        else if (is_at(u"/*"))
            position_ = past(u"*/", position_ + 2);
        else
            return;
    }
}

std::size_t Tokenizer::past(TextView closing, std::size_t from) const
{
    const auto found = sql_.find(closing, from);
    return found == TextView::npos ? sql_.size() : found + closing.size();
}

// Past the closing quote; a doubled one stands for itself.
std::size_t Tokenizer::past_quoted(std::size_t opening, TextView closing) const
{
    std::size_t end = past(closing, opening + 1);
    while (sql_.substr(std::min(end, sql_.size())).starts_with(closing)) end = past(closing, end + 1);
    return end;
}

std::size_t Tokenizer::end_of_number() const
{
    std::size_t end =
        past_all(sql_, position_, [](char16_t c) { return is_letter_or_digit(c) || c == u'.'; });
    const bool signed_exponent = (at(end - 1) | 0x20) == u'e' && (at(end) == u'+' || at(end) == u'-');
    return signed_exponent ? past_all(sql_, end + 1, is_digit) : end;
}

void Tokenizer::take_word(Token& token)
{
    take(token, Kind::word, past_all(sql_, position_, is_letter_or_digit));
    const TextView keyword = qualified_ ? TextView() : keyword_of(token.text);
    if (keyword.empty()) return;
    token.kind = Kind::keyword;
    token.text = keyword;
}

void Tokenizer::take(Token& token, Kind kind, std::size_t end)
{
    token.kind = kind;
    token.text = sql_.substr(position_, end - position_);
    position_ = end;
}

Tokens tokenize(TextView sql)
{
    Tokens tokens;
    tokens.reserve(sql.size() / 4);
    Token token;
    for (Tokenizer tokenizer(sql); tokenizer.next(token);) tokens.push_back(token);
    return tokens;
}

} // namespace tolvex::embedded
