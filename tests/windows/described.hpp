// The public surface as the registered type library tells it, for the tests that go through all of it.
#pragma once

#include "checks.hpp"

#include <vector>

struct DescribedParameter
{
    std::wstring name;
    VARTYPE type = VT_EMPTY; // of what the pointer points to
    USHORT flags = 0;
    std::wstring default_value;
};

struct DescribedMethod
{
    std::wstring name;
    MEMBERID id = 0;
    ULONG_PTR offset = 0; // of its entry in the table of functions
    std::vector<DescribedParameter> parameters;
    VARTYPE result = VT_EMPTY;
};

struct DescribedClass
{
    std::wstring name, interface_name;
    GUID class_id{}, interface_id{};
    WORD flags = 0;
    std::vector<DescribedMethod> methods;
};

inline const GUID tolvex_library = {
    0x5aa356af, 0xac30, 0x496a, {0x9d, 0x50, 0x5c, 0x53, 0x36, 0x27, 0x9f, 0xca}};

inline std::wstring default_value(const PARAMDESC& parameter)
{
    if (!(parameter.wParamFlags & PARAMFLAG_FHASDEFAULT)) return L"";
    Variant text;
    VARIANT& value = parameter.pparamdescex->varDefaultValue;
    if (value.vt == VT_BOOL) return value.boolVal == VARIANT_TRUE ? L"True" : L"False";
    VariantChangeTypeEx(&text, &value, LOCALE_INVARIANT, 0, VT_BSTR);
    const std::wstring shown_value(text.bstrVal, SysStringLen(text.bstrVal));
    return value.vt == VT_BSTR ? L"\"" + shown_value + L"\"" : shown_value;
}

inline DescribedMethod described_method(ITypeInfo* type, const FUNCDESC& function)
{
    DescribedMethod method;
    BSTR names[30] = {};
    UINT count = 0;
    type->GetNames(function.memid, names, 30, &count);
    method.name = names[0];
    method.id = function.memid;
    method.offset = static_cast<ULONG_PTR>(function.oVft);
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& element = function.lprgelemdescParam[i];
        EXPECT_EQ(element.tdesc.vt, VT_PTR);
        const VARTYPE pointed = element.tdesc.lptdesc->vt;
        if (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL)
            method.result = pointed;
        else
            method.parameters.push_back(
                {names[i + 1], pointed, element.paramdesc.wParamFlags, default_value(element.paramdesc)});
    }
    for (BSTR name : names) SysFreeString(name);
    return method;
}

// The interface itself, not its view as a dispatch interface.
inline Owned<ITypeInfo> interface_of(ITypeInfo* dispatch)
{
    Owned<ITypeInfo> found;
    HREFTYPE reference = 0;
    EXPECT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    EXPECT_EQ(dispatch->GetRefTypeInfo(reference, found.out()), S_OK);
    return found;
}

inline DescribedClass described_class(ITypeInfo* coclass)
{
    DescribedClass described;
    TYPEATTR* attributes = nullptr;
    coclass->GetTypeAttr(&attributes);
    described.class_id = attributes->guid;
    coclass->ReleaseTypeAttr(attributes);
    Bstr name, interface_name;
    coclass->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
    described.name = name.str();

    Owned<ITypeInfo> dispatch;
    HREFTYPE reference = 0;
    EXPECT_EQ(coclass->GetRefTypeOfImplType(0, &reference), S_OK);
    EXPECT_EQ(coclass->GetRefTypeInfo(reference, dispatch.out()), S_OK);
    dispatch->GetDocumentation(MEMBERID_NIL, &interface_name, nullptr, nullptr, nullptr);
    described.interface_name = interface_name.str();

    const Owned<ITypeInfo> type = interface_of(dispatch.get());
    type->GetTypeAttr(&attributes);
    described.interface_id = attributes->guid;
    described.flags = attributes->wTypeFlags;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        type->GetFuncDesc(i, &function);
        described.methods.push_back(described_method(type.get(), *function));
        type->ReleaseFuncDesc(function);
    }
    type->ReleaseTypeAttr(attributes);
    return described;
}

inline std::vector<DescribedClass> described_classes()
{
    std::vector<DescribedClass> classes;
    Owned<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(tolvex_library, 1, 0, LOCALE_NEUTRAL, library.out()), S_OK);
    for (UINT i = 0; library && i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind;
        library->GetTypeInfoType(i, &kind);
        if (kind != TKIND_COCLASS) continue;
        Owned<ITypeInfo> type;
        library->GetTypeInfo(i, type.out());
        classes.push_back(described_class(type.get()));
    }
    return classes;
}
