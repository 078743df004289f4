// Runs the tests of one program. The last line is for run_test.sh, which takes a host that ends without it as
// failed.
#include <gtest/gtest.h>

int main(int count, char** arguments)
{
    ::testing::InitGoogleTest(&count, arguments);
    const int status = RUN_ALL_TESTS();
    const auto& run = *::testing::UnitTest::GetInstance();
    std::printf("FIN: %d comprobaciones, %d fallas\n", run.test_to_run_count(), run.failed_test_count());
    return status;
}
