#include "printing/expressions/tokens.hpp"

#include "core/decimal_reader.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "printing/expressions/arithmetic.hpp"
#include "printing/expressions/culture.hpp"
#include "printing/expressions/date_reader.hpp"

#include <algorithm>
#include <charconv>

namespace tolvex::printing {

namespace {

bool is_blank(char16_t c) { return c <= u' ' || c == u'\u00A0' || c == u'\uFEFF'; }

// Word processors make these of a quotation mark.
bool is_quote(char16_t c) { return c == u'"' || c == u'\u201C' || c == u'\u201D'; }

bool is_letter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' ||
           (c >= 0xA1 && !is_quote(c) && !is_blank(c));
}

int digit_value(char16_t c)
{
    if (is_digit(c)) return c - u'0';
    const char16_t lower = c | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : 99;
}

Token literal(Variant value)
{
    Token token;
    token.kind = Token::Kind::value;
    token.value = std::move(value);
    return token;
}

Token name_token(TextView name)
{
    Token token;
    token.kind = Token::Kind::name;
    token.text = name;
    token.key = lower_case(name);
    return token;
}

Token sign_token(TextView sign)
{
    Token token;
    token.kind = Token::Kind::sign;
    token.text = sign;
    return token;
}

bool fits_whole(const Decimal& number)
{
    return number.point < 19 || (number.point == 19 && integer_digits(number) <= "9223372036854775807");
}

class Tokenizer
{
public:
    Tokenizer(TextView source, std::size_t begin) : source_(source), at_(begin) {}
    std::vector<Token> read();

private:
    void skip_blanks();
    void read_token();
    Token read_number();
    void skip_number_suffix(bool& as_amount);
    Token read_based_number();
    Token read_text();
    Token read_date();
    Token read_name();
    Token read_bracketed_name();
    Token read_sign();
    std::size_t take_while(bool (*wanted)(char16_t));
    bool operand_may_stand_here() const;
    char16_t peek(std::size_t ahead = 0) const;
    [[noreturn]] void fail(TextView reason) const;

