// A host that registers nothing: it activates the component's manifest, which lies beside the component.
#include "checks.hpp"

namespace {

// Activates the assembly for the time it lives.
class Assembly
{
public:
    explicit Assembly(const wchar_t* manifest)
    {
        ACTCTXW wanted{};
        wanted.cbSize = sizeof wanted;
        wanted.lpSource = manifest;
        context_ = CreateActCtxW(&wanted);
        EXPECT(context_ != INVALID_HANDLE_VALUE);
        EXPECT(ActivateActCtx(context_, &cookie_));
    }
    ~Assembly()
    {
        DeactivateActCtx(0, cookie_);
        ReleaseActCtx(context_);
    }

private:
    HANDLE context_;
    ULONG_PTR cookie_ = 0;
};

} // namespace

int main()
{
    const Apartment apartment;
    CLSID id{};
    EXPECT(FAILED(CLSIDFromProgID(L"TOLVEX.Addenda", &id)));
    const Assembly assembly(L"TOLVEX.manifest");
    for (const wchar_t* name : {L"TOLVEX.GeneraDocto", L"TOLVEX.ConfigFE", L"TOLVEX.Cliente",
                                L"TOLVEX.DetFacturas", L"TOLVEX.Addenda", L"TOLVEX.Maestros"}) {
        const auto object = create<IDispatch>(name);
        Owned<ITypeInfo> type;
        EXPECT_EQ(object->GetTypeInfo(0, 0, type.out()), S_OK);
    }
    return end_of_checks();
}
