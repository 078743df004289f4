// A host that brings MinGW's run-time library along, as programs made with Qt or GTK do.
#include "../client.hpp"

#include <gtest/gtest.h>

namespace {

#ifdef __i386__
constexpr wchar_t run_time[] = L"libgcc_s_dw2-1.dll";
#else
constexpr wchar_t run_time[] = L"libgcc_s_seh-1.dll";
#endif

TEST(SharedRunTime, errors_stay_within_the_component_and_the_hosts_own_work_on)
{
    ASSERT_TRUE(GetModuleHandleW(run_time));
    const Apartment apartment;
    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    Bstr range(L"1"), folio;
    SHORT one = 1;
    VARIANT_BOOL done = VARIANT_TRUE;
    for (int times = 0; times < 3; ++times) {
        EXPECT_LT(docto->fgObtenFolioFactura(&range, &folio, &done), 0); // raised
        EXPECT_EQ(docto->GetDatosSucursal(&one, &one, &done), S_OK);     // trapped
        EXPECT_EQ(done, VARIANT_FALSE);
        EXPECT_THROW(throw std::runtime_error("del programa"), std::runtime_error);
    }
}

} // namespace
