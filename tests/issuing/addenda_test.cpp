#include "core/errors.hpp"
#include "support/station.hpp"

namespace tolvex::testing {
namespace {

class AddendaXml : public Station
{
protected:
    AddendaXml() { stage_document(); }

    // A row "nRama,nPadre,'cNombre','cTipo','cValor'" of the staged receiver, whose RFC lost its "-".
    void add_row(const Text& table, const Text& row, const Text& receiver = u"PEGM800101AB1")
    {
        execute(u"Insert Into " + table + u"(crfccte,nRama,nPadre,cNombre,cTipo,cValor) Values('" + receiver +
                u"'," + row + u")");
    }
    void header_row(const Text& row) { add_row(u"fe_ctl_adendas", row); }
    void line_row(const Text& row) { add_row(u"fe_ctl_adendasDet", row); }

    // The addenda of the issued document; empty when it has none.
    std::string addenda()
    {
        EXPECT_TRUE(issue(u"A00123", u"ingreso", true)) << to_utf8(last_error());
        const std::string xml = content("Facturas/A123.xml");
        const std::string before = "</cfdi:Impuestos>", after = "</cfdi:Comprobante>\n";
        const auto start = xml.find(before) + before.size();
        return xml.substr(start, xml.size() - after.size() - start);
    }

    void expect_failure()
    {
        EXPECT_FALSE(issue(u"A00123", u"ingreso", true));
        EXPECT_FALSE(exists("Facturas/A123.xml"));
        EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 1); // stored before the document was written
        EXPECT_NE(last_error(), u"");
    }
};

TEST_F(AddendaXml, follows_the_layout_and_repeats_its_line_part)
{
    for (const Text row : {u"9,0,'Pie','E','sin efecto'", u"1,0,'Pedido','E',''", u"2,1,'ordenCompra','A',''",
                           u"3,1,' canal ',Null,' 3 '", u"4,1,'Nota','E','sin nota'", u"5,1,'Vacia','E',Null",
                           u"6,1,'Det@lle','E','sin efecto'"})
        header_row(row);
    for (const Text row :
         {u"7,6,'Partida','E',''", u"10,7,'Texto','E','primera'", u"8,7,'codigo','A','sin código'"})
        line_row(row);
    add_row(u"fe_ctl_adendas", u"1,0,'Ajena','E',''", u"OTRO010101AAA");

    Addenda staged;
    staged.SetAddenda(u"no se compara", 2, 1, u" OC-1 ");
    staged.SetAddenda(u"", 2, 1, u"OC-2"); // the first staged wins
    staged.SetAddenda(u"", 4, 1, u"  ");   // an empty one falls back to the layout's own
    staged.SetAddenda(u"", 4, 1, u"tarde");
    staged.SetAddenda(u"", 5, 9, u"otro padre");
    staged.SetAddendaDet(2, u"", 10, 7, u" Uno & dos ");
    staged.SetAddendaDet(1, u"", 8, 7, u"750-1");
    staged.SetAddendaDet(3, u"", 8, 7, u"sin renglón");
    EXPECT_TRUE(issue(u"A00123", u"ingreso", true)) << to_utf8(last_error());
    EXPECT_EQ(content("Facturas/A123.xml"),
              read_file(TOLVEX_SOURCE_DIR "/tests/golden/factura_con_addenda.xml"));
}

TEST_F(AddendaXml, is_left_out_without_a_layout_or_when_it_is_not_asked_for)
{
    EXPECT_EQ(addenda(), "");
    header_row(u"2,1,'SinRaiz','E','nada cuelga de 0'");
    EXPECT_EQ(addenda(), "");
    header_row(u"1,0,'Raiz','E',''");
    EXPECT_EQ(addenda(), "<Addenda><Raiz><SinRaiz>nada cuelga de 0</SinRaiz></Raiz></Addenda>");
    EXPECT_TRUE(issue(u"A00123", u"ingreso", false));
    EXPECT_EQ(content("Facturas/A123.xml").find("Addenda"), std::string::npos);
}

TEST_F(AddendaXml, line_part_repeats_for_every_line_and_at_the_top_under_the_root)
{
    DetFacturas().SetDetalleDocto(u"", u"F", u"", u"Tercero", 1, u"PZA", 1, 0, 1, 16);
    header_row(u"1,0,'Det@lle','E',''");
    line_row(u"2,1,'L','E','x'");
    EXPECT_EQ(addenda(), "<Addenda/><L>x</L><L>x</L><L>x</L>");
    DetFacturas().InicializaDetalleFactura();
    EXPECT_EQ(addenda(), "<Addenda/>");
}

TEST_F(AddendaXml, attributes_set_twice_keep_the_later_value_and_pass_their_parent_on)
{
    for (const Text row : {u"1,0,'Raiz','E',''", u"2,1,'a','A','uno'", u"3,1,'b','A','<\"&'",
                           u"4,1,'a','X','dos'", u"5,2,'Hija','E','del atributo'", u"6,2,'c','A','nieto'"})
        header_row(row);
    // Row 4 comes after the children of row 2.
    EXPECT_EQ(addenda(),
              "<Addenda><Raiz a=\"dos\" c=\"nieto\" b=\"&lt;&quot;&amp;\"><Hija>del atributo</Hija></Raiz>"
              "</Addenda>");
}

TEST_F(AddendaXml, a_name_that_xml_refuses_saves_nothing)
{
    header_row(u"1,0,'Orden de compra','E',''");
    expect_failure();
}

TEST_F(AddendaXml, a_cycle_in_the_layout_is_an_error)
{
    header_row(u"1,0,'A','E',''");
    header_row(u"2,1,'B','E',''");
    header_row(u"1,2,'A','E',''");
    expect_failure();
    EXPECT_NE(last_error().find(u"ciclo"), Text::npos);
}

TEST_F(AddendaXml, a_cycle_in_the_line_layout_is_an_error)
{
    header_row(u"1,0,'Det@lle','E',''");
    line_row(u"2,1,'a','A',''");
    line_row(u"1,2,'b','A',''");
    expect_failure();
}

TEST_F(AddendaXml, a_query_that_fails_saves_nothing)
{
    execute(u"Drop Table fe_ctl_adendas");
    expect_failure();
}

TEST_F(AddendaXml, a_deep_layout_is_written_whole)
{
    constexpr int depth = 300;
    Connection& connection = shared_connection(session());
    connection.begin_transaction();
    for (int i = 1; i <= depth; ++i) header_row(decimal(i) + u"," + decimal(i - 1) + u",'n','E',''");
    connection.commit();
    const std::string xml = addenda();
    EXPECT_EQ(xml.size(), std::string("<Addenda></Addenda>").size() +
                              (depth - 1) * std::string("<n></n>").size() + std::string("<n/>").size());
}

} // namespace
} // namespace tolvex::testing
