// What the command prints on a console is read there with its accents.
#include "platform/terminal.hpp"
#include "platform/windows/windows.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>

namespace tolvex {
namespace {

TEST(Terminal, prints_letters_on_a_console)
{
    FreeConsole();
    ASSERT_TRUE(AllocConsole());
    const HANDLE screen =
        CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE, 0, nullptr, CONSOLE_TEXTMODE_BUFFER, nullptr);
    ASSERT_NE(screen, INVALID_HANDLE_VALUE);
    std::FILE* stream = _fdopen(_open_osfhandle(reinterpret_cast<intptr_t>(screen), _O_TEXT), "w");
    ASSERT_NE(stream, nullptr);
    terminal::print(stream, "Cálculo del año → €\n");
    Text read(19, u' ');
    DWORD count = 0;
    ReadConsoleOutputCharacterW(screen, wide(read), static_cast<DWORD>(read.size()), {0, 0}, &count);
    EXPECT_EQ(read, u"Cálculo del año → €");
    std::fclose(stream);
}

} // namespace
} // namespace tolvex
