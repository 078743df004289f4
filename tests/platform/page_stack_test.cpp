#include "platform/pages/page_stack.hpp"

#include "support/tables.hpp"

namespace tolvex::testing {
namespace {

using namespace pages;

// At two pixels a point: 1200 x 1600 from 10 on, 400 x 200 from 1620 on, 1200 x 1600 from 1830 on.
PageStack stack_of_three() { return {{{600, 800, {}}, {200, 100, {}}, {600, 800, {}}}, 2, 10, 0}; }

TEST(PageStack, pages_lie_one_below_the_other_each_in_the_middle)
{
    const PageStack stack = stack_of_three();
    EXPECT_EQ(stack.width(), 1220);
    EXPECT_EQ(stack.height(), 10 + 1600 + 10 + 200 + 10 + 1600 + 10);
    EXPECT_EQ(stack.box(1).left, 410);
    EXPECT_EQ(stack.box(1).top, 1620);
    EXPECT_EQ(stack.box(1).bottom(), 1820);
    EXPECT_EQ(PageStack({{600, 800, {}}}, 1, 10, 1000).box(0).left, 200) << "in a window that is wider";
}

TEST(PageStack, finds_the_page_at_a_height)
{
    const PageStack stack = stack_of_three();
    expect_all<int, std::size_t>([&](int y) { return stack.page_at(y); }, {{-500, 0},
                                                                           {0, 0},
                                                                           {1609, 0},
                                                                           {1610, 1}, // the gap before it
                                                                           {1819, 1},
                                                                           {1820, 2},
                                                                           {3429, 2},
                                                                           {99999, 2}});
}

} // namespace
} // namespace tolvex::testing
