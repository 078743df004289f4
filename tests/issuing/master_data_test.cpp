#include "issuing/master_data.hpp"

#include "core/errors.hpp"
#include "support/station.hpp"

namespace tolvex::testing {
namespace {

class MasterData : public Station
{
protected:
    // The table without the constraints of its columns, as a foreign tool may have made it.
    void loosen(const Text& table)
    {
        execute(u"Create Table loose As Select * From " + table);
        execute(u"Drop Table " + table);
        execute(u"Alter Table loose Rename To " + table);
    }

    Value counter(int range)
    {
        return answer(u"Select nUltimoFolio From FE_FOLIOS Where nFolio=" + decimal(range));
    }
};

TEST_F(MasterData, company_texts_are_trimmed_and_null_is_empty)
{
    session().gEmpTelefono = u"antes";
    execute(u"Update FE_EMPRESAS Set nMostrarSerie=0, nMostrarTotal=2, nMostrarxmlns=-1");
    ASSERT_TRUE(genera_docto.GetDatosEmpresa(1));
    const Session& s = session();
    EXPECT_EQ(s.gnEmpresa, 1);
    for (const auto& [member, expected] :
         std::initializer_list<std::pair<Text, Text>>{{s.gEmpNombre, u"ABARROTES LA ESPERANZA"},
                                                      {s.gEmpCalle, u"ALHÓNDIGA"},
                                                      {s.gEmpNumExterior, u"15"},
                                                      {s.gEmpNumInterior, u"B"},
                                                      {s.gEmpColonia, u"CENTRO"},
                                                      {s.gEmpLocalidad, u"MARFIL"},
                                                      {s.gEmpMunicipio, u"GUANAJUATO"},
                                                      {s.gEmpEstado, u"GTO"},
                                                      {s.gEmpPais, u"MÉXICO"},
                                                      {s.gEmpCodigoPostal, u"36000"},
                                                      {s.gEmpTelefono, u""},
                                                      {s.gEmpRfc, u"AES010101AAA"},
                                                      {s.gEmpCurp, u"CURP"}})
        EXPECT_EQ(member, expected);
    EXPECT_TRUE(s.gMostrarVersion && s.gMostrarTotal && s.gMostrarxmlns && s.gMostrarxsischemaLocation);
    EXPECT_FALSE(s.gMostrarSerie);
}

TEST_F(MasterData, each_flag_comes_from_its_own_column)
{
    const std::pair<TextView, bool Session::*> flags[] = {
        {u"nMostrarVersion", &Session::gMostrarVersion},
        {u"nMostrarSerie", &Session::gMostrarSerie},
        {u"nMostrarAnnoAprobacion", &Session::gMostrarAnnoAprobacion},
        {u"nMostrarTipoDeComprobante", &Session::gMostrarTipoDeComprobante},
        {u"nMostrarFormadePago", &Session::gMostrarFormadePago},
        {u"nMostrarCondicionesDePago", &Session::gMostrarCondicionesDePago},
        {u"nMostrarSubtotal", &Session::gMostrarSubtotal},
        {u"nMostrarDescuento", &Session::gMostrarDescuento},
        {u"nMostrarTotal", &Session::gMostrarTotal},
        {u"nMostrarNameSpacePosition", &Session::gMostrarNameSpacePosition},
        {u"nMostrarxmlns", &Session::gMostrarxmlns},
        {u"nMostrarxmlnsxsi", &Session::gMostrarxmlnsxsi},
        {u"nMostrarxsischemaLocation", &Session::gMostrarxsischemaLocation}};
    for (const auto& [cleared, unused] : flags) {
        execute(u"Update FE_EMPRESAS Set " + Text(cleared) + u"=0");
        ASSERT_TRUE(genera_docto.GetDatosEmpresa(1));
        for (const auto& [column, member] : flags)
            EXPECT_EQ(session().*member, column != cleared)
                << to_utf8(cleared) << " cleared, " << to_utf8(column);
        execute(u"Update FE_EMPRESAS Set " + Text(cleared) + u"=1");
    }
}

TEST_F(MasterData, a_row_that_does_not_exist_is_false_and_changes_nothing)
{
    load_issuer();
    EXPECT_FALSE(genera_docto.GetDatosEmpresa(2));
    EXPECT_FALSE(genera_docto.GetDatosSucursal(2, 1));
    EXPECT_FALSE(genera_docto.GetDatosSucursal(1, 9));
    EXPECT_FALSE(genera_docto.GetDatosCertificado(2));
    EXPECT_FALSE(fgCargaDatosFolio(session(), u"9"));
    EXPECT_EQ(session().gEmpRfc, u"AES010101AAA");
    EXPECT_EQ(session().gSucNombre, u"MATRIZ");
    EXPECT_EQ(session().gSerieCertificado, u"20001000000100005867");
    EXPECT_EQ(last_error(), u"");
    EXPECT_TRUE(messages.empty());
}

TEST_F(MasterData, a_company_that_fails_half_way_is_true_and_half_loaded)
{
    loosen(u"FE_EMPRESAS");
    execute(u"Update FE_EMPRESAS Set nMostrarSubtotal=Null");
    session().gMostrarTotal = session().gMostrarSubtotal = false;
    EXPECT_TRUE(genera_docto.GetDatosEmpresa(1));
    EXPECT_EQ(last_error(), invalid_use_of_null().description());
    EXPECT_TRUE(session().gMostrarCondicionesDePago);
    EXPECT_FALSE(session().gMostrarTotal);

    execute(
        u"Alter Table FE_EMPRESAS Drop Column nMostrarxmlns"); // consulted by nobody, yet it must be there
    execute(u"Update FE_EMPRESAS Set nMostrarSubtotal=1");
    EXPECT_TRUE(genera_docto.GetDatosEmpresa(1));
    EXPECT_NE(last_error().find(u"nMostrarxmlns"), Text::npos);
    EXPECT_TRUE(session().gMostrarTotal);
    EXPECT_FALSE(session().gMostrarxmlns);
}

TEST_F(MasterData, the_certificate_number_of_a_branch_is_read_leniently)
{
    loosen(u"FE_SUCURSALES");
    for (const auto& [stored, expected] :
         {std::pair{u"Null", 0}, {u"'abc'", 0}, {u"' 12 x'", 12}, {u"'2.5'", 2}}) {
        execute(u"Update FE_SUCURSALES Set nCertificado=" + Text(stored));
        session().gnCertificado = 99;
        EXPECT_TRUE(genera_docto.GetDatosSucursal(1, 1));
        EXPECT_EQ(session().gnCertificado, expected) << to_utf8(stored);
    }
}

TEST_F(MasterData, a_branch_that_fails_half_way_is_false_and_half_loaded)
{
    execute(u"Update FE_SUCURSALES Set nCertificado=40000 Where nSucursal=1");
    session().gnCertificado = 7;
    EXPECT_FALSE(genera_docto.GetDatosSucursal(1, 1));
    EXPECT_EQ(session().gSucNombre, u"MATRIZ");
    EXPECT_EQ(session().gSucRfc, u"AES010101AAA");
    EXPECT_EQ(session().gnCertificado, 7);
    EXPECT_EQ(last_error(), overflow().description());
}

TEST_F(MasterData, the_certificate_is_the_one_of_the_branch)
{
    EXPECT_FALSE(genera_docto.GetDatosCertificado(1)); // number 0 before any branch
    ASSERT_TRUE(genera_docto.GetDatosSucursal(1, 1));
    ASSERT_TRUE(genera_docto.GetDatosCertificado(1));
    const Session& s = session();
    EXPECT_EQ(s.gRutaCertificado, u"C:\\sello.cer");
    EXPECT_EQ(s.gRutaLlavePrivada, u"C:\\sello.key");
    EXPECT_EQ(s.gVigenciaDesde, Date::of(2010, 10, 22, 16, 4));
    EXPECT_EQ(s.gVigenciaHasta, Date::of(2012, 10, 21));
    EXPECT_EQ(s.gVigenciaDesdeTxt, u"22-10-2010");
    EXPECT_EQ(s.gVigenciaHastaTxt, u"21-10-2012");
    EXPECT_EQ(s.gSerialCertificado, u"3230");
    EXPECT_EQ(s.gSerieCertificado, u"20001000000100005867");
    EXPECT_EQ(s.gCertificado, u"MIIB CERT IFICADO==");
}

TEST_F(MasterData, a_certificate_without_an_end_is_true_and_half_loaded)
{
    load_issuer();
    execute(u"Update FE_CERTIFICADOS Set cRuta_Certificado='otra', dVigencia_Cert_Hasta=Null, "
            u"cCertificado='otro'");
    EXPECT_TRUE(genera_docto.GetDatosCertificado(1));
    EXPECT_EQ(session().gRutaCertificado, u"otra");
    EXPECT_EQ(session().gVigenciaHasta, Date::of(2012, 10, 21));
    EXPECT_EQ(session().gCertificado, u"MIIB CERT IFICADO==");
    EXPECT_NE(last_error(), u"");
}

TEST_F(MasterData, a_folio_range_is_found_by_its_number_alone)
{
    execute(u"Update FE_FOLIOS Set nEmpresa=5, cSerie=' A ', nDesde=2147483647, nAnno=Null Where nFolio=1");
    ASSERT_TRUE(fgCargaDatosFolio(session(), u"1"));
    const Session& s = session();
    EXPECT_EQ(s.gDocumento, u"FACTURAS");
    EXPECT_EQ(s.gFolio, u"FD");
    EXPECT_EQ(s.gSerie, u"A");
    EXPECT_EQ(s.gNumeroAprobacion, u"2011");
    EXPECT_EQ(s.gAnnoAprobacion, 0);
    EXPECT_EQ(s.gFolioDesde, 2147483647);
    EXPECT_EQ(s.gFolioHasta, 100);
    EXPECT_EQ(s.gStatusFolio, u"USANDO");
    EXPECT_EQ(s.gEsquema, u"1");
}

TEST_F(MasterData, a_folio_range_that_fails_says_why_in_a_message)
{
    execute(u"Update FE_FOLIOS Set nAnno=40000 Where nFolio=1");
    EXPECT_FALSE(fgCargaDatosFolio(session(), u"1"));
    EXPECT_EQ(messages, (std::vector<Message>{{overflow().description(), u"TOLVEX", 0}}));
    EXPECT_EQ(session().gSerie, u"A"); // loaded until then

    EXPECT_FALSE(fgCargaDatosFolio(session(), u"1'"));
    EXPECT_EQ(messages.size(), 2u);
}

TEST_F(MasterData, the_next_folio_is_the_counter_of_the_branch_plus_one)
{
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 1); // Null counts as 0, whatever nDesde says
    EXPECT_TRUE(counter(1).is_null());               // and Null plus 1 stays Null
    execute(u"Update FE_SUCURSALES Set nFolio=2 Where nSucursal=1");
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 8);
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 9);
    EXPECT_EQ(counter(2).int32(), 9);
    EXPECT_EQ(counter(3).int32(), 5); // no other range moved
}

TEST_F(MasterData, without_a_range_or_past_its_type_the_next_folio_is_0)
{
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 2), 0);
    EXPECT_EQ(counter(2).int32(), 7);
    execute(u"Update FE_FOLIOS Set nUltimoFolio=32767 Where nFolio=1");
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 0);
    EXPECT_EQ(counter(1).int32(), 32767); // the increment was not sent
    ConfigFE().CierraConexion();
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 0);
    EXPECT_TRUE(messages.empty());
}

TEST_F(MasterData, without_a_connection_company_and_certificate_say_true_the_branch_false)
{
    ConfigFE().CierraConexion();
    EXPECT_TRUE(genera_docto.GetDatosEmpresa(1));
    EXPECT_TRUE(genera_docto.GetDatosCertificado(1));
    EXPECT_FALSE(genera_docto.GetDatosSucursal(1, 1));
    EXPECT_NE(last_error().find(u"AbrirConexion"), Text::npos);
}

} // namespace
} // namespace tolvex::testing
