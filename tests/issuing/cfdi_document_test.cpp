#include "issuing/cfdi_document.hpp"

#include "core/errors.hpp"
#include "support/station.hpp"

namespace tolvex::testing {
namespace {

std::string golden(const std::string& name) { return read_file(TOLVEX_SOURCE_DIR "/tests/golden/" + name); }

class CfdiDocument : public Station
{
protected:
    // The document of a sale with the given receiver, as it was written.
    std::string xml_of(const Receiver& receiver)
    {
        stage_document(receiver);
        EXPECT_TRUE(issue()) << to_utf8(last_error());
        return content("Facturas/A123.xml");
    }
};

std::string piece(const std::string& xml, const std::string& from, const std::string& to)
{
    const auto start = xml.find(from), end = xml.find(to, start);
    return start == std::string::npos || end == std::string::npos
               ? ""
               : xml.substr(start, end + to.size() - start);
}

TEST_F(CfdiDocument, of_an_invoice_in_pesos) { EXPECT_EQ(xml_of({}), golden("factura.xml")); }

TEST_F(CfdiDocument, of_a_credit_note_with_withholdings_in_another_currency)
{
    Receiver r;
    r.Nombre = u"Tiendas <El Águila> & \"Hijos\"|";
    r.Calle = u"5 de|Mayo";
    r.Pais = u"";
    r.moneda = u"DOLARES";
    r.Paridad = 12.735;
    r.IvaRet = 146.67;
    r.ISRRet = 137;
    r.ClaveFolio = u"2";
    stage_document(r);
    DetFacturas().SetDetalleDocto(u"", u"N", u"", u"Clavo 1/2\" <acero> & más", 0.125, u" ", 0, 0, 0, 16);
    ASSERT_TRUE(issue(u"0045", u"egreso")) << to_utf8(last_error());
    EXPECT_EQ(content("Facturas/NC45.xml"), golden("nota_de_credito.xml"));
}

TEST_F(CfdiDocument, with_the_extended_root)
{
    set_root_layout(RootLayout::extended);
    EXPECT_EQ(xml_of({}), golden("factura_extendida.xml"));
}

TEST_F(CfdiDocument, retentions_need_isr_above_zero_or_a_peso_of_iva)
{
    for (const auto& [iva, isr, iva_written, isr_written] : {std::tuple{0.5, 0.0, "", ""},
                                                             {0.51, 0.0, "0.51", "0.00"},
                                                             {-1.0, 0.0, "-1.00", "0.00"},
                                                             {0.0, 0.004, "", ""},
                                                             {0.0, 0.01, "0.00", "0.01"},
                                                             {0.0, -5.0, "", ""}}) {
        Receiver r;
        r.IvaRet = iva;
        r.ISRRet = isr;
        const std::string both = std::string("<cfdi:Retenciones><Retencion impuesto=\"ISR\" importe=\"") +
                                 isr_written + "\"/><Retencion impuesto=\"IVA\" importe=\"" + iva_written +
                                 "\"/></cfdi:Retenciones>";
        EXPECT_EQ(piece(xml_of(r), "<cfdi:Retenciones>", "</cfdi:Retenciones>"), *iva_written ? both : "")
            << iva << ' ' << isr;
    }
}

TEST_F(CfdiDocument, empty_addresses_lose_their_attributes_but_rfc_and_name_stay)
{
    execute(u"Update FE_EMPRESAS Set cNombre='', cRfc=Null, cCalle='', cNumExterior='', cLocalidad='', "
            u"cMunicipio='', cEstado='', cPais='', cCodigoPostal=''");
    Receiver r;
    r.Rfc = r.Nombre = r.Calle = r.NumeroExt = r.Colonia = r.Estado = r.Municipio = r.Pais = r.CodigoPos =
        u"|";
    EXPECT_EQ(piece(xml_of(r), "<cfdi:Emisor", "</cfdi:Receptor>"),
              "<cfdi:Emisor rfc=\"\" nombre=\"\"><cfdi:DomicilioFiscal/></cfdi:Emisor>"
              "<cfdi:Receptor rfc=\"\" nombre=\"\"><cfdi:Domicilio/></cfdi:Receptor>");
}

TEST_F(CfdiDocument, without_lines_has_empty_concepts)
{
    load_issuer();
    stage();
    ASSERT_TRUE(issue());
    EXPECT_NE(content("Facturas/A123.xml").find("<cfdi:Conceptos/>"), std::string::npos);
}

TEST_F(CfdiDocument, is_named_by_the_trimmed_series_and_the_numeric_folio)
{
    stage_document();
    for (const auto& [series, folio, name] :
         {std::tuple{u"", u"X015", "15.xml"}, {u" B ", u"0015", "B15.xml"}, {u"B", u"120", "B0.xml"}}) {
        execute(u"Update FE_FOLIOS Set cSerie='" + Text(series) + u"' Where nFolio=1");
        EXPECT_TRUE(issue(folio));
        EXPECT_TRUE(exists(std::string("Facturas/") + name)) << name;
    }
}

TEST_F(CfdiDocument, of_the_same_name_is_replaced_and_a_failed_one_leaves_it_whole)
{
    std::filesystem::create_directory(folder() /
                                      "FACTURAS"); // the folder that is there is taken as it is spelt
    write_file(folder() / "FACTURAS/A123.xml", "viejo");
    stage_document();
    DetFacturas().SetDetalleDocto(u"", u"F", u"", u"control \u0001", 1, u"", 1, 0, 1, 16);
    EXPECT_FALSE(issue()); // XML has no such character
    EXPECT_EQ(content("FACTURAS/A123.xml"), "viejo");
    stage_lines();
    EXPECT_TRUE(issue());
    EXPECT_EQ(content("FACTURAS/A123.xml"), golden("factura.xml"));
    EXPECT_FALSE(exists("Facturas"));
}

} // namespace
} // namespace tolvex::testing
