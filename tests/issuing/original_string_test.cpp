#include "issuing/original_string.hpp"

#include "core/errors.hpp"
#include "support/station.hpp"
#include "support/tables.hpp"

namespace tolvex::testing {
namespace {

// The staged sale of the station without its master data's flags: tests set those they are about.
class OriginalString : public Station
{
protected:
    OriginalString() { stage_document(); }

    Text header()
    {
        document = document_values(session(), 1, {});
        return header_piece(session(), document);
    }

    Text whole(const IssueOptions& options = {})
    {
        document = document_values(session(), 1, options);
        return original_string(session(), document);
    }

    DocumentValues document;
};

constexpr TextView issuer =
    u"|AES010101AAA|ABARROTES LA ESPERANZA|ALHÓNDIGA|15|CENTRO|GUANAJUATO|GTO|MÉXICO|36000";
constexpr TextView receiver =
    u"|PEGM800101AB1|María Peña|Niños Héroes|120|Del Valle|Benito Juárez|Distrito Federal"
    u"|México|03100|";
// The second line's price and amount end in half a cent, which goes to the even one.
constexpr TextView concepts = u"5.00|KG|Café de altura, 1 kg|180.00|900.00|2.50|PZA|Pan|188.00|470.02|";

TEST_F(OriginalString, of_a_credit_note_with_withholdings_in_another_currency)
{
    Receiver other;
    other.moneda = u"pesos"; // not to the letter, so it is foreign
    other.Paridad = 17.5;
    other.ISRRet = 137.005;
    stage(other);
    EXPECT_EQ(whole({.vlTipoDocumento = u"egreso", .vlTasaDeIva = 11}),
              u"||3.0|2011-03-15T14:05:09|egreso|PAGO EN UNA SOLA EXHIBICION|1370.00|17.5000|USD|1508.00" +
                  Text(issuer) + Text(receiver) + Text(concepts) + u"ISR|137.01|IVA|0.00|IVA|11.00|208.00||");
}

TEST_F(OriginalString, flags_switch_header_fields_and_the_version_hides_the_series)
{
    session().gSerie = u"A";
    session().gParidad = u"17.5"; // of pesos it is always 1
    Session& idle = session();    // these switch nothing
    idle.gMostrarAnnoAprobacion = idle.gMostrarCondicionesDePago = idle.gMostrarDescuento = false;
    const Text rest =
        u"|2011-03-15T14:05:09|ingreso|PAGO EN UNA SOLA EXHIBICION|1370.00|1|MXN|1508.00" + Text(issuer);
    EXPECT_EQ(header(), u"|3.0" + rest);
    session().gMostrarVersion = false;
    EXPECT_EQ(header(), u"|A" + rest);
    session().gMostrarSerie = false;
    EXPECT_EQ(header(), rest);
    session().gMostrarTipoDeComprobante = session().gMostrarFormadePago = false;
    EXPECT_EQ(header(), u"|2011-03-15T14:05:09|1370.00|1|MXN|1508.00" + Text(issuer));
    session().gMostrarSubtotal = session().gMostrarTotal = false;
    EXPECT_EQ(header(), u"|2011-03-15T14:05:09|1|MXN" + Text(issuer));
}

TEST_F(OriginalString, empty_address_values_leave_with_their_bars)
{
    Session& s = session();
    s.gEmpColonia = s.gEmpPais = s.gEmpCodigoPostal = u"";
    EXPECT_TRUE(header().ends_with(u"|AES010101AAA|ABARROTES LA ESPERANZA|ALHÓNDIGA|15|GUANAJUATO|GTO|"));
    s.gEmpRfc = s.gEmpNombre = s.gEmpCalle = s.gEmpNumExterior = s.gEmpMunicipio = s.gEmpEstado = u"";
    EXPECT_TRUE(header().ends_with(u"|1508.00||||"));

    Receiver bare;
    bare.Calle = bare.NumeroExt = bare.Colonia = bare.Municipio = bare.Estado = bare.Pais = bare.CodigoPos =
        u"";
    bare.Rfc = bare.Nombre = u"";
    stage(bare);
    EXPECT_NE(whole().find(u"|||||||5.00|KG"), Text::npos); // 4 bars of the issuer, 3 of the receiver
}

TEST_F(OriginalString, either_withholding_above_zero_changes_the_taxes)
{
    for (const auto& [iva, isr, taxes] : {std::tuple{0.0, 0.0, u"|IVA|16.00|208.00|208.00||"},
                                          {-5.0, -0.01, u"|IVA|16.00|208.00|208.00||"},
                                          {0.0001, 0.0, u"|ISR|0.00|IVA|0.00|IVA|16.00|208.00||"},
                                          {0.4, 0.0, u"|ISR|0.00|IVA|0.40|IVA|16.00|208.00||"},
                                          {-1.0, 10.0, u"|ISR|10.00|IVA|-1.00|IVA|16.00|208.00||"}}) {
        Receiver withheld;
        withheld.IvaRet = iva;
        withheld.ISRRet = isr;
        stage(withheld);
        EXPECT_TRUE(whole().ends_with(taxes)) << to_utf8(whole());
    }
}

TEST_F(OriginalString, a_total_that_is_no_number_gives_an_empty_header_and_keeps_what_was_set)
{
    Receiver late;
    late.Total = u"abc"; // fails after the date and the subtotal are set
    late.Subtotal = u"500.005";
    stage(late);
    EXPECT_EQ(header(), u"");
    EXPECT_EQ(last_error(), type_mismatch().description());
    EXPECT_EQ(document.DocSubTotal, 500.01);
    EXPECT_EQ(document.DocFechaDate, Date::of(2011, 3, 15, 14, 5, 9));
}

} // namespace
} // namespace tolvex::testing
