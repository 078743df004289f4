#include "printing/rdl/lengths.hpp"

#include <array>
#include <charconv>
#include <cmath>

namespace tolvex::printing {

namespace {

constexpr double most = 10'000 * 72.0;

struct Unit
{
    std::string_view name;
    double points;
};

constexpr std::array<Unit, 5> units = {
    {{"in", 72}, {"cm", 72 / 2.54}, {"mm", 72 / 25.4}, {"pt", 1}, {"pc", 12}}};

} // namespace

std::optional<double> points(TextView length)
{
    const std::string text = to_utf8(lower_case(trim(length)));
    const char* const end = text.data() + text.size();
    double number = 0;
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc()) return {};
    const Text name = trim(to_text({stop, end}));
    for (const Unit& unit : units)
        if (name == to_text(unit.name) && std::abs(number * unit.points) <= most) return number * unit.points;
    return {};
}

} // namespace tolvex::printing
