// A host that registers nothing: it activates the component's manifest, which lies beside the component.
#include "client.hpp"

#include <gtest/gtest.h>

TEST(RegistrationFree, the_manifest_beside_the_component_is_enough)
{
    const Apartment apartment;
    CLSID id{};
    EXPECT_LT(CLSIDFromProgID(L"TOLVEX.Addenda", &id), 0);
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpSource = L"TOLVEX.manifest";
    const HANDLE manifest = CreateActCtxW(&wanted);
    ULONG_PTR cookie = 0;
    ASSERT_NE(manifest, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(ActivateActCtx(manifest, &cookie));
    for (const wchar_t* name : {L"TOLVEX.GeneraDocto", L"TOLVEX.ConfigFE", L"TOLVEX.Cliente",
                                L"TOLVEX.DetFacturas", L"TOLVEX.Addenda", L"TOLVEX.Maestros"}) {
        ComPtr<ITypeInfo> type;
        EXPECT_EQ(create<IDispatch>(name)->GetTypeInfo(0, 0, type.GetAddressOf()), S_OK);
    }
}
