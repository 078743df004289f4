#include "core/errors.hpp"
#include "platform/batch_runner.hpp"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

// What the refusal says; empty for a folder that is taken.
Text refusal(const Text& folder)
{
    try {
        require_batch_folder(folder);
        return {};
    } catch (const Error& error) {
        return error.description();
    }
}

TEST(BatchFolder, is_refused_with_what_a_batch_file_cannot_name)
{
    EXPECT_EQ(refusal(u"C:\\Facturación\\Caja-1_b.x"), u"");
    EXPECT_NE(refusal(u"C:\\mis ventas").find(u"no puede llevar blancos: C:\\mis ventas"), Text::npos);
#ifdef _WIN32
    for (const char16_t c : TextView(u"&%^=;,()Łж"))
        EXPECT_NE(refusal(u"C:\\caja" + Text(1, c)).find(u"«" + Text(1, c) + u"»"), Text::npos)
            << unsigned(c);
#endif
}

} // namespace
} // namespace tolvex
