#include "core/errors.hpp"

#include "support/tables.hpp"
#include "tolvex/tolvex.hpp"

#include <stdexcept>

namespace tolvex {
namespace {

TEST(Errors, carry_the_number_that_automation_hosts_know)
{
    for (const auto& [error, number] : {std::pair{invalid_call(), 5},
                                        {overflow(), 6},
                                        {type_mismatch(), 13},
                                        {file_not_found(u"x"), 53},
                                        {device_error(u"x", u"y"), 57},
                                        {path_error(u"x", u"y"), 75},
                                        {invalid_use_of_null(), 94},
                                        {not_available(u"x"), 445}}) {
        EXPECT_EQ(error.number(), number);
        EXPECT_EQ(to_text(error.what()), error.description());
    }
    EXPECT_NE(file_not_found(u"C:\\llave").description().find(u"C:\\llave"), Text::npos);
}

TEST(Errors, a_trapped_error_leaves_its_description_and_the_stated_result)
{
    forget_error();
    EXPECT_TRUE(trapping(false, [] { return true; }));
    EXPECT_EQ(last_error(), u"");
    EXPECT_TRUE(trapping(true, []() -> bool { throw overflow(); }));
    EXPECT_EQ(last_error(), overflow().description());
    EXPECT_FALSE(trapping(false, []() -> bool { throw std::runtime_error("ñ"); }));
    EXPECT_EQ(last_error(), u"ñ");
    EXPECT_TRUE(trapping(false, [] { return true; }));
    EXPECT_EQ(last_error(), u"ñ"); // until the next one
}

} // namespace
} // namespace tolvex
