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
        change_schema(u"Create Table loose As Select * From " + table);
        change_schema(u"Drop Table " + table);
        change_schema(u"Alter Table loose Rename To " + table);
    }
};

TEST_F(MasterData, company_texts_are_trimmed_and_null_is_empty)
{
    session().gEmpTelefono = u"antes";
    ASSERT_TRUE(genera_docto.GetDatosEmpresa(1));
    const Session& s = session();
    EXPECT_EQ(s.gnEmpresa, 1);
    EXPECT_EQ(s.gEmpNombre + u"|" + s.gEmpCalle + u"|" + s.gEmpNumExterior + u"|" + s.gEmpNumInterior,
              u"ABARROTES LA ESPERANZA|ALHÓNDIGA|15|B");
    EXPECT_EQ(s.gEmpColonia + u"|" + s.gEmpLocalidad + u"|" + s.gEmpMunicipio + u"|" + s.gEmpEstado + u"|" +
                  s.gEmpPais + u"|" + s.gEmpCodigoPostal,
              u"CENTRO|MARFIL|GUANAJUATO|GTO|MÉXICO|36000");
    EXPECT_EQ(s.gEmpTelefono + u"|" + s.gEmpRfc + u"|" + s.gEmpCurp, u"|AES010101AAA|CURP");
}

