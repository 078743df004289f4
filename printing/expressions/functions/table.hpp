// The functions of the expression language, and the methods and properties of its values: a table for each
// family.
#pragma once

#include "printing/expressions/culture.hpp"

#include <span>

namespace tolvex::printing {

class Environment;

// The values that a function is called with.
class Arguments
{
public:
    Arguments(std::span<const Variant> values, const Environment& environment)
        : values_(values), environment_(environment)
    {}

    std::span<const Variant> values() const { return values_; }
    std::size_t size() const { return values_.size(); }
    // Whether the argument is there and not left out.
    bool has(std::size_t i) const { return i < values_.size() && !values_[i].is_nothing(); }
    // Nothing where there is none.
    const Variant& operator[](std::size_t i) const;

    Text text(std::size_t i) const; // as the culture writes it
    double number(std::size_t i) const { return (*this)[i].number(); }
    std::int64_t whole(std::size_t i) const { return (*this)[i].whole_number(); }
    std::int64_t whole(std::size_t i, std::int64_t otherwise) const { return has(i) ? whole(i) : otherwise; }
    // Not negative. Throws Error 5.
    std::size_t length(std::size_t i) const;
    Date date(std::size_t i) const;

    const Environment& environment() const { return environment_; }
    const Culture& culture() const;

private:
    std::span<const Variant> values_;
    const Environment& environment_;
};

using Function = Variant (*)(const Arguments& given);

// A member's target counts as its first argument.
struct NamedFunction
{
    TextView key; // in lower case, with its class where it needs one: "math.max"
    int least, most;
    Function function;
};
constexpr int any_number = 1000;

// Null for what there is not. Keys in lower case.
const NamedFunction* function_named(const Text& key);
const NamedFunction* member_named(const Text& key);

std::span<const NamedFunction> text_functions();
std::span<const NamedFunction> number_functions();
std::span<const NamedFunction> conversions();
std::span<const NamedFunction> date_functions();
std::span<const NamedFunction> format_functions();
std::span<const NamedFunction> encoding_functions();
std::span<const NamedFunction> text_members();
std::span<const NamedFunction> date_members();
std::span<const NamedFunction> encoding_members();
std::span<const NamedFunction> other_members();

// given[0](given[1]): an element of a list, a character of a text. Throws Error 9 outside of it.
Variant element(const Arguments& given);

} // namespace tolvex::printing
