#include "core/errors.hpp"
#include "core/text.hpp"
#include "printing/expressions/operators.hpp"

namespace tolvex::printing {

namespace {

// A place of a pattern: any characters, one character, a digit, or one of a set of ranges.
struct Place
{
    enum class Kind
    {
        any_number,
        any,
        digit,
        set
    } kind = Kind::any;
    bool excluded = false; // the set
    std::vector<std::pair<char16_t, char16_t>> ranges{};

    bool matches(char16_t c) const
    {
        if (kind == Kind::any) return true;
        if (kind == Kind::digit) return is_digit(c);
        for (const auto& [first, last] : ranges)
            if (c >= first && c <= last) return !excluded;
        return excluded;
    }
};

Place set_of(TextView inside)
{
    Place place{Place::Kind::set};
    if (inside.starts_with(u'!') && inside.size() > 1) {
        place.excluded = true;
        inside.remove_prefix(1);
    }
    for (std::size_t i = 0; i < inside.size(); ++i) {
        const bool range = i + 2 < inside.size() && inside[i + 1] == u'-';
        place.ranges.emplace_back(inside[i], inside[range ? i + 2 : i]);
        if (range) i += 2;
    }
    return place;
}

std::vector<Place> places_of(TextView pattern)
{
    std::vector<Place> places;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char16_t c = pattern[i];
        if (c == u'*')
            places.push_back({Place::Kind::any_number});
        else if (c == u'?')
            places.push_back({Place::Kind::any});
        else if (c == u'#')
            places.push_back({Place::Kind::digit});
        else if (c == u'[') {
            const std::size_t end = pattern.find(u']', i);
            if (end == TextView::npos) throw Error(93, u"Patrón no válido: " + Text(pattern));
            if (end > i + 1) places.push_back(set_of(pattern.substr(i + 1, end - i - 1)));
            i = end;
        } else
            places.push_back({Place::Kind::set, false, {{c, c}}});
    }
    return places;
}

} // namespace

// Goes back to the last "*" only, so that no pattern takes longer than text times pattern.
bool is_like(TextView text, TextView pattern)
{
    const std::vector<Place> places = places_of(pattern);
    const auto is_star = [&](std::size_t i) {
        return i < places.size() && places[i].kind == Place::Kind::any_number;
    };
    std::size_t at = 0, place = 0, retry_at = 0, after_star = 0;
    while (at < text.size()) {
        if (is_star(place)) {
            after_star = ++place;
            retry_at = at;
        } else if (place < places.size() && places[place].matches(text[at])) {
            ++at;
            ++place;
        } else if (after_star > 0) {
            place = after_star;
            at = ++retry_at;
        } else
            return false;
    }
    while (is_star(place)) ++place;
    return place == places.size();
}

} // namespace tolvex::printing
