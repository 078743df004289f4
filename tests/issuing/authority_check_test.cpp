// What the tax authority's check makes of the documents: the table of docs/validacion.md, case by case.
#include "support/authority_check.hpp"

#include "support/station.hpp"
#include "support/test_certificate.hpp"

namespace tolvex::testing {
namespace {

class AuthorityCheck : public Station
{
protected:
    AuthorityCheck()
    {
        execute(u"Update FE_CERTIFICADOS Set cCertificado='" + Text(test_certificate) + u"'");
        execute(u"Update FE_EMPRESAS Set cLocalidad=cColonia");
    }

    // Issues what is staged; whether the seal in its XML is that of the authority's original string.
    bool issued_verifies(const Text& kind = u"ingreso")
    {
        EXPECT_TRUE(issue(u"A00123", kind)) << to_utf8(last_error());
        return seal_verifies(content("Facturas/A123.xml"));
    }

    bool verifies(const Receiver& receiver)
    {
        stage_document(receiver);
        return issued_verifies();
    }

    bool verifies_with_product(const Text& product)
    {
        stage_document();
        DetFacturas().SetDetalleDocto(u"", u"F", u"", product, 0.125, u"", 1.005, 0, 0.125, 16);
        return issued_verifies();
    }
};

TEST_F(AuthorityCheck, reads_the_string_of_annex_20_from_the_xml_alone)
{
    stage_document();
    ASSERT_TRUE(issue());
    EXPECT_EQ(
        authority_string(content("Facturas/A123.xml")),
        "||3.0|2011-03-15T14:05:09|ingreso|PAGO EN UNA SOLA EXHIBICION|1370.00|1|MXN|1508.00|"
        "AES010101AAA|ABARROTES LA ESPERANZA|ALHÓNDIGA|15|CENTRO|GUANAJUATO|GTO|MÉXICO|36000|"
        "PEGM800101AB1|María Peña|Niños Héroes|120|Del Valle|Benito Juárez|Distrito Federal|México|03100|"
        "5.00|KG|Café de altura, 1 kg|180.00|900.00|2.50|PZA|Pan|188.00|470.02|IVA|16.00|208.00|208.00||");
}

TEST_F(AuthorityCheck, verifies_both_kinds_currencies_and_roots)
{
    EXPECT_TRUE(verifies({.Descuento = u"0", .moneda = u"DOLARES", .Paridad = 12.735}));
    stage_document();
    EXPECT_TRUE(issued_verifies(u"egreso"));
    DetFacturas().InicializaDetalleFactura();
    EXPECT_TRUE(issued_verifies()); // without lines, which the schema refuses
    set_root_layout(RootLayout::extended);
    EXPECT_TRUE(verifies({}));
}

TEST_F(AuthorityCheck, of_a_company_needs_one_colonia_and_localidad_a_whole_address_and_every_flag)
{
    const Text whole =
        u"Update FE_EMPRESAS Set cColonia='CENTRO', cLocalidad='CENTRO', cNumExterior='15', "
        u"cMunicipio='GUANAJUATO', cEstado='GTO', cPais='MÉXICO', nMostrarVersion=1, "
        u"nMostrarTipoDeComprobante=1, nMostrarFormadePago=1, nMostrarSubtotal=1, nMostrarTotal=1";
    for (const auto& [change, verified] : {std::pair{u"cColonia='', cLocalidad=''", true},
                                           {u"cLocalidad='MARFIL'", false},
                                           {u"cLocalidad=''", false},
                                           {u"cColonia=''", false},
                                           {u"cNumExterior='', cNumInterior='B', cCalle='', "
                                            u"cCodigoPostal='', cNombre=''",
                                            true}, // though the schema wants street, postal code and name
                                           {u"cMunicipio=''", false},
                                           {u"cEstado=''", false},
                                           {u"cPais=''", false},
                                           {u"cColonia='LA  VALENCIANA', cLocalidad=cColonia", false},
                                           {u"nMostrarSerie=0, nMostrarDescuento=0, nMostrarxmlns=0", true},
                                           {u"nMostrarVersion=0", false},
                                           {u"nMostrarTipoDeComprobante=0", false},
                                           {u"nMostrarFormadePago=0", false},
                                           {u"nMostrarSubtotal=0", false},
                                           {u"nMostrarTotal=0", false}}) {
        execute(whole);
        execute(u"Update FE_EMPRESAS Set " + Text(change));
        EXPECT_EQ(verifies({}), verified) << to_utf8(change);
    }
}

TEST_F(AuthorityCheck, of_a_receiver_needs_a_country_and_texts_without_bars_or_needless_blanks)
{
    EXPECT_TRUE(verifies({.Nombre = u"",
                          .Calle = u"",
                          .NumeroExt = u"",
                          .Colonia = u"",
                          .Estado = u"",
                          .Municipio = u"",
                          .CodigoPos = u""}));
    EXPECT_TRUE(verifies({.Nombre = u"Peña & <Hijos> \"O''Hara\""}));
    for (const Receiver& receiver :
         {Receiver{.Pais = u""}, Receiver{.Nombre = u"Peña|Hijos"}, Receiver{.Nombre = u"María  Peña"},
          Receiver{.Calle = u"5 de Mayo "}, Receiver{.Colonia = u" "}, Receiver{.Nombre = u"Peña “Hijos”"}})
        EXPECT_FALSE(verifies(receiver)) << to_utf8(receiver.Nombre + u"/" + receiver.Calle);
}

TEST_F(AuthorityCheck, of_lines_needs_characters_below_u0800_single_blanks_and_no_doubled_quote)
{
    for (const Text product : {u"Clavo 1/2\" <acero> & más", u"Tubo de 1|2", u"Łódź"})
        EXPECT_TRUE(verifies_with_product(product)) << to_utf8(product);
    for (const Text product :
         {u"Pan  dulce", u"Pan\tdulce", u"Pan\ndulce", u"D''Artagnan", u"Pan – dulce", u"10 €"})
        EXPECT_FALSE(verifies_with_product(product)) << to_utf8(product);
}

TEST_F(AuthorityCheck, of_withholdings_fails_unless_they_are_in_the_xml_alone)
{
    for (const auto& [iva, isr, verified] : {std::tuple{0.0, 100.0, false},
                                             {106.67, 100.0, false},
                                             {0.4, 0.0, false},  // in the string alone
                                             {-1.0, 0.0, true}}) // in the XML alone, where the check skips it
        EXPECT_EQ(verifies({.IvaRet = iva, .ISRRet = isr}), verified) << iva << ' ' << isr;
}

TEST_F(AuthorityCheck, does_not_see_an_addenda_and_fails_a_date_before_2011)
{
    stage_document();
    add_layout(u"fe_ctl_adendas", {u"1,0,'Orden','E','OC-1'"});
    ASSERT_TRUE(issue(u"A00123", u"ingreso", true));
    EXPECT_NE(content("Facturas/A123.xml").find("<Addenda>"), std::string::npos);
    EXPECT_TRUE(seal_verifies(content("Facturas/A123.xml")));
    EXPECT_FALSE(verifies({.FechaHoraDocto = Date::of(2010, 12, 31)})); // sealed with MD5
}

} // namespace
} // namespace tolvex::testing
