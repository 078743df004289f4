// What statements have in common that differ only in their values.
#pragma once

#include "database/value.hpp"

#include <optional>
#include <vector>

namespace tolvex::embedded {

// A statement with names in the places of literals that stand for values: what "=" compares with or assigns,
// and what stands directly in "values( … )". Everything else stays as it is, and so does a statement that has
// parameters of its own.
class Shape
{
public:
    explicit Shape(TextView statement);

    // In T-SQL still, with "@1", "@2", … for the literals, and "(@3*1.0)" for a number with a point.
    const Text& sql() const { return sql_; }
    std::size_t literal_count() const { return places_.size(); }
    // The literals of a statement of this shape, numbers with a point as their digits; nothing for any other.
    std::optional<std::vector<Value>> literals_of(TextView statement) const;

private:
    friend class ShapeReader;
    struct Place
    {
        Text before; // from the literal before it on
        bool has_point;
    };

    Text sql_;
    std::vector<Place> places_;
    Text end_; // what follows the last literal
};

} // namespace tolvex::embedded
