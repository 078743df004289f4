#include "core/errors.hpp"
#include "printing/expressions/arithmetic.hpp"
#include "printing/expressions/expression.hpp"

#include <cmath>
#include <set>

namespace tolvex::printing {

namespace {

struct Before
{
    bool operator()(const Variant& a, const Variant& b) const { return compare(a, b) < 0; }
};

} // namespace

struct Accumulator::State
{
    AggregateFunction function;
    std::int64_t rows = 0, values = 0;
    Variant total, chosen, previous;
    double mean = 0, squares = 0; // of the differences from the mean, after Welford
    std::set<Variant, Before> distinct;

    void add_value(const Variant& value);
    void add_difference(double value);
    Variant variance(bool of_population) const;
};

Accumulator::Accumulator(AggregateFunction function) : state_(std::make_unique<State>())
{
    state_->function = function;
}

Accumulator::~Accumulator() = default;
Accumulator::Accumulator(Accumulator&&) noexcept = default;
Accumulator& Accumulator::operator=(Accumulator&&) noexcept = default;

void Accumulator::add(const Variant& value)
{
    using enum AggregateFunction;
    State& state = *state_;
    ++state.rows;
    if (state.function == previous) state.previous = std::exchange(state.chosen, value);
    if (state.function == last || (state.function == first && state.rows == 1)) state.chosen = value;
    if (!value.is_nothing()) state.add_value(value);
}

void Accumulator::State::add_value(const Variant& value)
{
    using enum AggregateFunction;
    ++values;
    switch (function) {
    case sum:
    case running_value:
    case avg:
        total = printing::sum(total, value);
        break;
    case count_distinct:
        distinct.insert(value);
        break;
    case min:
        if (values == 1 || compare(value, chosen) < 0) chosen = value;
        break;
    case max:
        if (values == 1 || compare(value, chosen) > 0) chosen = value;
        break;
    case st_dev:
    case st_dev_p:
    case var:
    case var_p:
        add_difference(value.number());
        break;
    default:
        break;
    }
}

void Accumulator::State::add_difference(double value)
{
    const double difference = value - mean;
    mean += difference / static_cast<double>(values);
    squares += difference * (value - mean);
}

Variant Accumulator::State::variance(bool of_population) const
{
    const std::int64_t divisor = of_population ? values : values - 1;
    if (divisor < 1) return {};
    return finite(squares / static_cast<double>(divisor));
}

Variant Accumulator::result() const
{
    using enum AggregateFunction;
    const State& state = *state_;
    const auto root = [](const Variant& variance) {
        return variance.is_nothing() ? variance : Variant(std::sqrt(variance.number()));
    };
    switch (state.function) {
    case sum:
    case running_value:
        return state.total;
    case avg:
        return state.values == 0 ? Variant()
                                 : Variant(state.total.number() / static_cast<double>(state.values));
    case count:
        return state.values;
    case count_rows:
    case row_number:
        return state.rows;
    case count_distinct:
        return static_cast<std::int64_t>(state.distinct.size());
    case st_dev:
        return root(state.variance(false));
    case st_dev_p:
        return root(state.variance(true));
    case var:
        return state.variance(false);
    case var_p:
        return state.variance(true);
    case previous:
        return state.previous;
    default:
        return state.chosen;
    }
}

} // namespace tolvex::printing
