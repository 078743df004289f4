// Nothing is left behind: objects, calls and errors, ten thousand times; and the component's own counts.
#include "client.hpp"
#include "held.hpp"

#include <gtest/gtest.h>

namespace {

constexpr int rounds = 10'000, warm_up = 500;

// Busy bytes of every heap of the process.
long long heap_bytes()
{
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    long long bytes = 0;
    for (DWORD i = 0; i < count && i < 64; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
    }
    return bytes;
}

void one_round()
{
    const auto addenda = create<TOLVEX::_Addenda>(L"TOLVEX.Addenda");
    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    Bstr rfc(L"ABC010101AAA"), value(L"valor"), folio(L"antes");
    SHORT one = 1;
    VARIANT_BOOL done = VARIANT_FALSE;
    Variant result;
    addenda->SetAddenda(&rfc, &one, &one, &value, &result);
    addenda->InicializaAddenda(&result);
    docto->BorraFacturaElectronica(&one, &one, &folio, &done); // traps its error
    docto->fgObtenFolioFactura(&rfc, &folio, &done);           // raises one
    SetErrorInfo(0, nullptr);

    Variant text(L"texto"), wrong(L"abc"), variable(SHORT{5}), nothing;
    invoke(addenda.Get(), 1, {wrong, wrong, text});
    invoke(docto.Get(), 10, {reference(VT_VARIANT, &variable), text});
    invoke(docto.Get(), 10, {nothing, text});
}

// The first test of its process: nothing may have been staged before it.
TEST(Lifetime, counts_objects_and_locks)
{
    const Apartment apartment;
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(
        CoGetClassObject(__uuidof(TOLVEX::Addenda), CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&factory)),
        S_OK);
    const auto can_unload = [exported = GetProcAddress(GetModuleHandleW(L"TOLVEX.dll"), "DllCanUnloadNow")] {
        return static_cast<HRESULT>(exported());
    };
    EXPECT_EQ(can_unload(), S_FALSE);
    {
        ComPtr<IUnknown> object;
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)), S_OK);
        EXPECT_EQ(factory->LockServer(TRUE), S_OK);
        factory = nullptr;
        EXPECT_EQ(can_unload(), S_FALSE);
        EXPECT_EQ(object->AddRef(), 2u);
        EXPECT_EQ(object->Release(), 1u);
    }
    EXPECT_EQ(can_unload(), S_FALSE); // the lock
    CoGetClassObject(__uuidof(TOLVEX::Addenda), CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&factory));
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    void* none = &none;
    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &none), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    factory = nullptr;
    EXPECT_EQ(can_unload(), S_OK);

    // Once something is staged it belongs to the process: unloading would lose it.
    {
        const auto addenda = create<TOLVEX::_Addenda>(L"TOLVEX.Addenda");
        Variant result;
        addenda->InicializaAddenda(&result);
    }
    EXPECT_EQ(can_unload(), S_FALSE);
}

TEST(Lifetime, leaves_no_handle_and_no_byte)
{
    const Apartment apartment;
    for (int i = 0; i < warm_up; ++i) one_round();
    const long long bytes_before = heap_bytes(), handles_before = held::handles();
    for (int i = 0; i < rounds; ++i) one_round();
    const long long bytes = heap_bytes() - bytes_before, grown_handles = held::handles() - handles_before;
    std::printf("crecen %lld bytes y %lld handles en %d vueltas\n", bytes, grown_handles, rounds);
    EXPECT_LT(bytes, rounds); // less than a byte a round: nothing is lost each time
    EXPECT_LE(grown_handles, 0);
}

} // namespace
