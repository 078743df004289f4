// Any text may stand in a layout as an expression, and as a format: it gives a value or an Error, never harm.
#include "printing/expressions/expression.hpp"
#include "core/errors.hpp"
#include "printing/expressions/culture.hpp"
#include "trials/fuzz/require.hpp"

namespace {

using namespace tolvex;
using namespace tolvex::printing;

// A value of each kind, and those at their limits, by the first letter of a name.
class AnyValues : public Environment
{
public:
    Variant field(TextView name) const override
    {
        switch (name.empty() ? u' ' : name.front()) {
        case u'a':
            return std::int64_t{9'223'372'036'854'775'807};
        case u'b':
            return std::int64_t{-9'223'372'036'854'775'807 - 1};
        case u'c':
            return Currency::from_scaled(9'223'372'036'854'775'807);
        case u'd':
            return Date{40'473.628};
        case u'e':
            return Date{-657'434.999};
        case u'f':
            return 1e308;
        case u'g':
            return -0.5;
        case u'h':
            return true;
        case u'i':
            return Bytes{"bytes"};
        case u'j':
            return Variant::List{u"uno", 2, Variant::List{}};
        case u'k':
            return Date{2'958'465.999};
        case u'l':
            return u"12.5";
        case u'm':
            return Date{1e300};
        case u'n':
            return Variant();
        default:
            return Text(name);
        }
    }
    bool has_field(TextView name) const override { return name.size() > 1; }
    Variant parameter(TextView name) const override { return field(name); }
    Variant parameter_label(TextView name) const override { return field(name); }
    Variant global(TextView name) const override { return field(name); }
    Variant report_item(TextView name) const override { return field(name); }
    Variant variable(TextView name) const override { return field(name); }
    Variant own_value() const override { return 1; }
    Variant aggregate(const AggregateCall& call) const override
    {
        Accumulator accumulator(call.function);
        for (int row = 0; row < 2; ++row) accumulator.add(call.argument.evaluate(*this));
        return accumulator.result();
    }
    Variant lookup(const LookupCall& call) const override { return call.result.evaluate(*this); }
    bool in_scope(TextView) const override { return true; }
    std::int64_t level(std::optional<Text>) const override { return 1; }
    const Culture& culture() const override { return printing::culture(u"fr-FR"); }
    Date now() const override { return Date{40'473.628}; }
};

void expect_error_or_value(const Expression& expression)
{
    try {
        const Variant value = expression.evaluate(AnyValues());
        compare(value, value);
        if (value.get_if<Text>()) formatted(1234.5, value.text(), culture(u"de-DE"));
    } catch (const Error&) {
        return;
    }
    require(expression.fault().empty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const Text source = to_text({reinterpret_cast<const char*>(bytes), size});
    const Expression expression = Expression::of(u"=" + source);
    expression.for_each_mention([](Expression::Mention, const Text&) {});
    expect_error_or_value(expression);
    for (const Variant& value : {Variant(-1234.567), Variant(Currency(0.005)), Variant(Date{40'473.628})})
        try {
            formatted(value, source, culture(u"es-MX"));
        } catch (const Error&) { // there is no such format
        }
    return 0;
}
