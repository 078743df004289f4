#include "core/text.hpp"
#include "session/session.hpp"
#include "support/tables.hpp"
#include "tolvex/tolvex.hpp"

#include <limits>

namespace tolvex::testing {
namespace {

class Staging : public ::testing::Test
{
protected:
    Staging() { session() = Session(); }

    // The line's fields, in their order.
    static std::vector<Text> line(std::size_t i)
    {
        const DetalleRow& row = session().gDetalle[i];
        return {row.FolioDocto, row.TipoDocumento,    row.Producto,   row.Cantidad,
                row.Unidad,     row.PrecioSinIva,     row.Iva,        row.Importe,
                row.PorcIva,    row.FolioDoctoEntero, row.CveProducto};
    }
    static Text staged_addenda(std::size_t i)
    {
        const AddendaRow& row = session().gAddenda[i];
        return join({row.cRfcCte, row.nRama, row.nPadre, row.cValor}, u"|");
    }
    static void add_line(const Text& folio)
    {
        DetFacturas().SetDetalleDocto(folio, u"F", u"CLAVE", u"Producto", 1, u"PZA", 1, 0.16, 1, 16);
    }
};

TEST_F(Staging, every_receiver_value_goes_to_its_member_clipped_to_its_length)
{
    const auto longer_than = [](char16_t letter) { return Text(600, letter); };
    Cliente().SetDatosClientes(longer_than(u'a'), longer_than(u'b'), longer_than(u'c'), longer_than(u'd'),
                               longer_than(u'e'), longer_than(u'f'), longer_than(u'g'), longer_than(u'h'),
                               longer_than(u'i'), longer_than(u'j'), longer_than(u'k'), u"abc", u" 10 ",
                               u"1.6", u"", 32767, longer_than(u'1'), Date::of(2011, 1, 5, 21, 7, 3),
                               u"C:\\fe\\", 10.5, 0.0001, u"dolares", 12.735, u"uno", u"dos", u"tres");
    const Session& s = session();
    const std::vector<Text> clipped = {s.gRfcCliente, s.gNombreCliente, s.gCalle,     s.gNumeroExt,
                                       s.gNumeroInt,  s.gColonia,       s.gLocalidad, s.gEstado,
                                       s.gMunicipio,  s.gPais,          s.gCodigoPos};
    const std::size_t lengths[] = {20, 500, 500, 20, 20, 70, 70, 70, 70, 70, 20};
    for (std::size_t i = 0; i < clipped.size(); ++i)
        EXPECT_EQ(clipped[i], Text(lengths[i], static_cast<char16_t>(u'a' + i)));
    EXPECT_EQ(s.gClaveFolio, longer_than(u'1'));
    EXPECT_EQ(s.gFormaPago, 32767);
    EXPECT_EQ(s.gSubtotal + u"|" + s.gDescuento + u"|" + s.gImpuesto + u"|" + s.gTotal, u"abc| 10 |1.6|");
    EXPECT_EQ(s.gFechaHoraDocto + u"|" + s.gRutaDeArchivos, u"2011-01-05T21:07:03|C:\\fe\\");
    EXPECT_EQ(s.gIvaRet + u"|" + s.gISRRet + u"|" + s.gMoneda + u"|" + s.gParidad,
              u"10.5|0.0001|dolares|12.735");
    EXPECT_EQ(s.gDatoAdicional + u"|" + s.gDatoAdicional2 + u"|" + s.gDatoAdicional3, u"uno|dos|tres");
}

TEST_F(Staging, omitted_receiver_values_overwrite_with_their_defaults)
{
    Session& s = session();
    s.gMoneda = s.gDatoAdicional = s.gNombreCliente = u"antes";
    Cliente().SetDatosClientes(u" ab ", u"", u"", u"", u"", u"", u"", u"", u"", u"", u"", u"1", u"0", u"0",
                               u"1", 2, u"1", Date::of(2011, 1, 5, 9, 7, 3), u"");
    EXPECT_EQ(s.gRfcCliente + u"|" + s.gNombreCliente, u" ab |"); // neither trimmed nor upper-cased
    EXPECT_EQ(s.gIvaRet + u"|" + s.gISRRet + u"|" + s.gMoneda + u"|" + s.gParidad + u"|" + s.gDatoAdicional,
              u"0|0|PESOS|1|");
}

TEST_F(Staging, a_line_keeps_its_eleven_fields)
{
    const Text folio(25, u'9');
    DetFacturas().SetDetalleDocto(folio, u"FACTURA", u"CLAVE-DE-PRODUCTO", Text(2001, u'p'), 2.5,
                                  u"UNA UNIDAD MUY LARGA", 10.12345, 1.6, 25, 16);
    EXPECT_EQ(line(1), (std::vector<Text>{Text(20, u'9'), u"F", Text(2000, u'p'), u"2.5", u"UNA UNIDAD MUY ",
                                          u"10.1234", u"1.6", u"25", u"16", folio, u"CLAVE-DE-P"}));
}

TEST_F(Staging, lines_are_counted_from_one_and_only_the_count_is_emptied)
{
    for (const Text folio : {u"1", u"2"}) add_line(folio);
    EXPECT_EQ(session().gNumDetalle, 2);
    EXPECT_EQ(line(2)[0], u"2");
    DetFacturas().InicializaDetalleFactura();
    EXPECT_EQ(session().gNumDetalle, 0);
    EXPECT_EQ(line(1)[0], u"1"); // the old line stays until it is overwritten
    add_line(u"6");
    EXPECT_EQ(session().gNumDetalle, 1);
    EXPECT_EQ(line(1)[0], u"6");
}

TEST_F(Staging, addenda_values_keep_their_fields_and_are_counted_apart)
{
    Addenda addenda;
    addenda.SetAddenda(u"ABC010101AAA", 3, 1);
    addenda.SetAddenda(u"", -1, 7, Text(3000, u'v'));
    addenda.SetAddendaDet(70000, u"ABC010101AAA", 5, -3, u" ");
    EXPECT_EQ(session().gNumAddenda, 2);
    EXPECT_EQ(session().gNumAddendaDet, 1);
    EXPECT_EQ(staged_addenda(1), u"ABC010101AAA|3|1|");
    EXPECT_EQ(staged_addenda(2), u"|-1|7|" + Text(3000, u'v'));
    const AddendaDetRow& row = session().gAddendaDet[1];
    EXPECT_EQ(join({row.cRfcCte, row.nRama, row.nPadre, row.cValor, row.nRenglon}, u"|"),
              u"ABC010101AAA|5|-3| |70000");
    addenda.InicializaAddenda();
    EXPECT_EQ(session().gNumAddenda, 0);
    EXPECT_EQ(session().gNumAddendaDet, 0);
    session().gNumAddenda = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(error_number([&] { addenda.SetAddenda(u"", 1, 0); }), 6); // a count does not wrap around
}

} // namespace
} // namespace tolvex::testing
