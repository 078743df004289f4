#include "core/text.hpp"
#include "printing/expressions/formats/number_formats.hpp"

#include <algorithm>
#include <array>

namespace tolvex::printing {

namespace {

// A piece of a section: a place for a digit, the decimal point, the exponent, or characters that stand for
// themselves.
struct Piece
{
    enum class Kind
    {
        zero,  // a digit, "0" where there is none
        digit, // a digit, nothing where there is none
        point,
        exponent,
        literal
    } kind;
    Text text;              // of a literal, "E" of an exponent
    bool plus_sign = false; // of an exponent
    std::size_t width = 0;  // of an exponent
};

struct Section
{
    std::vector<Piece> pieces;
    int integer_places = 0, decimal_places = 0;
    int least_integer_digits = 0, least_decimals = 0;
    int shift = 0; // powers of ten by "%", "‰" and the commas at the end
    bool grouped = false, has_exponent = false;
};

class SectionReader
{
public:
    explicit SectionReader(TextView source) : rest_(source) {}
    Section read();

private:
    void read_piece(char16_t c);
    void add_digit_place(char16_t c);
    bool read_exponent(char16_t c);
    void read_quoted(char16_t quote);
    void add_literal(TextView text) { section_.pieces.push_back({Piece::Kind::literal, Text(text)}); }
    void end_integer_part();

    TextView rest_;
    Section section_;
    bool after_point_ = false;
    int commas_ = 0; // since the last place
};

Section SectionReader::read()
{
    while (!rest_.empty()) {
        const char16_t c = rest_.front();
        rest_.remove_prefix(1);
        read_piece(c);
    }
    end_integer_part();
    return section_;
}

void SectionReader::read_piece(char16_t c)
{
    switch (c) {
    case u'0':
    case u'#':
        return add_digit_place(c);
    case u',':
        if (section_.integer_places > 0 && !after_point_) ++commas_;
        return;
    case u'.':
        if (after_point_) return;
        end_integer_part();
        after_point_ = true;
        section_.pieces.push_back({Piece::Kind::point, {}});
        return;
    case u'%':
    case u'‰':
        section_.shift += c == u'%' ? 2 : 3;
        return add_literal(TextView(&c, 1));
    case u'\'':
    case u'"':
        return read_quoted(c);
    case u'\\':
        if (rest_.empty()) return;
        add_literal(rest_.substr(0, 1));
        return rest_.remove_prefix(1);
    case u'E':
    case u'e':
        if (read_exponent(c)) return;
        [[fallthrough]];
    default:
        add_literal(TextView(&c, 1));
    }
}

void SectionReader::add_digit_place(char16_t c)
{
    section_.pieces.push_back({c == u'0' ? Piece::Kind::zero : Piece::Kind::digit, {}});
    if (after_point_) {
        ++section_.decimal_places;
        if (c == u'0') section_.least_decimals = section_.decimal_places;
        return;
    }
    if (commas_ > 0) section_.grouped = true;
    commas_ = 0;
    ++section_.integer_places;
    if (c == u'0' || section_.least_integer_digits > 0) ++section_.least_integer_digits;
}

// "E+0", "E-00", "E0"; a letter E that is followed by something else is a literal.
bool SectionReader::read_exponent(char16_t c)
{
    const bool has_sign = rest_.starts_with(u'+') || rest_.starts_with(u'-');
    const TextView zeros = rest_.substr(has_sign ? 1 : 0);
    const std::size_t width = std::min(zeros.find_first_not_of(u'0'), zeros.size());
    if (width == 0) return false;
    section_.pieces.push_back(
        {Piece::Kind::exponent, Text(1, c), rest_.front() == u'+', std::min<std::size_t>(width, 10)});
    section_.has_exponent = true;
    rest_.remove_prefix((has_sign ? 1 : 0) + width);
    return true;
}

void SectionReader::read_quoted(char16_t quote)
{
    const std::size_t end = std::min(rest_.find(quote), rest_.size());
    add_literal(rest_.substr(0, end));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
}

// Commas before the point, or at the end, divide by a thousand each.
void SectionReader::end_integer_part()
{
    if (after_point_) return;
    section_.shift -= 3 * commas_;
    commas_ = 0;
}

std::vector<TextView> sections_of(TextView pattern)
{
    std::vector<TextView> sections;
    std::size_t start = 0;
    char16_t quote = 0;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char16_t c = pattern[i];
        if (quote != 0) {
            if (c == quote) quote = 0;
        } else if (c == u'\'' || c == u'"') {
            quote = c;
        } else if (c == u'\\') {
            ++i;
        } else if (c == u';') {
            sections.push_back(pattern.substr(start, i - start));
            start = i + 1;
        }
    }
    sections.push_back(pattern.substr(start));
    return sections;
}

// The number as it stands in the places of a section.
struct PlacedNumber
{
    Decimal number;
    int exponent = 0;
};

PlacedNumber placed(Decimal number, const Section& section)
{
    if (number.is_zero()) return {};
    number.point += section.shift;
    if (!section.has_exponent) return {rounded(number, section.decimal_places, Tie::away_from_zero)};
    const int places = std::max(section.integer_places, 1);
    int exponent = number.point - places;
    number.point = places;
    number = rounded(number, section.decimal_places, Tie::away_from_zero);
    exponent += number.point - places;
    number.point = places;
    return {number, exponent};
}

class PatternWriter
{
public:
    PatternWriter(const PlacedNumber& placed, const Section& section, const Culture& culture)
        : section_(section), culture_(culture), exponent_(placed.exponent),
          integer_(integer_digits(placed.number)), fraction_(fraction_digits(placed.number))
    {
        const int least = section.least_integer_digits;
        if (static_cast<int>(integer_.size()) < least) integer_.insert(0, least - integer_.size(), '0');
        if (static_cast<int>(fraction_.size()) < section.least_decimals)
            fraction_.resize(section.least_decimals, '0');
    }

