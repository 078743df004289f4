#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "support/station.hpp"

namespace tolvex::testing {
namespace {

class AddendaXml : public Station
{
protected:
    AddendaXml() { stage_document(); }

    void header_rows(std::initializer_list<Text> rows) { add_layout(u"fe_ctl_adendas", rows); }
    void line_rows(std::initializer_list<Text> rows) { add_layout(u"fe_ctl_adendasDet", rows); }

    // The addenda of the issued document; empty when it has none.
    std::string addenda()
    {
        EXPECT_TRUE(issue(u"A00123", u"ingreso", true)) << to_utf8(last_error());
        const std::string xml = content("Facturas/A123.xml");
        const std::string before = "</cfdi:Impuestos>", after = "</cfdi:Comprobante>\n";
        const auto start = xml.find(before) + before.size();
        return xml.substr(start, xml.size() - after.size() - start);
    }

    void expect_failure(const Text& told)
    {
        EXPECT_FALSE(issue(u"A00123", u"ingreso", true));
        EXPECT_FALSE(exists("Facturas/A123.xml"));
        EXPECT_NE(last_error().find(told), Text::npos) << to_utf8(last_error());
    }
};

TEST_F(AddendaXml, follows_the_layout_and_repeats_its_line_part)
{
    header_rows({u"9,0,'Pie','E','sin efecto'", u"1,0,'Pedido','E',''", u"2,1,'ordenCompra','A',''",
                 u"3,1,' canal ',Null,' 3 '", u"4,1,'Nota','E','sin nota'", u"5,1,'Vacia','E',Null",
                 u"6,1,'Det@lle','E','sin efecto'"});
    line_rows({u"7,6,'Partida','E',''", u"10,7,'Texto','E','primera'", u"8,7,'codigo','A','sin código'"});
    execute(u"Insert Into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre,cTipo) "
            u"Values('OTRO010101AAA',1,0,'Ajena','E')");

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
    header_rows({u"2,1,'SinRaiz','E','nada cuelga de 0'"});
    EXPECT_EQ(addenda(), "");
    header_rows({u"1,0,'Raiz','E',''"});
    EXPECT_EQ(addenda(), "<Addenda><Raiz><SinRaiz>nada cuelga de 0</SinRaiz></Raiz></Addenda>");
    execute(u"Delete fe_ctl_adendas");
    header_rows({u"1,0,'Det@lle','E',''"});
    line_rows({u"2,1,'L','E','x'"});
    EXPECT_EQ(addenda(), "<Addenda/><L>x</L><L>x</L>"); // at the top the lines' part goes under the document
    EXPECT_TRUE(issue(u"A00123", u"ingreso", false));
    EXPECT_EQ(content("Facturas/A123.xml").find("Addenda"), std::string::npos);
}

TEST_F(AddendaXml, attributes_set_twice_keep_the_later_value_and_pass_their_parent_on)
{
    header_rows({u"1,0,'Raiz','E',''", u"2,1,'a','A','uno'", u"3,1,'b','A','<\"&'", u"4,1,'a','X','dos'",
                 u"5,2,'Hija','E','del atributo'", u"6,2,'c','A','nieto'"});
    // Row 4 comes after the children of row 2.
    EXPECT_EQ(addenda(),
              "<Addenda><Raiz a=\"dos\" c=\"nieto\" b=\"&lt;&quot;&amp;\"><Hija>del atributo</Hija></Raiz>"
              "</Addenda>");
}

TEST_F(AddendaXml, a_layout_that_does_not_serve_is_an_error_that_says_why)
{
    struct Case
    {
        std::initializer_list<Text> header, line;
        Text told;
    };
    for (const auto& [header, line, told] : std::initializer_list<Case>{
             {{u"1,0,'Orden de compra','E',''"}, {}, u"Orden de compra"}, // a name that XML refuses
             {{u"1,0,'A','E',''", u"2,1,'B','E',''", u"1,2,'A','E',''"}, {}, u"ciclo en el nodo 1"},
             {{u"1,0,'Det@lle','E',''"}, {u"2,1,'a','A',''", u"1,2,'b','A',''"}, u"ciclo en el nodo 1"}}) {
        execute(u"Delete fe_ctl_adendas; Delete fe_ctl_adendasDet");
        header_rows(header);
        line_rows(line);
        expect_failure(told);
    }
    change_schema(u"Drop Table fe_ctl_adendas");
    expect_failure(u"fe_ctl_adendas");
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 4); // stored before the document was written
}

TEST_F(AddendaXml, a_deep_layout_is_written_whole_up_to_a_thousand_levels)
{
    const auto add_levels = [&](int from, int to) {
        execute(u"begin tran");
        for (int i = from; i <= to; ++i) header_rows({decimal(i) + u"," + decimal(i - 1) + u",'n','E',''"});
        execute(u"commit tran");
    };
    constexpr int depth = 300;
    add_levels(1, depth);
    EXPECT_EQ(addenda().size(), std::string("<Addenda></Addenda>").size() +
                                    (depth - 1) * std::string("<n></n>").size() + std::string("<n/>").size());
    std::filesystem::remove(folder() / "Facturas/A123.xml");
    add_levels(depth + 1, 1000);
    expect_failure(u"1000 niveles");
}

} // namespace
} // namespace tolvex::testing
