// What statements have in common that differ only in their values.
#pragma once

#include "database/value.hpp"

#include <vector>

namespace tolvex::embedded {

// A statement with names in the places of literals that stand for values: what "=" compares with or assigns,
// and what stands directly in "values( … )". Everything else stays as it is, and so does a statement that has
// parameters of its own.
struct Shape
{
    Text sql; // in T-SQL still; the same for all statements of the shape
    // Of "@1", "@2", …: texts and whole numbers, and for "(@3*1.0)" the digits of a number with a point.
    std::vector<Value> literals;
};

// Throws nothing of its own: a quote that nobody closes stays as it is.
Shape shape_of(TextView sql);

} // namespace tolvex::embedded