    TextView source_;
    std::size_t at_;
    std::vector<Token> tokens_;
};

std::vector<Token> Tokenizer::read()
{
    for (skip_blanks(); at_ < source_.size(); skip_blanks()) read_token();
    tokens_.push_back({});
    tokens_.back().begin = tokens_.back().end = at_;
    return std::move(tokens_);
}

// Blanks, line ends with or without "_" before them, and what follows an apostrophe.
void Tokenizer::skip_blanks()
{
    while (at_ < source_.size()) {
        if (source_[at_] == u'\'')
            at_ = std::min(source_.find_first_of(u"\r\n", at_), source_.size());
        else if (is_blank(source_[at_]) || (source_[at_] == u'_' && is_blank(peek(1))))
            ++at_;
        else
            return;
    }
}

void Tokenizer::read_token()
{
    const std::size_t begin = at_;
    const char16_t c = peek();
    Token token;
    if (is_digit(c) || (c == u'.' && is_digit(peek(1)) && operand_may_stand_here()))
        token = read_number();
    else if (c == u'&' && operand_may_stand_here())
        token = read_based_number();
    else if (is_quote(c))
        token = read_text();
    else if (c == u'#')
        token = read_date();
    else if (c == u'[')
        token = read_bracketed_name();
    else if (is_letter(c))
        token = read_name();
    else
        token = read_sign();
    token.begin = begin;
    token.end = at_;
    tokens_.push_back(std::move(token));
}

Token Tokenizer::read_number()
{
    const std::size_t begin = at_;
    take_while(is_digit);
    bool whole = true;
    if (peek() == u'.' && is_digit(peek(1))) {
        whole = false;
        ++at_;
        take_while(is_digit);
    }
    const std::size_t sign = peek(1) == u'+' || peek(1) == u'-' ? 1 : 0;
    if ((peek() | 0x20) == u'e' && is_digit(peek(1 + sign))) {
        whole = false;
        at_ += 1 + sign;
        take_while(is_digit);
    }
    const Decimal number = decimal_of(source_.substr(begin, at_ - begin));
    bool as_amount = false;
    skip_number_suffix(as_amount);
    if (as_amount) return literal(amount_or_number(number));
    if (whole && fits_whole(number)) return literal(whole_of(number));
    return literal(to_double(number));
}

// 10D, 10@ are amounts; the other letters tell kinds that are one here.
void Tokenizer::skip_number_suffix(bool& as_amount)
{
    const char16_t suffix = peek() | 0x20;
    const bool letter = !is_letter(peek(1)) && TextView(u"dfrisl").find(suffix) != TextView::npos;
    const bool sign = peek() == u'@' || peek() == u'%' || (peek() == u'#' && !is_digit(peek(1)));
    as_amount = (letter && suffix == u'd') || peek() == u'@';
    if (letter || sign) ++at_;
}

// &HFF, &O17. An "&" that begins no number is a sign.
Token Tokenizer::read_based_number()
{
    const char16_t letter = peek(1) | 0x20;
    const int base = letter == u'h' ? 16 : (letter == u'o' ? 8 : 0);
    if (base == 0 || digit_value(peek(2)) >= base) return read_sign();
    std::uint64_t value = 0;
    for (at_ += 2; digit_value(peek()) < base; ++at_) {
        if (value >> 59 != 0) fail(u"El número es demasiado grande");
        value = value * static_cast<unsigned>(base) + static_cast<unsigned>(digit_value(peek()));
    }
    return literal(static_cast<std::int64_t>(value));
}

Token Tokenizer::read_text()
{
    Text text;
    for (++at_; at_ < source_.size(); ++at_) {
        if (is_quote(peek())) {
            if (!is_quote(peek(1))) break;
            ++at_; // a doubled one stands for itself
        }
        text += peek();
    }
    if (at_ >= source_.size()) fail(u"Falta cerrar un texto");
    ++at_;
    if ((peek() | 0x20) == u'c' && !is_letter(peek(1)) && !is_digit(peek(1))) ++at_; // "a"c is a character
    return literal(std::move(text));
}

// #10/22/2010 10:30 PM#: always month first.
Token Tokenizer::read_date()
{
    const std::size_t end = source_.find(u'#', at_ + 1);
    if (end == TextView::npos) fail(u"Falta cerrar una fecha");
    try {
        const Date date = printing::read_date(source_.substr(at_ + 1, end - at_ - 1), culture(u"en-US"));
        at_ = end + 1;
        return literal(date);
    } catch (const Error&) {
        fail(u"La fecha no es válida");
    }
}

Token Tokenizer::read_name()
{
    const std::size_t begin = at_;
    take_while([](char16_t c) { return is_letter(c) || is_digit(c); });
    return name_token(source_.substr(begin, at_ - begin));
}

// [Date] is a name that might be taken for a word of the language.
Token Tokenizer::read_bracketed_name()
{
    const std::size_t end = source_.find(u']', at_);
    if (end == TextView::npos) fail(u"Falta cerrar un nombre");
    const TextView name = source_.substr(at_ + 1, end - at_ - 1);
    at_ = end + 1;
    return name_token(name);
}

Token Tokenizer::read_sign()
{
    static constexpr TextView pairs[] = {u"<=", u">=", u"<>"};
    for (const TextView pair : pairs)
        if (source_.substr(at_).starts_with(pair)) {
            at_ += pair.size();
            return sign_token(pair);
        }
    const char16_t c = peek();
    if (TextView(u"+-*/\\^&=<>(),.!{}").find(c) == TextView::npos)
        fail(u"No se esperaba «" + Text(1, c) + u"»");
    ++at_;
    return sign_token(Text(1, c));
}

std::size_t Tokenizer::take_while(bool (*wanted)(char16_t))
{
    const std::size_t begin = at_;
    while (at_ < source_.size() && wanted(source_[at_])) ++at_;
    return at_ - begin;
}

// Whether what comes is not the continuation of an operand.
bool Tokenizer::operand_may_stand_here() const
{
    if (tokens_.empty()) return true;
    const Token& last = tokens_.back();
    return last.kind == Token::Kind::sign && !last.is_sign(u")") && !last.is_sign(u"}");
}

char16_t Tokenizer::peek(std::size_t ahead) const
{
    return at_ + ahead < source_.size() ? source_[at_ + ahead] : u'\0';
}

void Tokenizer::fail(TextView reason) const
{
    throw invalid_call(Text(reason) + u" " + place_in_source(at_));
}

} // namespace

std::vector<Token> tokens_of(TextView source, std::size_t begin) { return Tokenizer(source, begin).read(); }

Text place_in_source(std::size_t position)
{
    return u"en la posición " + to_text(std::to_string(position + 1));
}

} // namespace tolvex::printing
