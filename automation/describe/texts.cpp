#include "automation/describe/descriptions.hpp"

#include <cstdio>
#include <stdexcept>

namespace tolvex::automation {

namespace {

std::wstring cpp_type(VARTYPE type)
{
    switch (type) {
    case VT_BSTR:
        return L"BSTR";
    case VT_I2:
        return L"SHORT";
    case VT_I4:
        return L"LONG";
    case VT_BOOL:
        return L"VARIANT_BOOL";
    case VT_CY:
        return L"CY";
    case VT_DATE:
        return L"DATE";
    case VT_VARIANT:
        return L"VARIANT";
    default:
        throw std::logic_error("a type without a C++ name");
    }
}

std::wstring cpp_method(const Method& method)
{
    std::wstring parameters;
    const auto add = [&](VARTYPE type, const wchar_t* name) {
        parameters += (parameters.empty() ? L"" : L", ") + cpp_type(type) + L"* " + name;
    };
    for (const Parameter& parameter : method.parameters) add(parameter.type, parameter.name);
    if (method.result != VT_EMPTY) add(method.result, L"result");
    return std::wstring(L"    // ") + method.help + L"\n    virtual HRESULT STDMETHODCALLTYPE " +
           method.name + L"(" + parameters + L") = 0;\n";
}

std::wstring cpp_interface(const Class& described)
{
    const std::wstring class_id = text_of(described.class_id), interface_id = text_of(described.interface_id);
    const auto bare = [](const std::wstring& id) { return id.substr(1, id.size() - 2); };
    std::wstring text =
        std::wstring(L"\n// ") + described.description + L": " + program_id(described) + L"\n";
    text += std::wstring(L"class DECLSPEC_UUID(\"") + bare(class_id) + L"\") " + described.name + L";\n";
    text += std::wstring(L"struct DECLSPEC_UUID(\"") + bare(interface_id) + L"\") " +
            interface_name(described) + L" : public IDispatch\n{\n";
    for (const Method& method : described.methods) text += cpp_method(method);
    return text + L"};\n";
}

// For compilers that do not read the identifier out of the declaration.
std::wstring uuid_declaration(const std::wstring& name, const GUID& id)
{
    wchar_t text[200];
    std::swprintf(
        text, 200,
        L"__CRT_UUID_DECL(TOLVEX::%ls, 0x%08lx, 0x%04x, 0x%04x, 0x%02x, 0x%02x, 0x%02x, 0x%02x, 0x%02x, "
        L"0x%02x, 0x%02x, 0x%02x)\n",
        name.c_str(), static_cast<unsigned long>(id.Data1), id.Data2, id.Data3, id.Data4[0], id.Data4[1],
        id.Data4[2], id.Data4[3], id.Data4[4], id.Data4[5], id.Data4[6], id.Data4[7]);
    return text;
}

std::wstring manifest_class(const Class& described)
{
    return std::wstring(L"    <comClass description=\"") + described.description + L"\" clsid=\"" +
           text_of(described.class_id) + L"\" progid=\"" + program_id(described) + L"\" threadingModel=\"" +
           threading_model + L"\" tlbid=\"" + text_of(library_id) + L"\"/>\n";
}

std::wstring manifest_interface(const Class& described)
{
    return L"  <comInterfaceExternalProxyStub name=\"" + interface_name(described) + L"\" iid=\"" +
           text_of(described.interface_id) + L"\" proxyStubClsid32=\"" + type_library_marshaller +
           L"\" baseInterface=\"" + text_of(IID_IDispatch) + L"\" tlbid=\"" + text_of(library_id) + L"\"/>\n";
}

} // namespace

std::wstring cpp_header()
{
    std::wstring text =
        L"\uFEFF// The automation interfaces of TOLVEX for C++ hosts. Every argument goes by reference;\n"
        L"// optional ones must be given too (docs/guia-de-integracion.md lists their defaults).\n"
        L"#pragma once\n\n#include <windows.h>\n\n#include <oaidl.h>\n\nnamespace TOLVEX {\n";
    for (const Class& described : surface()) text += cpp_interface(described);
    text += L"\n} // namespace TOLVEX\n\n#ifdef __CRT_UUID_DECL\n";
    for (const Class& described : surface()) {
        text += uuid_declaration(described.name, described.class_id);
        text += uuid_declaration(interface_name(described), described.interface_id);
    }
    return text + L"#endif\n";
}

std::wstring manifest(const std::wstring& architecture)
{
    std::wstring text = L"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                        L"<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
                        L"  <assemblyIdentity type=\"win32\" name=\"" +
                        std::wstring(assembly_name) + L"\" version=\"" + assembly_version +
                        L"\" processorArchitecture=\"" + architecture +
                        L"\"/>\n  <file name=\"TOLVEX.dll\">\n";
    for (const Class& described : surface()) text += manifest_class(described);
    text += std::wstring(L"    <typelib tlbid=\"") + text_of(library_id) + L"\" version=\"" +
            library_version + L"\" helpdir=\"\"/>\n  </file>\n";
    for (const Class& described : surface()) text += manifest_interface(described);
    return text + L"</assembly>\n";
}

} // namespace tolvex::automation
