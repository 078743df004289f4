#include "automation/describe/descriptions.hpp"

#include "automation/variants.hpp"
#include "platform/files.hpp"

#include <stdexcept>

namespace tolvex::automation {

namespace {

LPOLESTR writable(const std::wstring& text) { return const_cast<LPOLESTR>(text.c_str()); }

ComPtr<ITypeInfo> dispatch_interface()
{
    ComPtr<ITypeLib> standard;
    check(LoadTypeLib(L"stdole2.tlb", standard.GetAddressOf()), u"loading stdole2.tlb");
    ComPtr<ITypeInfo> found;
    check(standard->GetTypeInfoOfGuid(IID_IDispatch, found.GetAddressOf()), u"finding IDispatch");
    return found;
}

ComPtr<ICreateTypeInfo> new_type(ICreateTypeLib2& library, const std::wstring& name, TYPEKIND kind,
                                 const GUID& id, const wchar_t* description)
{
    ComPtr<ICreateTypeInfo> type;
    check(library.CreateTypeInfo(writable(name), kind, type.GetAddressOf()), u"CreateTypeInfo");
    check(type->SetGuid(id), u"SetGuid");
    check(type->SetVersion(library_major, library_minor), u"SetVersion");
    check(type->SetDocString(writable(description)), u"SetDocString");
    return type;
}

void add_base(ICreateTypeInfo& type, ITypeInfo& base, INT flags)
{
    HREFTYPE reference = 0;
    check(type.AddRefTypeInfo(&base, &reference), u"AddRefTypeInfo");
    check(type.AddImplType(0, reference), u"AddImplType");
    if (flags) check(type.SetImplTypeFlags(0, flags), u"SetImplTypeFlags");
}

TYPEDESC by_reference(TYPEDESC& pointed)
{
    TYPEDESC pointer{};
    pointer.vt = VT_PTR;
    pointer.lptdesc = &pointed;
    return pointer;
}

// Wine's type library writer has no currency values and keeps one byte of True. A currency goes through it as
// a text that takes as many bytes, and both are put right in the file.
class Corrections
{
public:
    Variant storable(Variant value)
    {
        if (value.vt != VT_CY) return value;
        amounts_.push_back(value.cyVal);
        return Variant(to_text(mark(amounts_.size() - 1)));
    }

    void apply(std::string& file) const
    {
        for (std::size_t i = 0; i < amounts_.size(); ++i) {
            const auto* bytes = reinterpret_cast<const char*>(&amounts_[i]);
            replace(file, std::string({VT_BSTR, 0, 4, 0, 0, 0}) + mark(i),
                    std::string({VT_CY, 0}) + std::string(bytes, sizeof(CY)));
        }
        replace(file, {"\xFF\x00\x00\xAC", 4}, {"\xFF\xFF\x00\xAC", 4});
    }

private:
    static std::string mark(std::size_t i)
    {
        return {'$', '0', static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
    }

    static void replace(std::string& file, const std::string& stored, const std::string& meant)
    {
        const std::size_t place = file.find(stored);
        if (place == std::string::npos || file.find(stored, place + 1) != std::string::npos)
            throw std::runtime_error("a default value is not where it was expected in the type library");
        file.replace(place, stored.size(), meant);
    }

    std::vector<CY> amounts_;
};

// The function description of one method and everything that it points to.
class Description
{
public:
    Description(const Method& method, std::size_t index, Corrections& corrections)
        : corrections_(corrections), pointed_(most_parameters + 1), defaults_(most_parameters)
    {
        for (const Parameter& parameter : method.parameters) add_parameter(parameter);
        if (method.result != VT_EMPTY) add(method.result, PARAMFLAG_FOUT | PARAMFLAG_FRETVAL);
        function_.memid = static_cast<MEMBERID>(index) + 1;
        function_.lprgelemdescParam = elements_.data();
        function_.funckind = FUNC_PUREVIRTUAL;
        function_.invkind = INVOKE_FUNC;
        function_.callconv = CC_STDCALL;
        function_.cParams = static_cast<SHORT>(elements_.size());
        function_.elemdescFunc.tdesc.vt = VT_HRESULT;
        name_all(method);
    }
    Description(const Description&) = delete;

