// Tables of cases: what goes in and what must come out.
#pragma once

#include "core/errors.hpp"
#include "support/text_io.hpp"

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

namespace tolvex::testing {

template <class In, class Out, class Function>
void expect_all(Function function, std::initializer_list<std::pair<In, Out>> cases)
{
    for (const auto& [in, out] : cases)
        EXPECT_EQ(function(in), out) << "for " << ::testing::PrintToString(in);
}

// Number of the Error that an operation throws; 0 when it throws none.
template <class Operation>
std::int32_t error_number(Operation operation)
{
    try {
        operation();
        return 0;
    } catch (const Error& error) {
        return error.number();
    }
}

// What the database says of an operation that it refuses.
template <class Operation>
std::string database_failure(Operation operation)
{
    try {
        operation();
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), database_error);
        return error.what();
    }
    return "no failure";
}

} // namespace tolvex::testing
