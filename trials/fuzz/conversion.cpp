// Texts that hosts hand over as numbers, dates and patterns: a value or the documented error, never harm.
#include "core/dates.hpp"
#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "trials/fuzz/require.hpp"

#include <cmath>

namespace {

using namespace tolvex;

template <class Conversion>
void convert(Conversion conversion)
{
    try {
        conversion();
    } catch (const Error& error) {
        const auto number = error.number();
        require(number == numbers::invalid_call || number == numbers::overflow ||
                number == numbers::type_mismatch);
    }
}

// An amount that was written is read back as itself.
void check_amount(const Text& text)
{
    const Currency amount = to_currency(text);
    require(to_currency(amount_as_text(amount)).scaled() == amount.scaled());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const Text text = to_text({reinterpret_cast<const char*>(bytes), size});
    const auto half = text.size() / 2;
    const Text value = text.substr(0, half), pattern = text.substr(half);
    convert([&] { check_amount(text); });
    convert([&] { require(std::isfinite(to_number(text))); });
    convert([&] { leading_number(text); });
    convert([&] { format(to_date(text), u"yyyy-mm-ddThh:mm:ss"); });
    convert([&] { format(leading_number(value), pattern); });
    convert([&] { format(TextView(value), pattern); });
    convert([&] { format(Date{leading_number(value)}, pattern); });
    return 0;
}
