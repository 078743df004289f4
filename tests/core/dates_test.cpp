#include "core/dates.hpp"

#include "support/tables.hpp"

#include <limits>

namespace tolvex {
namespace {

using testing::error_number;

TEST(Dates, count_days_since_the_last_of_1899)
{
    EXPECT_EQ(Date::of(1899, 12, 30).days, 0);
    EXPECT_EQ(Date::of(2011, 3, 15, 12).days, 40617.5);
    EXPECT_EQ(Date::of(1899, 12, 29, 6).days, -1.25); // the time counts forward before day 0, too
    EXPECT_EQ(Date::of(100, 1, 1).days, -657434);
    EXPECT_EQ(Date::of(9999, 12, 31).days, 2958465);
}

TEST(Dates, outside_the_years_100_to_9999_are_an_overflow)
{
    for (const double days :
         {-657435.0, 2958466.0, 2958465.9999999, 1e18, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(error_number([=] { calendar(Date{days}); }), numbers::overflow) << days;
}

TEST(Dates, are_read_in_the_forms_that_people_use)
{
    const Date moment = Date::of(2011, 3, 15, 14, 5, 9);
    for (const Text text : {u"2011-03-15 14:05:09", u" 2011-03-15T14:05:09.997 ", u"2011/3/15 14:05:09",
                            u"15-03-2011 14:05:09"})
        EXPECT_EQ(to_date(text), moment) << to_utf8(text);
    EXPECT_EQ(to_date(u"2011-03-15 14:05"), Date::of(2011, 3, 15, 14, 5));
    EXPECT_EQ(to_date(u"2012-02-29"), Date::of(2012, 2, 29));
}

TEST(Dates, that_do_not_exist_are_refused)
{
    for (const Text text :
         {u"", u"hoy", u"2011-02-29", u"2011-13-01", u"2011-01-32", u"2011-03-15 24:00:00",
          u"2011-03-15 14:60:00", u"2011-03-15 14", u"2011-03", u"2011-03-15 14:05:09 pm", u"99999-01-01",
          u"-2011-01-01", u"0099-01-01", u"2011-257-01"}) // 257 would be 1 in a byte
        EXPECT_EQ(error_number([&] { to_date(text); }), numbers::type_mismatch) << to_utf8(text);
    EXPECT_EQ(error_number([] { Date::of(2011, 1, 257); }), numbers::type_mismatch);
}

} // namespace
} // namespace tolvex