TEST_F(MasterData, each_flag_comes_from_its_own_column)
{
    using S = Session;
    const std::pair<TextView, bool S::*> flags[] = {{u"Version", &S::gMostrarVersion},
                                                    {u"Serie", &S::gMostrarSerie},
                                                    {u"AnnoAprobacion", &S::gMostrarAnnoAprobacion},
                                                    {u"TipoDeComprobante", &S::gMostrarTipoDeComprobante},
                                                    {u"FormadePago", &S::gMostrarFormadePago},
                                                    {u"CondicionesDePago", &S::gMostrarCondicionesDePago},
                                                    {u"Subtotal", &S::gMostrarSubtotal},
                                                    {u"Descuento", &S::gMostrarDescuento},
                                                    {u"Total", &S::gMostrarTotal},
                                                    {u"NameSpacePosition", &S::gMostrarNameSpacePosition},
                                                    {u"xmlns", &S::gMostrarxmlns},
                                                    {u"xmlnsxsi", &S::gMostrarxmlnsxsi},
                                                    {u"xsischemaLocation", &S::gMostrarxsischemaLocation}};
    for (const auto& [cleared, unused] : flags) {
        execute(u"Update FE_EMPRESAS Set nMostrar" + Text(cleared) + u"=0");
        ASSERT_TRUE(genera_docto.GetDatosEmpresa(1));
        for (const auto& [column, member] : flags)
            EXPECT_EQ(session().*member, column != cleared)
                << to_utf8(cleared) << " cleared, " << to_utf8(column);
        execute(u"Update FE_EMPRESAS Set nMostrar" + Text(cleared) + u"=-1"); // any number but 0 is true
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
    EXPECT_EQ(session().gEmpRfc + u"|" + session().gSucNombre + u"|" + session().gSerieCertificado,
              u"AES010101AAA|MATRIZ|20001000000100005867");
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

    change_schema(
        u"Alter Table FE_EMPRESAS Drop Column nMostrarAnnoAprobacion"); // used by nobody, yet it must
                                                                        // be there
    EXPECT_TRUE(genera_docto.GetDatosEmpresa(1));
    EXPECT_NE(last_error().find(u"nMostrarAnnoAprobacion"), Text::npos);
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
    execute(u"Update FE_SUCURSALES Set nCertificado=40000");
    session().gSucNombre = u"antes";
    EXPECT_FALSE(genera_docto.GetDatosSucursal(1, 1)); // half loaded
    EXPECT_EQ(last_error(), overflow().description());
    EXPECT_EQ(session().gSucNombre + u"|" + session().gSucRfc, u"MATRIZ|AES010101AAA");
    EXPECT_EQ(session().gnCertificado, 2);
}

TEST_F(MasterData, the_certificate_is_the_one_of_the_branch)
{
    EXPECT_FALSE(genera_docto.GetDatosCertificado(1)); // number 0 before any branch
    ASSERT_TRUE(genera_docto.GetDatosSucursal(1, 1));
    ASSERT_TRUE(genera_docto.GetDatosCertificado(1));
    const Session& s = session();
    EXPECT_EQ(s.gRutaCertificado + u"|" + s.gRutaLlavePrivada, u"C:\\sello.cer|C:\\sello.key");
    EXPECT_EQ(s.gVigenciaDesde, Date::of(2010, 10, 22, 16, 4));
    EXPECT_EQ(s.gVigenciaHasta, Date::of(2012, 10, 21));
    EXPECT_EQ(s.gVigenciaDesdeTxt + u"|" + s.gVigenciaHastaTxt, u"22-10-2010|21-10-2012");
    EXPECT_EQ(s.gSerialCertificado + u"|" + s.gSerieCertificado, u"3230|20001000000100005867");
    EXPECT_EQ(s.gCertificado, u"MIIB CERT IFICADO==");

    execute(u"Update FE_CERTIFICADOS Set cRuta_Certificado='otra', dVigencia_Cert_Hasta=Null, "
            u"cCertificado='otro'");
    EXPECT_TRUE(genera_docto.GetDatosCertificado(1)); // fails half-way
    EXPECT_EQ(s.gRutaCertificado + u"|" + s.gCertificado, u"otra|MIIB CERT IFICADO==");
    EXPECT_EQ(last_error(), type_mismatch().description());
}

TEST_F(MasterData, a_folio_range_is_found_by_its_number_alone)
{
    execute(u"Update FE_FOLIOS Set nEmpresa=5, cSerie=' A ', nDesde=2147483647, nAnno=Null Where nFolio=1");
    ASSERT_TRUE(fgCargaDatosFolio(session(), u"1"));
    const Session& s = session();
    EXPECT_EQ(s.gDocumento + u"|" + s.gFolio + u"|" + s.gSerie + u"|" + s.gNumeroAprobacion + u"|" +
                  s.gStatusFolio + u"|" + s.gEsquema,
              u"FACTURAS|FD|A|2011|USANDO|1");
    EXPECT_EQ(s.gAnnoAprobacion, 0);
    EXPECT_EQ(s.gFolioDesde, 2147483647);
    EXPECT_EQ(s.gFolioHasta, 100);
}

TEST_F(MasterData, a_folio_range_that_fails_says_why_in_a_message)
{
    execute(u"Update FE_FOLIOS Set nAnno=40000 Where nFolio=1");
    EXPECT_FALSE(fgCargaDatosFolio(session(), u"1"));
    EXPECT_EQ(messages, (std::vector<Message>{{overflow().description(), u"TOLVEX"}}));
    EXPECT_EQ(session().gSerie, u"A"); // loaded until then

    EXPECT_FALSE(fgCargaDatosFolio(session(), u"1'"));
    EXPECT_EQ(messages.size(), 2u);
}

TEST_F(MasterData, the_next_folio_is_the_counter_of_the_branch_plus_one_or_0_past_its_type)
{
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 1); // Null counts as 0, whatever nDesde says
    EXPECT_TRUE(counter(1).is_null());               // and Null plus 1 stays Null
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 2), 0); // the branch has no range
    execute(u"Update FE_SUCURSALES Set nFolio=2 Where nSucursal=1");
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 8);
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 9);
    EXPECT_EQ(rows(u"Select nUltimoFolio From FE_FOLIOS Order By nFolio"), u"Null/9/5");
    execute(u"Update FE_FOLIOS Set nUltimoFolio=32767 Where nFolio=2");
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 0);
    EXPECT_EQ(counter(2).int32(), 32767); // the increment was not sent
}

TEST_F(MasterData, without_a_connection_company_and_certificate_say_true_the_branch_false)
{
    ConfigFE().CierraConexion();
    EXPECT_TRUE(genera_docto.GetDatosEmpresa(1));
    EXPECT_TRUE(genera_docto.GetDatosCertificado(1));
    EXPECT_FALSE(genera_docto.GetDatosSucursal(1, 1));
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 0);
    EXPECT_NE(last_error().find(u"AbrirConexion"), Text::npos);
}

} // namespace
} // namespace tolvex::testing
