// The registered type library says what surface.txt, written by hand, says about the public surface.
#include "client.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <map>

namespace {

constexpr UINT methods_of_dispatch = 7; // the first entries of a dual interface

constexpr GUID tolvex_library = {
    0x5aa356af, 0xac30, 0x496a, {0x9d, 0x50, 0x5c, 0x53, 0x36, 0x27, 0x9f, 0xca}};

std::string utf8(const std::wstring& text)
{
    std::string bytes(text.size() * 3 + 1, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                           bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes.substr(0, static_cast<std::size_t>(length));
}

std::string type_name(VARTYPE type)
{
    static const std::map<VARTYPE, std::string> names = {
        {VT_BSTR, "text"},   {VT_I2, "int16"},        {VT_I4, "int32"}, {VT_BOOL, "Boolean"},
        {VT_CY, "currency"}, {VT_VARIANT, "variant"}, {VT_DATE, "date"}};
    const auto found = names.find(type);
    return found == names.end() ? "type " + std::to_string(type) : found->second;
}

std::string default_value(const PARAMDESC& parameter)
{
    constexpr int optional = PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT;
    if ((parameter.wParamFlags & optional) != optional) return parameter.wParamFlags & optional ? " = ?" : "";
    VARIANT& value = parameter.pparamdescex->varDefaultValue;
    if (value.vt == VT_BOOL) return value.boolVal == VARIANT_TRUE ? " = True" : " = False";
    Variant text;
    VariantChangeTypeEx(&text, &value, LOCALE_INVARIANT, 0, VT_BSTR);
    return value.vt == VT_BSTR ? " = \"" + utf8(text.text()) + "\"" : " = " + utf8(text.text());
}

std::string name_of(ITypeInfo* type)
{
    Bstr name;
    type->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
    return utf8(name.str());
}

// As surface.txt writes a method: Class.Method(parameter type = default, …) result
std::string line_of(ITypeInfo* type, const std::string& class_name, const FUNCDESC& function)
{
    BSTR names[30] = {};
    UINT count = 0;
    type->GetNames(function.memid, names, 30, &count);
    std::string parameters, result = "none";
    for (SHORT i = 0; i < function.cParams; ++i) {
        const TYPEDESC& pointer = function.lprgelemdescParam[i].tdesc;
        const PARAMDESC& parameter = function.lprgelemdescParam[i].paramdesc;
        EXPECT_EQ(pointer.vt, VT_PTR);
        if (parameter.wParamFlags & PARAMFLAG_FRETVAL) {
            result = type_name(pointer.lptdesc->vt);
            continue;
        }
        EXPECT_TRUE((parameter.wParamFlags & PARAMFLAG_FIN) && (parameter.wParamFlags & PARAMFLAG_FOUT));
        parameters += (parameters.empty() ? "" : ", ") + utf8(std::wstring(names[i + 1])) + " " +
                      type_name(pointer.lptdesc->vt) + default_value(parameter);
    }
    const std::string line =
        class_name + "." + utf8(std::wstring(names[0])) + "(" + parameters + ") " + result;
    for (BSTR name : names) SysFreeString(name);
    return line;
}

ComPtr<ITypeInfo> implemented_by(ITypeInfo* type, UINT place)
{
    ComPtr<ITypeInfo> found;
    HREFTYPE reference = 0;
    EXPECT_EQ(type->GetRefTypeOfImplType(place, &reference), S_OK);
    EXPECT_EQ(type->GetRefTypeInfo(reference, found.GetAddressOf()), S_OK);
    return found;
}

void describe(ITypeInfo* coclass, std::vector<std::string>& lines)
{
    constexpr UINT interface_itself = static_cast<UINT>(-1); // not its view as a dispatch interface
    const ComPtr<ITypeInfo> dispatch = implemented_by(coclass, 0);
    const ComPtr<ITypeInfo> type = implemented_by(dispatch.Get(), interface_itself);
    EXPECT_EQ(name_of(dispatch.Get()), "_" + name_of(coclass));
    FUNCDESC* function = nullptr;
    for (UINT i = 0; type->GetFuncDesc(i, &function) == S_OK; ++i) {
        lines.push_back(line_of(type.Get(), name_of(coclass), *function));
        EXPECT_EQ(function->memid, static_cast<MEMBERID>(i + 1));
        EXPECT_EQ(function->oVft, static_cast<SHORT>((methods_of_dispatch + i) * sizeof(void*)));
        type->ReleaseFuncDesc(function);
    }
}

std::vector<std::string> described_lines()
{
    std::vector<std::string> lines;
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(tolvex_library, 1, 0, LOCALE_NEUTRAL, library.GetAddressOf()), S_OK);
    for (UINT i = 0; library && i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind;
        ComPtr<ITypeInfo> type;
        library->GetTypeInfoType(i, &kind);
        library->GetTypeInfo(i, type.GetAddressOf());
        if (kind == TKIND_COCLASS) describe(type.Get(), lines);
    }
    return lines;
}

// One line for each method, in interface order.
std::vector<std::string> surface_lines()
{
    std::vector<std::string> lines;
    std::ifstream file(TOLVEX_SOURCE_DIR "/tests/windows/surface.txt");
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line[0] != '#') lines.push_back(line);
    return lines;
}

TEST(TypeLibrary, is_the_surface_written_by_hand)
{
    const Apartment apartment;
    EXPECT_EQ(described_lines(), surface_lines());
}

} // namespace
