// What Windows' own pages say of the file: the version resource, read back in the language that it names.
#include "client.hpp"

#include <gtest/gtest.h>

namespace {

std::vector<char> version_resource()
{
    std::vector<char> bytes(GetFileVersionInfoSizeW(L"TOLVEX.dll", nullptr));
    EXPECT_TRUE(GetFileVersionInfoW(L"TOLVEX.dll", 0, static_cast<DWORD>(bytes.size()), bytes.data()));
    return bytes;
}

template <class Value>
const Value* value(const std::vector<char>& resource, const std::wstring& path)
{
    void* found = nullptr;
    UINT size = 0;
    return VerQueryValueW(resource.data(), path.c_str(), &found, &size) && size > 0
               ? static_cast<const Value*>(found)
               : nullptr;
}

TEST(VersionResource, is_complete_in_mexican_spanish)
{
    const std::vector<char> resource = version_resource();
    const auto* translation = value<WORD>(resource, L"\\VarFileInfo\\Translation");
    ASSERT_TRUE(translation);
    EXPECT_EQ(translation[0], 0x080A);
    EXPECT_EQ(translation[1], 1200);
    const std::pair<const wchar_t*, const wchar_t*> expected[] = {
        {L"CompanyName", L"TOLVEX"},
        {L"FileDescription", L"TOLVEX: facturas electr\u00f3nicas CFDI 3.0"},
        {L"FileVersion", L"1.0.0.0"},
        {L"InternalName", L"TOLVEX"},
        {L"LegalCopyright", L"\u00a9 2026 Los autores de TOLVEX, licencia MIT"},
        {L"OriginalFilename", L"TOLVEX.dll"},
        {L"ProductName", L"TOLVEX"},
        {L"ProductVersion", L"1.0.0"},
    };
    for (const auto& [name, meant] : expected) {
        const auto* text = value<wchar_t>(resource, std::wstring(L"\\StringFileInfo\\080A04B0\\") + name);
        EXPECT_EQ(std::wstring(text ? text : L"(falta)"), meant);
    }
    const auto* numbers = value<VS_FIXEDFILEINFO>(resource, L"\\");
    ASSERT_TRUE(numbers);
    EXPECT_EQ(numbers->dwFileVersionMS, 0x10000u);
    EXPECT_EQ(numbers->dwFileType, static_cast<DWORD>(VFT_DLL));
}

} // namespace
