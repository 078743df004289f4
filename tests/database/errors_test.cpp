#include "database/errors.hpp"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

TEST(DatabaseErrors, carry_the_number_that_automation_hosts_know)
{
    for (const auto& [error, number] : {std::pair{no_current_row(), 3021},
                                        {no_such_column(u"nTotal"), 3265},
                                        {no_rows_returned(), 3704},
                                        {connection_closed(), 3709}})
        EXPECT_EQ(error.number(), number) << error.what();
    EXPECT_NE(no_such_column(u"nTotal").description().find(u"nTotal"), Text::npos);
}

} // namespace
} // namespace tolvex
