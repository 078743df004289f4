// type_library FILE: the registered type library says what FILE, written by hand, says about the public
// surface.
#include "described.hpp"

#include <fstream>

namespace {

std::wstring type_name(VARTYPE type)
{
    switch (type) {
    case VT_EMPTY:
        return L"none";
    case VT_BSTR:
        return L"text";
    case VT_I2:
        return L"int16";
    case VT_I4:
        return L"int32";
    case VT_BOOL:
        return L"Boolean";
    case VT_CY:
        return L"currency";
    case VT_DATE:
        return L"date";
    case VT_VARIANT:
        return L"variant";
    default:
        return L"type " + std::to_wstring(type);
    }
}

std::wstring line_of(const DescribedClass& described, const DescribedMethod& method)
{
    std::wstring parameters;
    for (const DescribedParameter& parameter : method.parameters) {
        if (!parameters.empty()) parameters += L", ";
        parameters += parameter.name + L" " + type_name(parameter.type);
        if (parameter.flags & PARAMFLAG_FOPT) parameters += L" = " + parameter.default_value;
    }
    return described.name + L"." + method.name + L"(" + parameters + L") " + type_name(method.result);
}

std::vector<std::string> lines_of(const char* path)
{
    std::vector<std::string> lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line[0] != '#') lines.push_back(line);
    return lines;
}

} // namespace

int main(int, char** arguments)
{
    const Apartment apartment;
    const std::vector<std::string> expected = lines_of(arguments[1]);
    std::size_t i = 0;
    for (const DescribedClass& described : described_classes()) {
        EXPECT_EQ(described.interface_name, L"_" + described.name);
        EXPECT(described.flags & TYPEFLAG_FOLEAUTOMATION);
        ULONG_PTR offset = 7 * sizeof(void*);
        MEMBERID id = 1;
        for (const DescribedMethod& method : described.methods) {
            EXPECT_EQ(line_of(described, method), [&] {
                std::wstring wide(2000, L'\0');
                const std::string& line = i < expected.size() ? expected[i] : expected.back();
                wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
                    CP_UTF8, 0, line.data(), static_cast<int>(line.size()), wide.data(), 2000)));
                return wide;
            }());
            EXPECT_EQ(method.offset, offset);
            EXPECT_EQ(method.id, id);
            for (const DescribedParameter& parameter : method.parameters)
                EXPECT((parameter.flags & (PARAMFLAG_FIN | PARAMFLAG_FOUT)) ==
                       (PARAMFLAG_FIN | PARAMFLAG_FOUT));
            offset += sizeof(void*);
            ++id;
            ++i;
        }
    }
    EXPECT_EQ(i, expected.size());
    return end_of_checks();
}