    Text write()
    {
        for (const Piece& piece : section_.pieces) write(piece);
        return std::move(written_);
    }

private:
    void write(const Piece& piece)
    {
        switch (piece.kind) {
        case Piece::Kind::literal:
            written_ += piece.text;
            break;
        case Piece::Kind::point:
            write_point();
            break;
        case Piece::Kind::exponent:
            write_exponent(piece);
            break;
        default:
            after_point_ ? write_decimal() : write_integer_place();
        }
    }

    // The first place takes all digits that have no place of their own.
    void write_integer_place()
    {
        ++places_passed_;
        const int places_left = section_.integer_places - places_passed_;
        while (static_cast<int>(integer_.size() - digits_written_) > places_left) write_integer_digit();
    }

    void write_integer_digit()
    {
        written_ += static_cast<char16_t>(integer_[digits_written_++]);
        const std::size_t left = integer_.size() - digits_written_;
        if (section_.grouped && left > 0 && left % 3 == 0) written_ += culture_.group_separator;
    }

    void write_point()
    {
        while (digits_written_ < integer_.size()) write_integer_digit(); // ".00" has no place for them
        after_point_ = true;
        if (!fraction_.empty()) written_ += culture_.decimal_point;
    }

    void write_decimal()
    {
        if (decimals_written_ < fraction_.size())
            written_ += static_cast<char16_t>(fraction_[decimals_written_++]);
    }

    void write_exponent(const Piece& piece)
    {
        const std::string digits = std::to_string(std::abs(exponent_));
        written_ += piece.text;
        if (exponent_ < 0 || piece.plus_sign) written_ += exponent_ < 0 ? u'-' : u'+';
        if (digits.size() < piece.width) written_.append(piece.width - digits.size(), u'0');
        written_ += to_text(digits);
    }

    const Section& section_;
    const Culture& culture_;
    int exponent_;
    std::string integer_, fraction_;
    Text written_;
    bool after_point_ = false;
    int places_passed_ = 0;
    std::size_t digits_written_ = 0, decimals_written_ = 0;
};

} // namespace

Text format_number_by_pattern(const Decimal& number, TextView pattern, const Culture& culture)
{
    const std::vector<TextView> sources = sections_of(pattern);
    const auto exists = [&](std::size_t i) { return i < sources.size() && !sources[i].empty(); };
    std::size_t chosen = number.negative && exists(1) ? 1 : (number.is_zero() && exists(2) ? 2 : 0);
    Section section = SectionReader(sources[chosen]).read();
    PlacedNumber shown = placed(number, section);
    if (shown.number.is_zero() && chosen != 2 && (exists(2) || chosen == 1)) { // what rounds to zero is zero
        chosen = exists(2) ? 2 : 0;
        section = SectionReader(sources[chosen]).read();
        shown = {};
    }
    const bool minus = shown.number.negative && chosen == 0;
    return (minus ? u"-" : u"") + PatternWriter(shown, section, culture).write();
}

} // namespace tolvex::printing
