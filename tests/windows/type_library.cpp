// The registered type library says what surface.txt, written by hand, says about the public surface, in the
// words in which the system's compilers describe dual interfaces.
#include "client.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
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
            EXPECT_EQ(parameter.wParamFlags, PARAMFLAG_FOUT | PARAMFLAG_FRETVAL);
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

TYPEATTR attributes(ITypeInfo* type)
{
    TYPEATTR* found = nullptr;
    EXPECT_EQ(type->GetTypeAttr(&found), S_OK);
    const TYPEATTR copy = *found;
    type->ReleaseTypeAttr(found);
    return copy;
}

std::wstring help_of(ITypeInfo* type, MEMBERID member)
{
    Bstr help;
    type->GetDocumentation(member, nullptr, &help, nullptr, nullptr);
    return help.str();
}

// The two views of a dual interface, and the class that offers it.
void expect_dual(ITypeInfo* coclass, ITypeInfo* dispatch, ITypeInfo* type, UINT methods)
{
    constexpr WORD dual =
        TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FDISPATCHABLE;
    const TYPEATTR of_dispatch = attributes(dispatch), of_interface = attributes(type);
    EXPECT_EQ(of_dispatch.typekind, TKIND_DISPATCH);
    EXPECT_EQ(of_dispatch.wTypeFlags, dual & ~TYPEFLAG_FOLEAUTOMATION); // as the system shows this view
    EXPECT_EQ(of_dispatch.cFuncs, methods_of_dispatch + methods);
    EXPECT_EQ(of_dispatch.cbSizeVft, methods_of_dispatch * sizeof(void*));
    EXPECT_EQ(of_interface.typekind, TKIND_INTERFACE);
    EXPECT_EQ(of_interface.wTypeFlags, dual);
    EXPECT_EQ(of_interface.cFuncs, methods);
    EXPECT_EQ(of_interface.cbSizeVft, (methods_of_dispatch + methods) * sizeof(void*));
    EXPECT_EQ(name_of(implemented_by(type, 0).Get()), "IDispatch");
    INT offered = 0;
    coclass->GetImplTypeFlags(0, &offered);
    EXPECT_EQ(offered, IMPLTYPEFLAG_FDEFAULT);
    EXPECT_EQ(attributes(coclass).wTypeFlags, TYPEFLAG_FCANCREATE);
}

void describe(ITypeInfo* coclass, std::vector<std::string>& lines)
{
    constexpr UINT interface_itself = static_cast<UINT>(-1); // not its view as a dispatch interface
    const ComPtr<ITypeInfo> dispatch = implemented_by(coclass, 0);
    const ComPtr<ITypeInfo> type = implemented_by(dispatch.Get(), interface_itself);
    EXPECT_EQ(name_of(dispatch.Get()), "_" + name_of(coclass));
    FUNCDESC* function = nullptr;
    UINT methods = 0;
    for (; type->GetFuncDesc(methods, &function) == S_OK; ++methods) {
        lines.push_back(line_of(type.Get(), name_of(coclass), *function));
        EXPECT_EQ(function->memid, static_cast<MEMBERID>(methods + 1));
        EXPECT_EQ(function->oVft, static_cast<SHORT>((methods_of_dispatch + methods) * sizeof(void*)));
        EXPECT_EQ(function->elemdescFunc.tdesc.vt, VT_HRESULT);
        EXPECT_NE(help_of(type.Get(), function->memid), L"") << lines.back();
        type->ReleaseFuncDesc(function);
    }
    expect_dual(coclass, dispatch.Get(), type.Get(), methods);
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

// The words of a library in a file, for what no interface of the system tells.
class LibraryFile
{
public:
    explicit LibraryFile(const std::string& name)
    {
        std::ifstream file(TOLVEX_SOURCE_DIR "/automation/described/" + name, std::ios::binary);
        bytes_.assign(std::istreambuf_iterator<char>(file), {});
    }

    std::uint32_t word(std::size_t place) const
    {
        std::uint32_t found = 0;
        std::memcpy(&found, bytes_.substr(place).data(), sizeof found);
        return found;
    }

    bool has(const std::string& bytes) const { return bytes_.find(bytes) != std::string::npos; }
    std::uint32_t type_count() const { return word(0x20); }
    std::size_t type(std::uint32_t number) const
    {
        constexpr std::size_t header = 84, directory = 15 * 16, record = 100;
        return header + 4 * type_count() + directory + record * number;
    }

private:
    std::string bytes_;
};

// What the system's own compilers write for a dual interface of that bitness and for a class.
void expect_compilers_words(const std::string& name, std::uint32_t dual)
{
    SCOPED_TRACE(name);
    const LibraryFile file(name);
    ASSERT_EQ(file.type_count(), 12u);
    EXPECT_TRUE(file.has(std::string("\x05\x00\x64\xF9PswBd", 9))); // w hashed as English has it
    for (std::uint32_t i = 0; i < file.type_count(); ++i) {
        const bool is_interface = i % 2 == 0;
        EXPECT_EQ(file.word(file.type(i)) & 0xFFFF, is_interface ? dual : 0x2225);
        EXPECT_EQ(file.word(file.type(i) + 0x30), is_interface ? 0x11C0u : 0x2u);  // flags
        EXPECT_EQ(file.word(file.type(i) + 0x58), is_interface ? 0x70002u : 0x0u); // inherited functions
    }
}

// The mark of a function with a result, in interface order.
std::string marks_of_results(const std::string& name)
{
    const LibraryFile file(name);
    std::string marks;
    for (std::uint32_t i = 0; i < file.type_count(); ++i) {
        std::size_t place = file.word(file.type(i) + 4) + 4;
        for (std::uint32_t left = file.word(file.type(i) + 0x18); left > 0; --left) {
            marks += file.word(place + 16) & 0x4000 ? 'r' : '-';
            place += file.word(place) & 0xFFFF;
        }
    }
    return marks;
}

TEST(TypeLibrary, has_the_words_of_the_compilers_in_both_files)
{
    expect_compilers_words("TOLVEX-win64.tlb", 0x4234);
    expect_compilers_words("TOLVEX-win32.tlb", 0x2234);
    for (const char* name : {"TOLVEX-win64.tlb", "TOLVEX-win32.tlb"})
        EXPECT_EQ(marks_of_results(name), "rrrr---rrrrrrrrrrrrr-----");
}

TEST(TypeLibrary, helps_with_every_method_in_the_users_letters)
{
    const Apartment apartment;
    ComPtr<ITypeInfo> type;
    create<IDispatch>(L"TOLVEX.DetFacturas")->GetTypeInfo(0, 0, type.GetAddressOf());
    EXPECT_EQ(help_of(type.Get(), 1), L"Agrega un rengl\u00f3n al documento.");
}

TEST(TypeLibrary, is_the_surface_written_by_hand)
{
    const Apartment apartment;
    EXPECT_EQ(described_lines(), surface_lines());
}

} // namespace
