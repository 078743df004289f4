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

class Tokenizer
{
public:
    explicit Tokenizer(TextView sql) : sql_(sql) { tokens_.reserve(sql.size() / 4); }

    Tokens run()
    {
        while (skip_blanks(), position_ < sql_.size()) take();
        return std::move(tokens_);
    }

private:
    char16_t at(std::size_t position) const { return position < sql_.size() ? sql_[position] : u'\0'; }

    bool is_at(TextView text) const { return sql_.substr(position_).starts_with(text); }

    void skip_blanks()
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

    std::size_t past(TextView closing, std::size_t from) const
    {
        const auto found = sql_.find(closing, from);
        return found == TextView::npos ? sql_.size() : found + closing.size();
    }

    // Past the closing quote; a doubled one stands for itself.
    std::size_t past_quoted(std::size_t opening, TextView closing) const
    {
        std::size_t end = past(closing, opening + 1);
        while (sql_.substr(std::min(end, sql_.size())).starts_with(closing)) end = past(closing, end + 1);
        return end;
    }

    template <class Belongs>
    std::size_t while_it(Belongs belongs) const
    {
        std::size_t end = position_;
        while (end < sql_.size() && belongs(sql_[end])) ++end;
        return end;
    }

    void take()
    {
        const char16_t c = sql_[position_];
        if ((c == u'N' || c == u'n') && at(position_ + 1) == u'\'')
            ++position_; // N'…' is a plain literal here
        if (at(position_) == u'\'')
            add(Kind::literal, past_quoted(position_, u"'"));
        else if (c == u'"')
            add(Kind::name, past_quoted(position_, u"\""));
        else if (c == u'[')
            add(Kind::name, past_quoted(position_, u"]"));
        else if (is_digit(c) || (c == u'.' && is_digit(at(position_ + 1))))
            add(Kind::number, end_of_number());
        else if (is_letter_or_digit(c))
            take_word();
        else if (is_comparison(c))
            add(Kind::symbol, while_it(is_comparison));
        else
            add(Kind::symbol, position_ + 1);
    }

    void take_word()
    {
        const bool qualified = !tokens_.empty() && tokens_.back().is(u".");
        add(Kind::word, while_it(is_letter_or_digit));
        Token& token = tokens_.back();
        const TextView keyword = qualified ? TextView() : keyword_of(token.text);
        if (keyword.empty()) return;
        token.kind = Kind::keyword;
        token.text = keyword;
    }

    std::size_t end_of_number() const
    {
        std::size_t end = while_it([](char16_t c) { return is_letter_or_digit(c) || c == u'.'; });
        const bool signed_exponent = (at(end - 1) | 0x20) == u'e' && (at(end) == u'+' || at(end) == u'-');
        if (signed_exponent)
            for (++end; is_digit(at(end));) ++end;
        return end;
    }

    void add(Kind kind, std::size_t end)
    {
        tokens_.push_back({.kind = kind, .text = sql_.substr(position_, end - position_)});
        position_ = end;
    }

    TextView sql_;
    std::size_t position_ = 0;
    Tokens tokens_;
};

} // namespace

Tokens tokenize(TextView sql) { return Tokenizer(sql).run(); }

} // namespace tolvex::embedded
