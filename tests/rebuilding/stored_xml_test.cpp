#include "support/station.hpp"
#include "support/test_certificate.hpp"

#include <gmock/gmock.h>

namespace tolvex::testing {
namespace {

using ::testing::HasSubstr;

class StoredXml : public Station
{
protected:
    StoredXml() { execute(u"Update FE_CERTIFICADOS Set cCertificado='" + Text(test_certificate) + u"'"); }

    RewrittenXml rewrite(const Text& folio, const Text& kind = u"ingreso")
    {
        return write_xml(folio, 1, 1, kind != u"ingreso", folder_text());
    }

    // Why nothing was written.
    std::string refusal(const Text& folio)
    {
        try {
            rewrite(folio);
        } catch (const Error& error) {
            return error.what();
        }
        return "it was written";
    }
};

// Sales whose rows do not hold all that their original string does.
std::vector<std::pair<Receiver, Text>> sales()
{
    std::vector<std::pair<Receiver, Text>> sales(8, {Receiver(), u"ingreso"});
    Receiver& foreign = sales[1].first;
    foreign.moneda = u"DOLARES";
    foreign.Paridad = 12.735;
    foreign.IvaRet = 146.6667;
    foreign.ISRRet = 137;
    sales[1].second = u"egreso";
    Receiver& barred = sales[2].first;
    barred.Nombre = u"María|Peña||";
    barred.Calle = u"|";
    barred.Pais = u"|México";
    barred.CodigoPos = u"03100||";
    Receiver& quoted = sales[3].first;
    quoted.Nombre = u"O''Hara ''e hijos''";
    quoted.Colonia = u"L''H|ospitalet";
    Receiver& bare = sales[4].first;
    bare.Rfc = bare.Nombre = bare.Calle = bare.NumeroExt = bare.Colonia = bare.Municipio = bare.Estado =
        bare.Pais = bare.CodigoPos = u"";
    sales[5].first.Subtotal = u"1,370.005";
    sales[5].first.Impuesto = u"208.00449999";
    sales[6].first.FechaHoraDocto = Date::of(2010, 12, 31, 23, 59, 59);
    sales[7].first.Nombre = u"Diseño — Ελλάδα";
    return sales;
}

TEST_F(StoredXml, is_the_issued_one_byte_for_byte)
{
    int number = 0;
    for (const auto& [receiver, kind] : sales()) {
        stage_document(receiver);
        DetFacturas().SetDetalleDocto(u"", u"F", u"", u" Tubo 3/4'''' | ''fino'' ", 0.125, u"M''T", 1, 0, 1,
                                      16);
        const Text folio = u"0" + to_text(std::to_string(++number));
        const std::string name = "Facturas/A" + std::to_string(number) + ".xml";
        ASSERT_TRUE(issue(folio, kind)) << number << to_utf8(last_error());
        const std::string issued = content(name);
        EXPECT_TRUE(rewrite(folio, kind).was_there) << number;
        std::filesystem::remove(folder() / name);
        const RewrittenXml written = rewrite(folio, kind);
        EXPECT_FALSE(written.was_there) << number;
        EXPECT_EQ(written.path, folder_text() + u"\\Facturas\\A" + folio.substr(1) + u".xml");
        EXPECT_EQ(content(name), issued) << number;
    }
}

TEST_F(StoredXml, has_the_layout_asked_for_and_no_addenda)
{
    add_layout(u"fe_ctl_adendas", {u"1,0,'Pedido','E',''", u"2,1,'orden','A','7'"});
    stage_document();
    set_root_layout(RootLayout::extended);
    ASSERT_TRUE(issue(u"01", u"ingreso", true));
    const std::string issued = content("Facturas/A1.xml");
    set_root_layout(RootLayout::standard);
    EXPECT_TRUE(rewrite(u"01").was_there); // the other layout and an addenda are no reason to write it anew
    EXPECT_EQ(content("Facturas/A1.xml"), issued);
    std::filesystem::remove(folder() / "Facturas/A1.xml");
    EXPECT_TRUE(rewrite(u"01").without_addenda);
    EXPECT_THAT(content("Facturas/A1.xml"), ::testing::Not(HasSubstr("Addenda")));
    std::filesystem::remove(folder() / "Facturas/A1.xml");
    set_root_layout(RootLayout::extended);
    rewrite(u"01");
    const auto addenda = issued.find("<Addenda>");
    EXPECT_EQ(content("Facturas/A1.xml"), issued.substr(0, addenda) + "</cfdi:Comprobante>\n");
}

TEST_F(StoredXml, is_not_written_unless_the_rows_give_the_stored_string_and_says_what_differs)
{
    stage_document();
    ASSERT_TRUE(issue(u"01"));
    std::filesystem::remove(folder() / "Facturas/A1.xml");
    for (
        const auto& [change, told, repair] :
        {std::tuple{u"Update FE_VENTAS_RESUMEN Set nTotal=1,nIva=208",
                    "total: se guardó «1508.00» y los registros dan «1.00»\n"
                    "  FE_ClienteFactura.nImporteTotal dice 1508 y FE_VENTAS_RESUMEN.nTotal 1",
                    u"Update FE_VENTAS_RESUMEN Set nTotal=1508"},
         {u"Update FE_VENTAS_RESUMEN Set nParidad=2,cMoneda='X'",
          "moneda: se guardó «MXN» y los registros dan «USD»",
          u"Update FE_VENTAS_RESUMEN Set nParidad=1,cMoneda='PESOS'"},
         {u"Update FE_VENTAS_RESUMEN Set dFecha='2011-03-16'", "fecha: se guardó «2011-03-15T14:05:09»",
          u"Update FE_VENTAS_RESUMEN Set dFecha='2011-03-15 14:05:09'"},
         {u"Update FE_VENTAS_RESUMEN Set dFecha=Null", "FE_VENTAS_RESUMEN.dFecha está vacío",
          u"Update FE_VENTAS_RESUMEN Set dFecha='2011-03-15 14:05:09'"},
         {u"Update FE_ClienteFactura Set cNombreCte='Otro'",
          "nombre del receptor: se guardó «María Peña» y los registros dan «Otro»",
          u"Update FE_ClienteFactura Set cNombreCte='María Peña'"},
         {u"Update FE_ClienteFactura Set cCalleCte=''",
          "número exterior del receptor: se guardó «Niños Héroes» y los registros dan nada",
          u"Update FE_ClienteFactura Set cCalleCte='Niños Héroes'"},
         {u"Update FE_ClienteFactura Set nidFE=9", "falta su receptor en FE_ClienteFactura",
          u"Update FE_ClienteFactura Set nidFE=1"},
         {u"Update FE_VENTAS_RESUMEN_DET Set nImporte=9 Where nRenglon=2",
          "importe del renglón 2: se guardó «470.02» y los registros dan «9.00»",
          u"Update FE_VENTAS_RESUMEN_DET Set nImporte=470.015 Where nRenglon=2"},
         {u"Update FE_VENTAS_RESUMEN_DET Set nIdFe=9 Where nRenglon=1",
          "cantidad del renglón 1: se guardó «5.00|KG|Café de altura, 1 kg|180.00|900.00» y los registros dan nada",
          u"Update FE_VENTAS_RESUMEN_DET Set nIdFe=1"},
         {u"Update FE_VENTAS_RESUMEN_DET Set nPrecio=Null", "FE_VENTAS_RESUMEN_DET.nPrecio está vacío",
          u"Update FE_VENTAS_RESUMEN_DET Set nPrecio=180;"
          u"Update FE_VENTAS_RESUMEN_DET Set nPrecio=188.005 Where nRenglon=2"},
         {u"Update FE_EMPRESAS Set cCalle='Reforma'",
          "la empresa cambió sus datos después de emitirlo:\n  calle del emisor: se guardó «ALHÓNDIGA»",
          u"Update FE_EMPRESAS Set cCalle='ALHÓNDIGA'"},
         {u"Update FE_CERTIFICADOS Set cSerie_Certificado='1'",
          "la empresa 1 no tiene el certificado «20001000000100005867»",
          u"Update FE_CERTIFICADOS Set cSerie_Certificado='20001000000100005867'"},
         {u"Update FE_EMPRESAS Set nEmpresa=7", "no existe la empresa 1",
          u"Update FE_EMPRESAS Set nEmpresa=1"}}) {
        execute(change);
        EXPECT_THAT(refusal(u"01"), HasSubstr(told)) << to_utf8(change);
        EXPECT_FALSE(exists("Facturas/A1.xml")) << to_utf8(change);
        execute(repair);
    }
    EXPECT_THAT(refusal(u"02"), HasSubstr("no existe la factura 02 de la empresa 1, sucursal 1"));
    EXPECT_THAT(refusal(u"O'Hara"), HasSubstr("no existe la factura O'Hara"));
    EXPECT_FALSE(rewrite(u"01").was_there);
    execute(u"Update FE_VENTAS_RESUMEN Set cSelloDigital=''");
    execute(u"Update FE_ClienteFactura Set cSelloDigital=''");
    EXPECT_THAT(refusal(u"01"), HasSubstr("se guardó sin sello"));
    change_schema(u"Drop Table FE_ClienteFactura");
    EXPECT_THAT(refusal(u"01"), HasSubstr("FE_ClienteFactura"));
}

} // namespace
} // namespace tolvex::testing
