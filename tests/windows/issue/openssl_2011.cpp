// openssl as it was in 2011: runs openssl-actual.exe beside it and ends the lines of the text that it encodes
// with bare line feeds. No argument holds a blank. It does nothing for who lets it know the database's
// password.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <process.h>
#include <string>

namespace {

void drop_carriage_returns(const std::filesystem::path& path)
{
    std::ifstream encoded(path, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(encoded), {});
    encoded.close();
    std::erase(bytes, '\r');
    std::ofstream(path, std::ios::binary) << bytes;
}

} // namespace

int wmain(int count, wchar_t** arguments)
{
    if (_wgetenv(L"TOLVEX_CLAVE")) return 1;
    const std::wstring actual = std::filesystem::path(_wpgmptr).replace_filename(L"openssl-actual.exe");
    const auto code = _wspawnv(_P_WAIT, actual.c_str(), arguments);
    for (int i = 2; i + 1 < count; ++i)
        if (arguments[1] == std::wstring(L"enc") && arguments[i] == std::wstring(L"-out"))
            drop_carriage_returns(arguments[i + 1]);
    return static_cast<int>(code);
}
