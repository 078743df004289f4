#include "database/embedded/tsql/shape.hpp"

#include "core/text.hpp"
#include "database/embedded/tsql/tokenizer.hpp"

#include <algorithm>

namespace tolvex::embedded {

namespace {

using Kind = Token::Kind;

constexpr std::size_t most_digits = 18; // that a whole number surely holds

// What the literal says; false when its quotes do not match.
bool read_text(TextView literal, Text& text)
{
    if (literal.size() < 2 || literal.back() != u'\'') return false;
    const TextView within = literal.substr(1, literal.size() - 2);
    text.reserve(within.size());
    for (std::size_t i = 0; i < within.size(); ++i) {
        text += within[i];
        if (within[i] == u'\'' && (++i == within.size() || within[i] != u'\'')) return false;
    }
    return true;
}

std::int64_t whole_number(TextView digits)
{
    std::int64_t number = 0;
    for (const char16_t digit : digits) number = number * 10 + (digit - u'0');
    return number;
}

class ShapeReader
{
public:
    explicit ShapeReader(TextView sql) : sql_(sql), tokenizer_(sql) { shape_.sql.reserve(sql.size()); }

    Shape read()
    {
        Token token;
        while (tokenizer_.next(token)) {
            if (is_parameter(token)) return {Text(sql_), {}};
            follow_parentheses(token);
            if (!stands_for_a_value(token) || !take(token)) shape_.sql += token.text;
            shape_.sql += u' ';
            before_previous_ = previous_;
            previous_ = token.kind == Kind::symbol || token.kind == Kind::keyword ? token.text : TextView();
        }
        return std::move(shape_);
    }

private:
    static bool is_parameter(const Token& token)
    {
        return token.is(u"?") || (token.kind == Kind::word && token.text.front() == u'@');
    }

    void follow_parentheses(const Token& token)
    {
        if (token.is(u"("))
            lists_of_values_.push_back(previous_ == u"values");
        else if (token.is(u")") && !lists_of_values_.empty())
            lists_of_values_.pop_back();
    }

    bool stands_for_a_value(const Token& token) const
    {
        if (token.kind != Kind::literal && token.kind != Kind::number) return false;
        if (previous_ == u"=") return true;
        const bool is_listed = !lists_of_values_.empty() && lists_of_values_.back();
        const TextView start = previous_ == u"-" ? before_previous_ : previous_;
        return is_listed && (start == u"(" || start == u",");
    }

    bool take(const Token& token)
    {
        return token.kind == Kind::literal ? take_text(token.text) : take_number(token.text);
    }

    bool take_text(TextView literal)
    {
        Text text;
        if (!read_text(literal, text)) return false;
        put(std::move(text));
        return true;
    }

    bool take_number(TextView number)
    {
        const std::size_t digits = std::find_if_not(number.begin(), number.end(), is_digit) - number.begin();
        if (digits == number.size() && digits <= most_digits) {
            put(whole_number(number));
            return true;
        }
        const TextView rest = number.substr(digits);
        if (!rest.starts_with(u'.') || !std::all_of(rest.begin() + 1, rest.end(), is_digit)) return false;
        // The engine itself reads the digits, as it does within a statement: not every reader gives the same
        // last bit.
        shape_.sql += u'(';
        put(Text(number));
        shape_.sql += u"*1.0)";
        return true;
    }

    void put(Value value)
    {
        shape_.literals.push_back(std::move(value));
        (shape_.sql += u'@') += decimal(static_cast<std::int64_t>(shape_.literals.size()));
    }

    TextView sql_;
    Tokenizer tokenizer_;
    Shape shape_;
    TextView previous_, before_previous_; // symbols and keywords; empty for anything else
    std::vector<bool> lists_of_values_;   // for each open parenthesis whether it holds one
};

} // namespace

Shape shape_of(TextView sql) { return ShapeReader(sql).read(); }

} // namespace tolvex::embedded
