// A host that registers nothing: it activates the component's manifest, which lies beside the component.
#include "checks.hpp"

int main()
{
    const Apartment apartment;
    CLSID id{};
    EXPECT(FAILED(CLSIDFromProgID(L"TOLVEX.Addenda", &id)));
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpSource = L"TOLVEX.manifest";
    const HANDLE manifest = CreateActCtxW(&wanted);
    ULONG_PTR cookie = 0;
    EXPECT(manifest != INVALID_HANDLE_VALUE);
    EXPECT(ActivateActCtx(manifest, &cookie));
    for (const wchar_t* name : {L"TOLVEX.GeneraDocto", L"TOLVEX.ConfigFE", L"TOLVEX.Cliente",
                                L"TOLVEX.DetFacturas", L"TOLVEX.Addenda", L"TOLVEX.Maestros"}) {
        ComPtr<ITypeInfo> type;
        EXPECT_EQ(create<IDispatch>(name)->GetTypeInfo(0, 0, type.GetAddressOf()), S_OK);
    }
    return end_of_checks();
}
