// A service has no screen: what would be a message box there must not hold the call up.
#include "client.hpp"

#include <gtest/gtest.h>

TEST(Service, is_not_held_up_by_a_message)
{
    const HWINSTA unseen = CreateWindowStationW(nullptr, 0, WINSTA_ALL_ACCESS, nullptr);
    ASSERT_NE(unseen, nullptr);
    EXPECT_TRUE(SetProcessWindowStation(unseen));

    DeleteFileW(L"servicio.db");
    const Apartment apartment;
    const auto connection = create<TOLVEX::_ConfigFE>(L"TOLVEX.ConfigFE");
    const auto document = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    Bstr none(L""), server(L"sqlite:"), database(L"servicio.db"), folio(L"1"), kind(L"ingreso");
    VARIANT_BOOL done = VARIANT_FALSE, yes = VARIANT_TRUE;
    SHORT rate = 16;
    Variant empty;
    connection->SetDatosConexion(&none, &none, &database, &server, &empty);
    EXPECT_EQ(connection->AbrirConexion(&done), S_OK);

    // There is no folio range: a message.
    EXPECT_EQ(document->GeneraFacturaElectronica(&folio, &yes, &kind, &rate, &yes, &done), S_OK);
    EXPECT_EQ(done, VARIANT_FALSE);
    EXPECT_TRUE(error_information().description.str().starts_with(
        L"No se pudo obtener los datos de los folios digitales"));

    const auto maintenance = create<TOLVEX::_Maestros>(L"TOLVEX.Maestros");
    EXPECT_EQ(maintenance->MuestraEmpresas(&none, &none, &database, &server), run_time_error(445));
    EXPECT_NE(error_information().description.str().find(L"nadie ve las ventanas"), std::wstring::npos);
    connection->CierraConexion(&done);
}
