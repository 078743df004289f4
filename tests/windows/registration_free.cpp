// A host that registers nothing: its manifest asks for the component's assembly, which lies in its folder.
#include "client.hpp"

#include <gtest/gtest.h>

#include <fstream>

namespace {

constexpr char host_manifest[] = "registration_free.manifest";

// As docs/guia-de-integracion.md has it.
void write_host_manifest()
{
    const char* architecture = sizeof(void*) == 8 ? "amd64" : "x86";
    std::ofstream(host_manifest)
        << R"(<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0"><dependency>)"
        << R"(<dependentAssembly><assemblyIdentity type="win32" name="TOLVEX.Automation" version="1.0.0.0")"
        << " processorArchitecture=\"" << architecture << "\"/></dependentAssembly></dependency></assembly>";
}

std::wstring current_folder()
{
    wchar_t folder[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, folder);
    return folder;
}

} // namespace

TEST(RegistrationFree, the_assembly_beside_the_host_is_enough)
{
    const Apartment apartment;
    CLSID id{};
    EXPECT_LT(CLSIDFromProgID(L"TOLVEX.Addenda", &id), 0);
    write_host_manifest();
    const std::wstring folder = current_folder(), source = folder + L"\\registration_free.manifest";
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    wanted.lpSource = source.c_str();
    wanted.lpAssemblyDirectory = folder.c_str();
    const HANDLE manifest = CreateActCtxW(&wanted);
    std::remove(host_manifest);
    ULONG_PTR cookie = 0;
    ASSERT_NE(manifest, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(ActivateActCtx(manifest, &cookie));
    for (const wchar_t* name : {L"TOLVEX.GeneraDocto", L"TOLVEX.ConfigFE", L"TOLVEX.Cliente",
                                L"TOLVEX.DetFacturas", L"TOLVEX.Addenda", L"TOLVEX.Maestros"}) {
        ComPtr<ITypeInfo> type;
        EXPECT_EQ(create<IDispatch>(name)->GetTypeInfo(0, 0, type.GetAddressOf()), S_OK);
    }
}
