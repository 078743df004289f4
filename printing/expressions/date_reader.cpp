#include "printing/expressions/date_reader.hpp"

#include "core/errors.hpp"
#include "core/reader.hpp"
#include "printing/expressions/moments.hpp"

#include <optional>

namespace tolvex::printing {

namespace {

struct DateNumber
{
    int value = 0;
    std::size_t width = 0;
};

class DateReader
{
public:
    DateReader(TextView text, const Culture& culture) : rest_(text), culture_(culture) {}

    Date read();

private:
    void read_number();
    void read_time(int hour);
    void read_word();
    int number_of(const std::string& digits) const;
    int year_of(DateNumber number) const;
    Date day() const;
    std::int64_t time() const;
    int hour() const;
    std::string take_digits();
    bool take(char16_t c);

    TextView rest_;
    const Culture& culture_;
    std::vector<DateNumber> numbers_;
    std::optional<int> named_month_, hour_;
    int minute_ = 0, second_ = 0, millisecond_ = 0;
    enum class Half
    {
        unknown,
        morning,
        afternoon
    } half_ = Half::unknown;
};

bool is_letter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c >= 0xC0; }

bool is_separator(char16_t c) { return TextView(u" ,./-\u00A0\u202F\t").find(c) != TextView::npos; }

Date DateReader::read()
{
    while (!rest_.empty()) {
        const char16_t c = rest_.front();
        if (is_digit(c))
            read_number();
        else if (is_letter(c))
            read_word();
        else if (is_separator(c))
            rest_.remove_prefix(1);
        else
            throw type_mismatch();
    }
    if (hour_ && numbers_.empty()) return date_of_milliseconds(time());
    return date_of_milliseconds(milliseconds_of(day()) + time());
}

void DateReader::read_number()
{
    const std::string digits = take_digits();
    if (!hour_ && take(u':'))
        read_time(number_of(digits));
    else if (numbers_.size() < 3)
        numbers_.push_back({number_of(digits), digits.size()});
    else
        throw type_mismatch();
}

void DateReader::read_time(int hour)
{
    hour_ = hour;
    minute_ = number_of(take_digits());
    if (take(u':')) {
        second_ = number_of(take_digits());
        if (take(u'.')) millisecond_ = number_of((take_digits() + "000").substr(0, 3));
    }
    if (!rest_.empty() && (rest_.front() == u'+' || rest_.front() == u'-'))
        rest_ = {}; // the zone of an ISO 8601 time
    if (hour > 23 || minute_ > 59 || second_ > 59) throw type_mismatch();
}

void DateReader::read_word()
{
    std::size_t length = 0;
    while (length < rest_.size() && is_letter(rest_[length])) ++length;
    const Text word = lower_case(rest_.substr(0, length));
    rest_.remove_prefix(length);
    if (word == u"de" || word == u"del" || word == u"of" || word == u"t" || word == u"z") return;
    if (hour_ && (word == u"m" || word == u"h")) return; // a. m., 10:30 h
    if (hour_ && (word == u"a" || word == u"am")) {
        half_ = Half::morning;
        return;
    }
    if (hour_ && (word == u"p" || word == u"pm")) {
        half_ = Half::afternoon;
        return;
    }
    for (std::size_t i = 0; i < culture_.days.size(); ++i)
        if (word == lower_case(culture_.days[i]) || word == lower_case(culture_.short_days[i])) return;
    for (std::size_t i = 0; i < culture_.months.size(); ++i)
        if (!named_month_ &&
            (word == lower_case(culture_.months[i]) || word == lower_case(culture_.short_months[i]))) {
            named_month_ = static_cast<int>(i) + 1;
            return;
        }
    throw type_mismatch();
}

int DateReader::number_of(const std::string& digits) const
{
    if (digits.empty() || digits.size() > 4) throw type_mismatch();
    return std::stoi(digits);
}

int DateReader::year_of(DateNumber number) const
{
    return number.width > 2 ? number.value : static_cast<int>(full_year(number.value));
}

Date DateReader::day() const
{
    if (named_month_) {
        if (numbers_.size() != 2) throw type_mismatch();
        const bool year_first = numbers_[0].width > 2;
        return Date::of(year_of(numbers_[year_first ? 0 : 1]), *named_month_,
                        numbers_[year_first ? 1 : 0].value);
    }
    if (numbers_.size() != 3) throw type_mismatch();
    const DateNumber a = numbers_[0], b = numbers_[1], c = numbers_[2];
    if (a.width > 2) return Date::of(a.value, b.value, c.value);
    const bool month_first = culture_.short_date.starts_with(u'M');
    return Date::of(year_of(c), month_first ? a.value : b.value, month_first ? b.value : a.value);
}

std::int64_t DateReader::time() const
{
    if (!hour_) return 0;
    return ((std::int64_t{hour()} * 60 + minute_) * 60 + second_) * 1000 + millisecond_;
}

int DateReader::hour() const
{
    if (half_ == Half::unknown) return *hour_;
    if (*hour_ < 1 || *hour_ > 12) throw type_mismatch();
    return *hour_ % 12 + (half_ == Half::afternoon ? 12 : 0);
}

std::string DateReader::take_digits()
{
    std::string digits;
    for (; !rest_.empty() && is_digit(rest_.front()); rest_.remove_prefix(1))
        digits += static_cast<char>(rest_.front());
    return digits;
}

bool DateReader::take(char16_t c)
{
    if (!rest_.starts_with(c)) return false;
    rest_.remove_prefix(1);
    return true;
}

} // namespace

Date read_date(TextView text, const Culture& culture) { return DateReader(text, culture).read(); }

} // namespace tolvex::printing
