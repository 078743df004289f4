#include "database/embedded/tsql/shape.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/embedded/tsql/tokenizer.hpp"

namespace tolvex::embedded {

namespace {

using Kind = Token::Kind;

std::size_t digits_at(TextView text, std::size_t from)
{
    std::size_t end = from;
    while (end < text.size() && is_digit(text[end])) ++end;
    return end - from;
}

std::int64_t whole_number(TextView digits)
{
    std::int64_t number = 0;
    for (const char16_t digit : digits) number = number * 10 + (digit - u'0');
    return number;
}

// Each of these reads the literal that a text begins with and gives its length; 0 when there is none.

std::size_t read_text(TextView text, Value& value)
{
    Text read;
    for (std::size_t i = 1;; ++i) {
        const auto quote = text.find(u'\'', i);
        if (quote == TextView::npos) return 0;
        read += text.substr(i, quote - i);
        i = quote + 1;
        if (i == text.size() || text[i] != u'\'') {
            value = std::move(read);
            return i;
        }
        read += u'\''; // a doubled one stands for itself
    }
}

std::size_t read_whole_number(TextView text, Value& value)
{
    constexpr std::size_t most_digits = 18; // that 64 bits surely hold
    const std::size_t length = digits_at(text, 0);
    if (length > most_digits) return 0;
    value = whole_number(text.substr(0, length));
    return length;
}

// The engine itself reads the digits, as it does within a statement: not every reader gives the same last
// bit.
std::size_t read_number_with_point(TextView text, Value& value)
{
    const std::size_t point = digits_at(text, 0);
    const std::size_t length = point + 1 + digits_at(text, point + 1);
    if (length == 1) return 0; // a point alone
    value = Text(text.substr(0, length));
    return length;
}

bool has_point(TextView text)
{
    const std::size_t point = digits_at(text, 0);
    return point < text.size() && text[point] == u'.';
}

std::size_t read_literal(TextView text, Value& value)
{
    if (text.starts_with(u'\'')) return read_text(text, value);
    return has_point(text) ? read_number_with_point(text, value) : read_whole_number(text, value);
}

} // namespace

class ShapeReader
{
public:
    ShapeReader(Shape& shape, TextView statement)
        : shape_(shape), statement_(statement), tokenizer_(statement)
    {}

    void read()
    {
        Token token;
        while (tokenizer_.next(token)) {
            if (is_parameter(token)) return leave_as_it_is();
            follow_parentheses(token);
            if (!stands_for_a_value(token) || !take(token)) shape_.sql_ += token.text;
            shape_.sql_ += u' ';
            before_previous_ = previous_;
            previous_ = token.kind == Kind::symbol || token.kind == Kind::keyword ? token.text : TextView();
        }
        shape_.end_ = statement_.substr(past_literal_);
    }

private:
    static bool is_parameter(const Token& token)
    {
        return token.is(u"?") || (token.kind == Kind::word && token.text.front() == u'@');
    }

    void leave_as_it_is()
    {
        shape_.sql_ = shape_.end_ = statement_;
        shape_.places_.clear();
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

    // False for a literal that cannot be read: an exponent, a quote that nobody closes.
    bool take(const Token& token)
    {
        Value value;
        const std::size_t start = token.text.data() - statement_.data();
        if (read_literal(statement_.substr(start), value) != token.text.size()) return false;
        const bool is_real = token.kind == Kind::number && has_point(token.text);
        shape_.places_.push_back({Text(statement_.substr(past_literal_, start - past_literal_)), is_real});
        past_literal_ = start + token.text.size();
        const Text name = u"@" + decimal(static_cast<std::int64_t>(shape_.places_.size()));
        shape_.sql_ += is_real ? u"(" + name + u"*1.0)" : name;
        return true;
    }

    Shape& shape_;
    TextView statement_;
    Tokenizer tokenizer_;
    TextView previous_, before_previous_; // symbols and keywords; empty for anything else
    std::vector<bool> lists_of_values_;   // for each open parenthesis whether it holds one
    std::size_t past_literal_ = 0;
};

Shape::Shape(TextView statement) { ShapeReader(*this, statement).read(); }

std::optional<std::vector<Value>> Shape::literals_of(TextView statement) const
{
    std::vector<Value> literals;
    literals.reserve(places_.size());
    for (const Place& place : places_) {
        if (!statement.starts_with(place.before)) return {};
        statement.remove_prefix(place.before.size());
        const bool is_real = !statement.starts_with(u'\'') && has_point(statement);
        Value& value = literals.emplace_back();
        const std::size_t length = is_real == place.has_point ? read_literal(statement, value) : 0;
        if (length == 0) return {};
        statement.remove_prefix(length);
    }
    if (statement != end_) return {};
    return literals;
}

} // namespace tolvex::embedded
