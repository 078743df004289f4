// Two apartments of one process, each with objects of its own, as classic ASP and background threads have
// them.
#include "client.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

// One sale is staged and asked about, in which errors are raised and trapped; how often until the end.
int stage_until(Clock::time_point end)
{
    const Apartment apartment;
    int rounds = 0;
    for (; Clock::now() < end; ++rounds) {
        const auto lines = create<TOLVEX::_DetFacturas>(L"TOLVEX.DetFacturas");
        const auto addenda = create<TOLVEX::_Addenda>(L"TOLVEX.Addenda");
        const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
        Bstr text(L"Café de altura, tostado y molido"), folio(L"antes"), range(L"1");
        SHORT one = 1;
        CY amount{};
        VARIANT_BOOL done = VARIANT_FALSE;
        Variant result;
        lines->InicializaDetalleFactura(&result);
        for (int i = 0; i < 20; ++i)
            lines->SetDetalleDocto(&text, &text, &text, &text, &amount, &text, &amount, &amount, &amount,
                                   &amount, &result);
        addenda->InicializaAddenda(&result);
        for (int i = 0; i < 5; ++i) addenda->SetAddenda(&text, &one, &one, &text, &result);
        docto->BorraFacturaElectronica(&one, &one, &text, &done);
        if (docto->fgObtenFolioFactura(&range, &folio, &done) >= 0) return -1; // there is no connection
        SetErrorInfo(0, nullptr);
    }
    return rounds;
}

TEST(Apartments, share_the_session_and_break_nothing)
{
    // The system's own start-up comes first: Wine's hangs when two threads get to it at once.
    const Apartment apartment;
    create<TOLVEX::_Addenda>(L"TOLVEX.Addenda");
    const auto end = Clock::now() + std::chrono::seconds(10);
    int of_other = 0;
    std::thread other([&] { of_other = stage_until(end); });
    const int rounds = stage_until(end);
    other.join();
    EXPECT_GT(rounds, 10);
    EXPECT_GT(of_other, 10);
    HANDLE heaps[64];
    for (DWORD i = 0, count = GetProcessHeaps(64, heaps); i < count && i < 64; ++i)
        EXPECT_TRUE(HeapValidate(heaps[i], 0, nullptr));
}

} // namespace
