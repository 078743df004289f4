#include "core/errors.hpp"
#include "printing/layout_texts.hpp"
#include "printing/rdl/lengths.hpp"
#include "printing/rdl/review.hpp"
#include "support/files.hpp"
#include "support/tables.hpp"
#include "support/temporary_folder.hpp"

namespace tolvex::printing {
namespace {

using namespace testing;
using tolvex::testing::error_number;
using tolvex::testing::expect_all;
using tolvex::testing::write_file;

// What the reader says of a text that it refuses with Error 5.
std::string refusal(const std::string& xml)
{
    try {
        parse_layout(xml);
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 5) << xml;
        return error.what();
    }
    return "nothing";
}

std::string remarks(const std::string& xml) { return outline(parse_layout(xml).remarks); }
std::string items(const std::string& xml) { return outline(parse_layout(xml)); }

TEST(LayoutReader, lengths_have_a_unit)
{
    expect_all<Text, std::optional<double>>(points, {{u"1in", 72},
                                                     {u"2.54cm", 72},
                                                     {u" 25.4 MM ", 72},
                                                     {u"7pt", 7},
                                                     {u"1.5pc", 18},
                                                     {u"-1E-1in", -7.2},
                                                     {u"12", {}},
                                                     {u"1,5cm", {}},
                                                     {u"1px", {}},
                                                     {u"nanpt", {}},
                                                     {u"1e9in", {}},
                                                     {u"", {}}});
}

TEST(LayoutReader, every_schema_gives_the_same_page)
{
    const std::string page =
        "<PageWidth>8in</PageWidth><PageHeight>10in</PageHeight><LeftMargin>1in</LeftMargin>"
        "<TopMargin>2in</TopMargin><RightMargin>3in</RightMargin>"
        "<PageHeader><Height>20pt</Height><PrintOnFirstPage>true</PrintOnFirstPage>"
        "<ReportItems><Line Name='l'/></ReportItems></PageHeader>";
    const std::string columns = "<Columns>2</Columns><ColumnSpacing>4pt</ColumnSpacing>";
    const std::string width = "<Width>3in</Width>";
    const std::string body = "<Height>5in</Height>";
    const std::string newer = "<Page>" + page + columns + "</Page>" + width + "<Body>" + body + "</Body>";
    const std::string sections =
        "<ReportSections><ReportSection>" + newer + "</ReportSection></ReportSections>";
    const std::string older = page + width + "<Body>" + body + columns + "</Body>";
    for (const std::string& xml :
         {report("2003/10", older), report("2005/01", older), report("2008/01", newer),
          report("2009/01", newer), report("2010/01", sections), report("2016/01", sections)}) {
        const Layout layout = parse_layout(xml);
        EXPECT_EQ(layout.page_width, 576);
        EXPECT_EQ(layout.page_height, 720);
        EXPECT_EQ(layout.left_margin, 72);
        EXPECT_EQ(layout.top_margin, 144);
        EXPECT_EQ(layout.right_margin, 216);
        EXPECT_EQ(layout.bottom_margin, 0);
        EXPECT_EQ(layout.columns, 2);
        EXPECT_EQ(layout.column_spacing, 4);
        EXPECT_EQ(layout.width, 216);
        EXPECT_EQ(layout.body_height, 360);
        ASSERT_TRUE(layout.header && !layout.footer) << xml;
        EXPECT_TRUE(layout.header->on_first_page && !layout.header->on_last_page);
        EXPECT_EQ(layout.header->items.size(), 1u);
        EXPECT_EQ(outline(layout.remarks), "") << xml;
    }
}

TEST(LayoutReader, a_newer_schema_is_read_with_a_remark)
{
    EXPECT_EQ(remarks(report("2031/06", "<Body/>")),
              "2 Report: el esquema 2031/06 no se conoce y se lee como el de 2016\n");
}

TEST(LayoutReader, sections_follow_each_other)
{
    const auto section = [](const std::string& name) {
        return "<ReportSection><Width>9pt</Width><Body><Height>50pt</Height><ReportItems><Line Name='" +
               name + "'><Top>2pt</Top></Line></ReportItems></Body></ReportSection>\n";
    };
    const std::string xml =
        report("2016/01", "<ReportSections>" + section("a") + section("b") + "</ReportSections>");
    EXPECT_EQ(items(xml), "line a 0,2 0x0\nline b 0,52 0x0\n");
    EXPECT_EQ(parse_layout(xml).body_height, 100);
    EXPECT_EQ(remarks(xml),
              "3 Report: esta sección se imprime en las páginas de la primera, a continuación\n");
}

TEST(LayoutReader, encodings_are_those_of_the_declaration)
{
    const auto author = [](const std::string& declaration, const std::string& name) {
        std::string xml = report("2005/01", "<Author>" + name + "</Author><Body/>");
        xml.replace(0, xml.find('\n'), declaration);
        return parse_layout(xml).author;
    };
    EXPECT_EQ(author("<?xml version='1.0'?>", "Peña \xE2\x82\xAC"), u"Peña €");
    EXPECT_EQ(author("<?xml version='1.0' encoding='ISO-8859-1'?>", "Pe\xF1"
                                                                    "a"),
              u"Peña");
    EXPECT_EQ(author("<?xml version='1.0' encoding='Windows-1252'?>", "Pe\xF1"
                                                                      "a \x80"),
              u"Peña €");
    std::string wide = "\xFF\xFE";
    for (const char c : report("2005/01", "<Author>Ana</Author><Body/>").substr(39)) wide += {c, '\0'};
    EXPECT_EQ(parse_layout(wide).author, u"Ana");
}

TEST(LayoutReader, refuses_what_is_no_layout_with_its_line)
{
    std::string deep = "\n";
    for (int i = 0; i < 201; ++i) deep += "<a>";
    const std::string bomb = "<!DOCTYPE r [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;'>]><r>&b;</r>";
    expect_all<std::string, std::string>(
        refusal,
        {{"", "Línea 1: el texto termina antes de tiempo"},
         {"\n" + bomb, "Línea 2: no se admite DOCTYPE (entidades propias o externas)"},
         {"<!DOCTYPE r SYSTEM 'file:///etc/passwd'><r/>",
          "Línea 1: no se admite DOCTYPE (entidades propias o externas)"},
         {deep, "Línea 2: hay demasiados niveles de elementos"},
         {"<a>\n</b>", "Línea 2: la etiqueta de cierre no es la del elemento abierto"},
         {"<a>&x;</a>", "Línea 1: se usa una entidad que XML no define"},
         {"<?xml version='1.0' encoding='klingon'?><a/>",
          "Línea 1: la codificación declarada no se conoce o no es la del archivo"},
         {"<Report/>", "Línea 1, Report: no es un formato de reporte (RDL)"},
         {"<html xmlns='http://www.w3.org/1999/xhtml'/>", "Línea 1, html: no es un formato de reporte (RDL)"},
         {report("2008/01", ""), "Línea 2, Report: falta Body"}});
}

TEST(LayoutReader, faults_tell_line_and_element)
{
    const auto tablix = [](const std::string& cells, const std::string& members) {
        return "<Tablix Name='t'>\n<TablixBody><TablixColumns><TablixColumn><Width>1in</Width></TablixColumn>"
               "</TablixColumns><TablixRows>\n<TablixRow><Height>1in</Height><TablixCells>" +
               cells +
               "</TablixCells></TablixRow></TablixRows></TablixBody>\n<TablixColumnHierarchy><TablixMembers>"
               "<TablixMember/></TablixMembers></TablixColumnHierarchy>\n<TablixRowHierarchy>"
               "<TablixMembers>" +
               members + "</TablixMembers></TablixRowHierarchy></Tablix>";
    };
    const std::string wide_cell =
        "<TablixCell><CellContents><Line Name='l'/><ColSpan>2</ColSpan></CellContents></TablixCell>";
    const auto in_body = [](const std::string& xml) { return refusal(report_2010(xml)); };
    expect_all<std::string, std::string>(
        in_body,
        {{"<Textbox Name='x'>\n<Width>12</Width></Textbox>",
          "Línea 4, Textbox \"x\": Width \"12\" no es una medida (in, cm, mm, pt, pc)"},
         {"<Textbox Name='x'><Height>-1in</Height></Textbox>",
          "Línea 3, Textbox \"x\": Height no puede ser negativo"},
         {"<Textbox Name='x'>\n<Style>\n<FontSize>10</FontSize></Style></Textbox>",
          "Línea 5, Textbox \"x\": FontSize \"10\" no es una medida (in, cm, mm, pt, pc)"},
         {"<Textbox Name='x'><CanGrow>si</CanGrow></Textbox>",
          "Línea 3, Textbox \"x\": CanGrow \"si\" no es true ni false"},
         {"<Textbox Name='x'><ZIndex>1.5</ZIndex></Textbox>",
          "Línea 3, Textbox \"x\": ZIndex \"1.5\" no es un número entero"},
         {"<Image Name='i'><Source>Web</Source></Image>",
          "Línea 3, Image \"i\": no se conoce el origen de imagen \"Web\""},
         {"<Tablix Name='t'/>", "Línea 3, Tablix \"t\": falta TablixBody"},
         {tablix("<TablixCell/><TablixCell/>", "<TablixMember/>"),
          "Línea 5, Tablix \"t\": la fila tiene 2 celdas y la tabla 1 columnas"},
         {tablix(wide_cell, "<TablixMember/>"), "Línea 5, Tablix \"t\": ColSpan 2 sale de la cuadrícula"},
         {tablix("<TablixCell/>", "<TablixMember/><TablixMember/>"),
          "Línea 7, Tablix \"t\": TablixRowHierarchy tiene 2 miembros sin otros dentro y el cuerpo 1 filas"},
         {"<Table Name='t'><TableColumns/><Details><TableRows>\n<TableRow><TableCells><TableCell/></TableCells>"
          "</TableRow></TableRows></Details></Table>",
          "Línea 4, Table \"t\": las celdas de la fila no llenan las columnas de la tabla"},
         {"<Matrix Name='m'><MatrixColumns/></Matrix>",
          "Línea 3, Matrix \"m\": MatrixRows no tiene tantos elementos como StaticRows"},
         {"<List Name='l'><Filters><Filter><Operator>Igual</Operator></Filter></Filters></List>",
          "Línea 3, List \"l\": no se conoce el operador \"Igual\" de un filtro"}});
}

TEST(LayoutReader, items_without_a_size_fill_what_they_stand_in)
{
    EXPECT_EQ(items(report_2010("<Rectangle Name='r'><Left>100pt</Left><Top>50pt</Top><ReportItems>"
                                "<Textbox Name='t'><Left>10pt</Left><Height>20pt</Height></Textbox>"
                                "</ReportItems></Rectangle>")),
              "rectangle r 100,50 300x250\n  textbox t 10,0 290x20\n");
}

TEST(LayoutReader, a_line_may_run_backwards)
{
    const Layout layout = parse_layout(report_2010(
        "<Line Name='down'><Top>9pt</Top><Left>9pt</Left><Width>-4pt</Width><Height>-5pt</Height></Line>"
        "<Line Name='up'><Top>9pt</Top><Width>4pt</Width><Height>-5pt</Height></Line>"));
    EXPECT_EQ(outline(layout), "line down 5,4 4x5\nline up 0,4 4x5\n");
    EXPECT_FALSE(std::get<Line>(layout.body.items[0].content).upwards);
    EXPECT_TRUE(std::get<Line>(layout.body.items[1].content).upwards);
}

TEST(LayoutReader, borders_of_each_side_come_from_the_common_one)
{
    const auto borders = [](const std::string& xml) {
        const Style style = parse_layout(xml).body.items.at(0).style;
        std::string text;
        for (const BorderStyle* side : {&style.left, &style.top, &style.right, &style.bottom})
            text +=
                to_utf8(side->style.source() + u" " + side->width.source() + u" " + side->color.source()) +
                "|";
        return text;
    };
    const std::string expected = "Solid 3pt Red|Dotted 1pt Red|Solid 1pt Red|Solid 1pt Blue|";
    EXPECT_EQ(
        borders(report_2005("<Textbox Name='t'><Style><BorderStyle><Default>Solid</Default><Top>Dotted</Top>"
                            "</BorderStyle><BorderWidth><Default>1pt</Default><Left>3pt</Left></BorderWidth>"
                            "<BorderColor><Default>Red</Default><Bottom>Blue</Bottom></BorderColor></Style>"
                            "</Textbox>")),
        expected);
    EXPECT_EQ(
        borders(report_2010("<Textbox Name='t'><Style><Border><Style>Solid</Style><Width>1pt</Width>"
                            "<Color>Red</Color></Border><LeftBorder><Style>Default</Style><Width>3pt</Width>"
                            "</LeftBorder><TopBorder><Style>Dotted</Style></TopBorder><BottomBorder>"
                            "<Color>Blue</Color></BottomBorder></Style></Textbox>")),
        expected);
}

TEST(LayoutReader, a_run_is_set_as_its_paragraph_and_text_box_say)
{
    const Layout layout = parse_layout(report_2010(
        "<Textbox Name='t'><Style><FontSize>8pt</FontSize><Format>N2</Format><TextAlign>General</TextAlign></Style>"
        "<Paragraphs><Paragraph><Style><TextAlign>Right</TextAlign></Style><TextRuns><TextRun><Value>a</Value>"
        "<Style><FontSize>9pt</FontSize><FontWeight>Bold</FontWeight></Style></TextRun></TextRuns></Paragraph>"
        "</Paragraphs></Textbox>",
        "<df:DefaultFontFamily xmlns:df='urn:df'>Segoe UI</df:DefaultFontFamily>"));
    const Paragraph& paragraph = std::get<Textbox>(layout.body.items.at(0).content).paragraphs.at(0);
    const Style& run = paragraph.runs.at(0).style;
    EXPECT_EQ(paragraph.style.text_align.source(), u"Right");
    EXPECT_EQ(run.font_size.source(), u"9pt");
    EXPECT_EQ(run.font_weight.source(), u"Bold");
    EXPECT_EQ(run.format.source(), u"N2");
    EXPECT_EQ(run.font_family.source(), u"Segoe UI");
    EXPECT_TRUE(layout.body.items[0].style.text_align.is_empty());
    EXPECT_EQ(outline(layout.remarks), "");
}

const std::string filter = "<Filters><Filter><FilterExpression>=Fields!a.Value</FilterExpression>"
                           "<Operator>GreaterThan</Operator><FilterValues><FilterValue DataType='Integer'>5"
                           "</FilterValue></FilterValues></Filter></Filters>";

// A table of two columns: a repeated header across both, groups with header and footer, details in two rows.
std::string table_2005()
{
    const auto cell = [](const std::string& name) {
        return "<TableCell><ReportItems>" + textbox_2005(name, name) + "</ReportItems></TableCell>";
    };
    const auto row = [](const std::string& cells, const std::string& more = "") {
        return "<TableRow><Height>10pt</Height><TableCells>" + cells + "</TableCells>" + more + "</TableRow>";
    };
    const std::string wide = "<TableCell><ColSpan>2</ColSpan><ReportItems>" + textbox_2005("h", "h") +
                             "</ReportItems></TableCell>";
    return report_2005(
        "<Table Name='t'><DataSetName>d</DataSetName><NoRows>Nada</NoRows><PageBreakAtEnd>true</PageBreakAtEnd>" +
        filter +
        "<TableColumns><TableColumn><Width>60pt</Width></TableColumn><TableColumn><Width>40pt</Width><Visibility>"
        "<Hidden>=Fields!h.Value</Hidden></Visibility></TableColumn></TableColumns>"
        "<Header><RepeatOnNewPage>true</RepeatOnNewPage><TableRows>" +
        row(wide) +
        "</TableRows></Header><TableGroups><TableGroup><Grouping Name='g'><Label>=Fields!l.Value</Label><GroupExpressions>"
        "<GroupExpression>=Fields!k.Value</GroupExpression></GroupExpressions><PageBreakAtStart>true</PageBreakAtStart>"
        "<PageBreakAtEnd>true</PageBreakAtEnd></Grouping><Sorting><SortBy><SortExpression>=Fields!k.Value</SortExpression>"
        "<Direction>Descending</Direction></SortBy></Sorting><Header><TableRows>" +
        row(cell("a") + cell("b")) + "</TableRows></Header><Footer><TableRows>" + row(cell("c") + cell("e")) +
        "</TableRows></Footer></TableGroup></TableGroups><Details><Grouping Name='details'/><TableRows>" +
        row(cell("f") + cell("i"),
            "<Visibility><Hidden>true</Hidden><ToggleItem>a</ToggleItem></Visibility>") +
        row(cell("m") + cell("n")) + "</TableRows></Details></Table>");
}

std::string tablix_2010()
{
    const auto cell = [](const std::string& name) {
        return "<TablixCell><CellContents>" + textbox_2010(name, name) + "</CellContents></TablixCell>";
    };
    const auto row = [](const std::string& cells) {
        return "<TablixRow><Height>10pt</Height><TablixCells>" + cells + "</TablixCells></TablixRow>";
    };
    const std::string wide = "<TablixCell><CellContents>" + textbox_2010("h", "h") +
                             "<ColSpan>2</ColSpan></CellContents></TablixCell><TablixCell/>";
    return report_2010(
        "<Tablix Name='t'><TablixBody><TablixColumns><TablixColumn><Width>60pt</Width></TablixColumn><TablixColumn>"
        "<Width>40pt</Width></TablixColumn></TablixColumns><TablixRows>" +
        row(wide) + row(cell("a") + cell("b")) + row(cell("f") + cell("i")) + row(cell("m") + cell("n")) +
        row(cell("c") + cell("e")) +
        "</TablixRows></TablixBody><TablixColumnHierarchy><TablixMembers><TablixMember/><TablixMember><Visibility>"
        "<Hidden>=Fields!h.Value</Hidden></Visibility></TablixMember></TablixMembers></TablixColumnHierarchy><TablixRowHierarchy>"
        "<TablixMembers><TablixMember><KeepWithGroup>After</KeepWithGroup><RepeatOnNewPage>true</RepeatOnNewPage>"
        "</TablixMember><TablixMember><Group Name='g'><DocumentMapLabel>=Fields!l.Value</DocumentMapLabel><GroupExpressions>"
        "<GroupExpression>=Fields!k.Value</GroupExpression></GroupExpressions><PageBreak><BreakLocation>StartAndEnd"
        "</BreakLocation></PageBreak></Group><SortExpressions><SortExpression><Value>=Fields!k.Value</Value>"
        "<Direction>Descending</Direction></SortExpression></SortExpressions><TablixMembers><TablixMember>"
        "<KeepWithGroup>After</KeepWithGroup></TablixMember><TablixMember><Group Name='details'/><TablixMembers>"
        "<TablixMember><Visibility><Hidden>true</Hidden></Visibility></TablixMember><TablixMember/></TablixMembers>"
        "</TablixMember><TablixMember><KeepWithGroup>Before</KeepWithGroup></TablixMember></TablixMembers>"
        "</TablixMember></TablixMembers></TablixRowHierarchy><DataSetName>d</DataSetName>" +
        filter +
        "<PageBreak><BreakLocation>End</BreakLocation></PageBreak><NoRowsMessage>Nada</NoRowsMessage></Tablix>");
}

TEST(LayoutReader, a_table_and_the_same_tablix_are_one)
{
    EXPECT_EQ(items(table_2005()), R"(tablix t 0,0 100x50
  data d break-end none(Nada)
  filter GreaterThan(=Fields!a.Value) value(=5)
  columns 60 40
    static
    static hidden(=Fields!h.Value)
  rows
    static with-next repeats
    group g by(=Fields!k.Value) break-both label(=Fields!l.Value) down(=Fields!k.Value)
      static with-next
      group details
        static hidden(true)
        static
      static with-last
  row 10
    over 2 x 1
    textbox h 0,0 100x10 text(h)
    -
  row 10
    textbox a 0,0 60x10 text(a)
    textbox b 0,0 40x10 text(b)
  row 10
    textbox f 0,0 60x10 text(f)
    textbox i 0,0 40x10 text(i)
  row 10
    textbox m 0,0 60x10 text(m)
    textbox n 0,0 40x10 text(n)
  row 10
    textbox c 0,0 60x10 text(c)
    textbox e 0,0 40x10 text(e)
)");
    EXPECT_EQ(items(table_2005()), items(tablix_2010()));
    EXPECT_EQ(remarks(table_2005()) + remarks(tablix_2010()), "");
}

TEST(LayoutReader, a_matrix_has_rows_for_statics_and_subtotals)
{
    const auto header = [](const std::string& name) {
        return "<ReportItems>" + textbox_2005(name, name) + "</ReportItems>";
    };
    const auto grouping = [&](const std::string& name, const std::string& more) {
        return "<Grouping Name='" + name + "'><GroupExpressions><GroupExpression>=Fields!" + name +
               ".Value</GroupExpression></GroupExpressions></Grouping>" + header("h_" + name) + more;
    };
    const Layout layout = parse_layout(report_2005(
        "<Matrix Name='m'><Corner>" + header("corner") +
        "</Corner><ColumnGroupings><ColumnGrouping><Height>5pt</Height><DynamicColumns>" +
        grouping("year", "<Subtotal><Position>Before</Position>" + header("all") + "</Subtotal>") +
        "</DynamicColumns></ColumnGrouping></ColumnGroupings><RowGroupings><RowGrouping><Width>30pt</Width>"
        "<DynamicRows>" +
        grouping("city",
                 "<Subtotal><Style><FontWeight>Bold</FontWeight></Style>" + header("total") + "</Subtotal>") +
        "</DynamicRows></RowGrouping><RowGrouping><Width>20pt</Width><DynamicRows>" + grouping("shop", "") +
        "</DynamicRows></RowGrouping><RowGrouping><Width>10pt</Width><StaticRows><StaticRow>" + header("s1") +
        "</StaticRow><StaticRow>" + header("s2") +
        "</StaticRow></StaticRows></RowGrouping></RowGroupings><MatrixColumns><MatrixColumn><Width>50pt</Width>"
        "</MatrixColumn></MatrixColumns><MatrixRows><MatrixRow><Height>7pt</Height><MatrixCells><MatrixCell>" +
        header("c1") +
        "</MatrixCell></MatrixCells></MatrixRow><MatrixRow><Height>8pt</Height><MatrixCells><MatrixCell>" +
        header("c2") + "</MatrixCell></MatrixCells></MatrixRow></MatrixRows></Matrix>"));
    EXPECT_EQ(outline(layout), R"(tablix m 0,0 160x35
  data 
  columns 50 50
    static
     header 5
      textbox all 0,0 50x5 text(all)
    group year by(=Fields!year.Value)
     header 5
      textbox h_year 0,0 50x5 text(h_year)
  rows
    group city by(=Fields!city.Value)
     header 30
      textbox h_city 0,0 30x15 text(h_city)
      group shop by(=Fields!shop.Value)
       header 20
        textbox h_shop 0,0 20x15 text(h_shop)
        static
         header 10
          textbox s1 0,0 10x7 text(s1)
        static
         header 10
          textbox s2 0,0 10x8 text(s2)
    static
     header 50
      textbox total 0,0 50x15 text(total)
      static
       header 10
        textbox s1 0,0 10x7 text(s1)
      static
       header 10
        textbox s2 0,0 10x8 text(s2)
  corner
    over 3 x 1
    textbox corner 0,0 60x5 text(corner)
    -
    -
  row 7
    textbox c1 0,0 50x7 text(c1)
    textbox c1 0,0 50x7 text(c1)
  row 8
    textbox c2 0,0 50x8 text(c2)
    textbox c2 0,0 50x8 text(c2)
  row 7
    textbox c1 0,0 50x7 text(c1)
    textbox c1 0,0 50x7 text(c1)
  row 8
    textbox c2 0,0 50x8 text(c2)
    textbox c2 0,0 50x8 text(c2)
)");
    EXPECT_EQ(outline(layout.remarks), "");
    const auto weight = [&](std::size_t row) {
        const auto& tablix = *std::get<std::shared_ptr<const Tablix>>(layout.body.items.at(0).content);
        const auto& textbox = std::get<Textbox>(tablix.rows.at(row).cells.at(1).content->content);
        return textbox.paragraphs.at(0).runs.at(0).style.font_weight.source();
    };
    EXPECT_EQ(weight(0), u"");
    EXPECT_EQ(weight(2), u"Bold");
}

TEST(LayoutReader, a_list_is_a_tablix_of_one_cell)
{
    EXPECT_EQ(
        items(report_2005("<List Name='l'><Width>90pt</Width><Height>30pt</Height><Sorting><SortBy>"
                          "<SortExpression>=Fields!s.Value</SortExpression></SortBy></Sorting><ReportItems>" +
                          textbox_2005("t", "x") + "</ReportItems></List>")),
        R"(tablix l 0,0 90x30
  data 
  columns 90
    static
  rows
    group  up(=Fields!s.Value)
  row 30
    rectangle  0,0 90x30
      textbox t 0,0 90x30 text(x)
)");
}

TEST(LayoutReader, queries_fields_and_parameters)
{
    const Layout layout = parse_layout(report_2010(
        "",
        "<DataSets><DataSet Name='d'><Query><DataSourceName>s</DataSourceName><CommandType>StoredProcedure"
        "</CommandType><CommandText>sp_x</CommandText><QueryParameters><QueryParameter Name='@cIndFactura'><Value>"
        "=Parameters!cIndFactura.Value</Value></QueryParameter></QueryParameters><Timeout>3</Timeout></Query>"
        "<Fields><Field Name='a'><DataField>A</DataField><rd:TypeName>System.String</rd:TypeName></Field>"
        "<Field Name='b'><Value>=1</Value></Field></Fields></DataSet>"
        "<DataSet Name='whole'><Query><CommandType>TableDirect</CommandType><CommandText>FE_FOLIOS"
        "</CommandText></Query></DataSet></DataSets>"
        "<ReportParameters><ReportParameter Name='cIndFactura'/><ReportParameter Name='p'><DataType>Integer</DataType><Nullable>true</Nullable>"
        "<DefaultValue><Values><Value xmlns:xsi='urn:i' xsi:nil='true'/></Values></DefaultValue>"
        "<ValidValues><ParameterValues><ParameterValue><Value>1</Value><Label>Uno</Label></ParameterValue>"
        "</ParameterValues></ValidValues></ReportParameter></ReportParameters>"));
    const DataSet& data_set = layout.data_sets.at(0);
    EXPECT_TRUE(data_set.stored_procedure);
    EXPECT_EQ(data_set.command.source(), u"sp_x");
    EXPECT_EQ(data_set.parameters.at(0).name, u"@cIndFactura");
    EXPECT_EQ(data_set.fields.at(0).column, u"A");
    EXPECT_EQ(data_set.fields.at(1).value.source(), u"=1");
    EXPECT_TRUE(layout.data_sets.at(1).whole_table && !data_set.whole_table);
    EXPECT_TRUE(layout.parameters.at(1).nullable);
    EXPECT_EQ(layout.parameters.at(1).defaults.at(0).source(), u"=Nothing");
    EXPECT_EQ(layout.parameters.at(1).valid_values.at(0).label.source(), u"Uno");
    EXPECT_EQ(outline(remarks_about(layout)), "");
}

TEST(LayoutReader, typed_and_constant_values_stay_what_they_are)
{
    const auto value = [](const std::string& element) {
        const Layout layout = parse_layout(
            report_2010("", "<Variables><Variable Name='v'>" + element + "</Variable></Variables>"));
        return to_utf8(layout.variables.at(0).value.source());
    };
    expect_all<std::string, std::string>(
        value, {{"<Value>5</Value>", "5"},
                {"<Value DataType='Float'>5.5</Value>", "=5.5"},
                {"<Value DataType='Integer'>x</Value>", "x"},
                {"<Value DataType='Boolean'>true</Value>", "=true"},
                {"<Value DataType='DateTime'>2011-03-15</Value>", "=CDate(\"2011-03-15\")"},
                {"<Value> </Value>", " "},
                {"<Value EvaluationMode='Constant'>=a\"b</Value>", "=\"=a\"\"b\""}});
}

TEST(LayoutReader, embedded_images_are_decoded)
{
    const Layout layout = parse_layout(report_2010(
        "<Image Name='i'><Source>Embedded</Source><Value>logo</Value><Sizing>FitProportional</Sizing>"
        "</Image>",
        "<EmbeddedImages><EmbeddedImage Name='logo'><MIMEType>image/png</MIMEType><ImageData>aG9s\n  YQ=="
        "</ImageData></EmbeddedImage></EmbeddedImages>"));
    EXPECT_EQ(layout.images.at(u"logo").bytes, "hola");
    EXPECT_EQ(std::get<Image>(layout.body.items.at(0).content).sizing, Image::Sizing::fit_proportional);
}

// What is there only for screens, designers and exports is no remark; what would be seen on paper is one.
TEST(LayoutReader, remarks_tell_what_is_left_out_and_nothing_else)
{
    const auto in_textbox = [](const std::string& inside) {
        return remarks(report_2010("<Textbox Name='t'>\n" + inside + "</Textbox>"));
    };
    expect_all<std::string, std::string>(
        in_textbox,
        {{"<rd:DefaultName>x</rd:DefaultName><ToolTip>x</ToolTip><DataElementOutput>No</DataElementOutput>",
          ""},
         {"<KeepTogether>true</KeepTogether><UserSort><SortExpression>=Fields!a.Value</SortExpression></UserSort>",
          ""},
         {"<Style><BackgroundGradientType>None</BackgroundGradientType><Direction>LTR</Direction></Style>",
          ""},
         {"<Style><Direction>RTL</Direction></Style>", "4 Textbox \"t\": Direction no se toma en cuenta\n"},
         {"<Style><BackgroundImage><Source>External</Source></BackgroundImage></Style>",
          "4 Textbox \"t\": BackgroundImage no se toma en cuenta\n"},
         {"<ActionInfo><Actions><Action><Hyperlink>=Fields!a.Value</Hyperlink></Action></Actions></ActionInfo>",
          ""},
         {"<Action>\n<Drillthrough><ReportName>x</ReportName></Drillthrough></Action>",
          "5 Textbox \"t\": Drillthrough no se toma en cuenta\n"},
         {"<RepeatWith>x</RepeatWith>", "4 Textbox \"t\": RepeatWith no se toma en cuenta\n"}});

    EXPECT_EQ(remarks(report_2010("<Chart Name='c'><ChartData><Value>=(</Value></ChartData></Chart>\n"
                                  "<Hologram/><Line Name='c'/>",
                                  "\n<Code>Function f() End Function</Code><CodeModules/>")),
              "3 Chart \"c\": Chart no se dibuja\n"
              "4 Report: Hologram no se dibuja\n"
              "4 Line \"c\": ya se llama así el elemento de la línea 3\n"
              "5 Report: Code: el código propio de un formato no se ejecuta\n");
    EXPECT_EQ(
        remarks(report_2010("", "\n<DataSets><DataSet Name='d'><SharedDataSet><SharedDataSetReference>x"
                                "</SharedDataSetReference></SharedDataSet></DataSet></DataSets>")),
        "4 DataSet \"d\": el conjunto de datos compartido \"x\" no se encuentra: su consulta debe estar en el "
        "formato\n");
}

TEST(LayoutReader, an_expression_that_cannot_be_parsed_is_a_remark)
{
    const std::string said = remarks(report_2010("<Textbox Name='t'>\n<Value>=Sum(</Value></Textbox>"));
    EXPECT_TRUE(said.starts_with("4 Textbox \"t\": la expresión de Value no se puede evaluar: ")) << said;
}

TEST(Review, tells_what_is_mentioned_and_not_there)
{
    const std::string data =
        "<DataSets><DataSet Name='d'><Fields><Field Name='a'><DataField>a</DataField></Field>"
        "</Fields></DataSet><DataSet Name='e'><Fields><Field Name='b'><DataField>b</DataField>"
        "</Field></Fields></DataSet></DataSets>";
    const auto of_value = [&](const std::string& value) {
        const std::string list = "<List Name='l'><DataSetName>d</DataSetName><ReportItems>\n" +
                                 textbox_2005("t", value) + "</ReportItems></List>";
        return outline(remarks_about(parse_layout(report_2005(list, data))));
    };
    expect_all<std::string, std::string>(
        of_value, {{"=Fields!A.Value", ""},
                   {"=Fields!b.Value", "4 Textbox \"t\": no hay ningún campo \"b\"\n"},
                   {"=First(Fields!b.Value, \"e\")", ""},
                   {"=First(Fields!c.Value, \"E\")", "4 Textbox \"t\": no hay ningún campo \"c\"\n"},
                   {"=Sum(Fields!a.Value, \"L\")", ""},
                   {"=Sum(Fields!a.Value, \"x\")",
                    "4 Textbox \"t\": no hay ningún conjunto de datos, tabla ni grupo \"x\"\n"},
                   {"=Parameters!p.Value", "4 Textbox \"t\": no hay ningún parámetro \"p\"\n"},
                   {"=Variables!v.Value", "4 Textbox \"t\": no hay ninguna variable \"v\"\n"},
                   {"=ReportItems!T.Value &amp; ReportItems!u.Value",
                    "4 Textbox \"t\": no hay ningún elemento \"u\"\n"}});
}

TEST(Review, tells_what_has_no_value_or_no_room)
{
    const Layout layout = parse_layout(report(
        "2005/01",
        "<PageWidth>21cm</PageWidth><LeftMargin>1cm</LeftMargin><Width>20.5cm</Width><Body><ReportItems>\n"
        "<Image Name='i'><Source>Embedded</Source><Value>x</Value></Image><List Name='l'/></ReportItems></Body>"
        "<DataSets>\n<DataSet Name='d'><Query><QueryParameters><QueryParameter Name='@CINDFACTURA'/>"
        "<QueryParameter Name='@x'/></QueryParameters></Query></DataSet><DataSet Name='e'/></DataSets>"
        "<ReportParameters>\n<ReportParameter Name='NEMPRESA'/><ReportParameter Name='y'/><ReportParameter Name='z'>"
        "<DefaultValue><DataSetReference><DataSetName>d</DataSetName><ValueField>f</ValueField></DataSetReference>"
        "</DefaultValue></ReportParameter></ReportParameters>"));
    EXPECT_EQ(
        outline(remarks_about(layout)),
        "1 Report: el cuerpo y los márgenes miden 21.5 cm de ancho y la página 21 cm: saldrán páginas de más\n"
        "3 Image \"i\": no hay ninguna imagen incrustada \"x\"\n"
        "3 List \"l\": no dice de qué conjunto de datos toma sus renglones\n"
        "4 DataSet \"d\": el parámetro @x de la consulta no tiene valor\n"
        "5 ReportParameter \"y\": el parámetro no tiene valor predeterminado, y al imprimir sólo se dan "
        "cIndFactura y nEmpresa\n"
        "5 ReportParameter \"z\": no hay ningún campo \"f\"\n");
}

TEST(LayoutReader, files_have_a_name_and_lie_beside_their_subreports)
{
    const TemporaryFolder folder;
    const auto subreport = [](const std::string& name) {
        return "<Subreport Name='" + name + "'><ReportName>" + name + "</ReportName></Subreport>\n";
    };
    write_file(folder.path() / "la.factura.rdl",
               report_2005(subreport("pie") + subreport("/Reportes/pie") + subreport("../otro/nota")));
    write_file(folder.path() / "pie.rdl", "");
    const Layout layout = read_layout(folder.file("la.factura.rdl"));
    EXPECT_EQ(layout.file, folder.file("la.factura.rdl"));
    EXPECT_EQ(layout.name, u"la.factura");
    EXPECT_EQ(subreport_file(layout, u"PIE"), folder.file("PIE.rdl"));
    EXPECT_EQ(outline(remarks_about(layout)),
              "5 Subreport \"../otro/nota\": junto al formato no está el subreporte \"../otro/nota\"\n");
    EXPECT_EQ(error_number([&] { read_layout(folder.file("falta.rdl")); }), 53);
}

} // namespace
} // namespace tolvex::printing