    void add_to(ICreateTypeInfo& type, std::size_t index)
    {
        check(type.AddFuncDesc(static_cast<UINT>(index), &function_), u"AddFuncDesc");
        check(type.SetFuncAndParamNames(static_cast<UINT>(index), names_.data(),
                                        static_cast<UINT>(names_.size())),
              u"SetFuncAndParamNames");
    }

private:
    // Both directions, as Visual Basic describes an argument by reference.
    void add_parameter(const Parameter& parameter)
    {
        ELEMDESC& element = add(parameter.type, PARAMFLAG_FIN | PARAMFLAG_FOUT);
        if (!parameter.is_optional()) return;
        PARAMDESCEX& value = defaults_[elements_.size() - 1];
        value.cBytes = sizeof value;
        value.varDefaultValue = corrections_.storable(default_of(parameter)).release();
        element.paramdesc.pparamdescex = &value;
        element.paramdesc.wParamFlags |= PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT;
    }

    ELEMDESC& add(VARTYPE type, int flags)
    {
        TYPEDESC& pointed = pointed_[elements_.size()];
        pointed.vt = type;
        ELEMDESC element{};
        element.tdesc = by_reference(pointed);
        element.paramdesc.wParamFlags = static_cast<USHORT>(flags);
        return elements_.emplace_back(element);
    }

    void name_all(const Method& method)
    {
        names_.push_back(const_cast<LPOLESTR>(method.name));
        for (const Parameter& parameter : method.parameters)
            names_.push_back(const_cast<LPOLESTR>(parameter.name));
    }

    Corrections& corrections_;
    FUNCDESC function_{};
    std::vector<ELEMDESC> elements_;
    std::vector<TYPEDESC> pointed_;
    std::vector<PARAMDESCEX> defaults_;
    std::vector<LPOLESTR> names_;
};

ComPtr<ICreateTypeInfo> add_interface(ICreateTypeLib2& library, const Class& described, ITypeInfo& dispatch,
                                      Corrections& corrections)
{
    auto type = new_type(library, interface_name(described), TKIND_INTERFACE, described.interface_id,
                         described.description);
    add_base(*type.Get(), dispatch, 0);
    check(type->SetTypeFlags(TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FNONEXTENSIBLE),
          u"SetTypeFlags");
    for (std::size_t i = 0; i < described.methods.size(); ++i)
        Description(described.methods[i], i, corrections).add_to(*type.Get(), i);
    check(type->LayOut(), u"LayOut");
    return type;
}

void add_class(ICreateTypeLib2& library, const Class& described, ITypeInfo& dispatch,
               Corrections& corrections)
{
    const auto interface_type = add_interface(library, described, dispatch, corrections);
    ComPtr<ITypeInfo> made;
    check(interface_type.As(&made), u"ITypeInfo");
    auto type = new_type(library, described.name, TKIND_COCLASS, described.class_id, described.description);
    check(type->SetTypeFlags(TYPEFLAG_FCANCREATE), u"SetTypeFlags");
    add_base(*type.Get(), *made.Get(), IMPLTYPEFLAG_FDEFAULT);
    check(type->LayOut(), u"LayOut");
}

} // namespace

void write_type_library(const Text& path, SYSKIND system)
{
    ComPtr<ICreateTypeLib2> library;
    check(CreateTypeLib2(system, wide(path), library.GetAddressOf()), u"CreateTypeLib2");
    check(library->SetName(writable(library_name)), u"SetName");
    check(library->SetGuid(library_id), u"SetGuid");
    check(library->SetVersion(library_major, library_minor), u"SetVersion");
    check(library->SetLcid(LOCALE_NEUTRAL), u"SetLcid");
    check(library->SetDocString(writable(library_description)), u"SetDocString");
    const auto dispatch = dispatch_interface();
    Corrections corrections;
    for (const Class& described : surface())
        add_class(*library.Get(), described, *dispatch.Get(), corrections);
    check(library->SaveAllChanges(), u"SaveAllChanges");
    std::string file = files::read(path);
    corrections.apply(file);
    files::write(path, file);
}

} // namespace tolvex::automation
