// Layouts and rows composed into pages, read as the marks on them.
#include "core/errors.hpp"
#include "printing/composing/composer.hpp"
#include "support/files.hpp"
#include "support/schema_change.hpp"
#include "support/tables.hpp"
#include "support/temporary_folder.hpp"

#include <gmock/gmock.h>

#include <algorithm>

namespace tolvex::printing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using tolvex::testing::error_number;
using tolvex::testing::write_file;

// A page's texts, each "x y text" by the left end of its baseline, in whole points.
std::string texts(const pages::Page& page)
{
    std::string all;
    for (const pages::Mark& mark : page.marks)
        if (const auto* text = std::get_if<pages::TextMark>(&mark))
            all += std::to_string(std::lround(text->start.x)) + ' ' +
                   std::to_string(std::lround(text->start.y)) + ' ' + to_utf8(text->text) + '\n';
    return all;
}

// The texts alone, in the order in which they are placed, pages by "|".
std::string words(const std::vector<pages::Page>& pages)
{
    std::string all;
    for (const pages::Page& page : pages) {
        if (&page != &pages.front()) all += "| ";
        for (const pages::Mark& mark : page.marks)
            if (const auto* text = std::get_if<pages::TextMark>(&mark)) all += to_utf8(text->text) + ' ';
    }
    return all;
}

struct Kept : pages::PageSink
{
    std::vector<pages::Page> pages;
    void take(pages::Page page) override { pages.push_back(std::move(page)); }
};

std::string box(const std::string& name, const std::string& value, const std::string& more = "")
{
    return "<Textbox Name='" + name + "'><Paragraphs><Paragraph><TextRuns><TextRun><Value>" + value +
           "</Value></TextRun></TextRuns></Paragraph></Paragraphs>" + more + "</Textbox>";
}

std::string at(int left, int top, int width, int height)
{
    return "<Left>" + std::to_string(left) + "pt</Left><Top>" + std::to_string(top) + "pt</Top><Width>" +
           std::to_string(width) + "pt</Width><Height>" + std::to_string(height) + "pt</Height>";
}

std::string cell(const std::string& content)
{
    return "<TablixCell><CellContents>" + content + "</CellContents></TablixCell>";
}

std::string row(int height, const std::string& cells)
{
    return "<TablixRow><Height>" + std::to_string(height) + "pt</Height><TablixCells>" + cells +
           "</TablixCells></TablixRow>";
}

// A Tablix of columns 100 points wide.
std::string tablix(int columns, const std::string& rows, const std::string& row_members,
                   const std::string& column_members = "", const std::string& more = "")
{
    std::string widths, members;
    for (int i = 0; i < columns; ++i) {
        widths += "<TablixColumn><Width>100pt</Width></TablixColumn>";
        members += "<TablixMember/>";
    }
    return "<Tablix Name='T'><TablixBody><TablixColumns>" + widths + "</TablixColumns><TablixRows>" + rows +
           "</TablixRows></TablixBody><TablixColumnHierarchy><TablixMembers>" +
           (column_members.empty() ? members : column_members) +
           "</TablixMembers></TablixColumnHierarchy><TablixRowHierarchy><TablixMembers>" + row_members +
           "</TablixMembers></TablixRowHierarchy>" + more + "</Tablix>";
}

class Composer : public ::testing::Test
{
protected:
    Composer()
    {
        connection_.connection_string = u"server=sqlite:;database=" + folder_.file("reporte.db");
        connection_.open();
        tolvex::testing::change_schema(
            connection_, u"create table ventas (cZona nvarchar(20), cArticulo nvarchar(40), nAnno int,"
                         u" nImporte decimal(19,4))");
        const std::tuple<Text, Text, int, int> rows[] = {{u"Sur", u"Pan", 2010, 10},
                                                         {u"Norte", u"Café", 2010, 20},
                                                         {u"Sur", u"Azúcar", 2011, 30},
                                                         {u"Norte", u"Pan", 2011, 40}};
        for (const auto& [zone, article, year, amount] : rows) {
            auto added = connection_.open_updatable(u"Select * from ventas Where 1=0");
            added.add_new();
            added.set(u"cZona", zone);
            added.set(u"cArticulo", article);
            added.set(u"nAnno", year);
            added.set(u"nImporte", amount);
            added.update();
        }
    }

    // A layout on pages of 400 by 200 points without margins, over the rows of ventas.
    static std::string layout(const std::string& items, const std::string& sections = "",
                              const std::string& more = "", const std::string& page = "")
    {
        const auto field = [](const std::string& name) {
            return "<Field Name='" + name + "'><DataField>" + name + "</DataField></Field>";
        };
        return "<Report xmlns='http://schemas.microsoft.com/sqlserver/reporting/2010/01/reportdefinition'>"
               "<DataSets><DataSet Name='D'><Query><DataSourceName>ajena</DataSourceName><CommandText>Select * From "
               "ventas</CommandText></Query><Fields>" +
               field("cZona") + field("cArticulo") + field("nAnno") + field("nImporte") +
               "<Field Name='nDoble'><Value>=Fields!nImporte.Value * 2</Value></Field></Fields></DataSet></DataSets>"
               "<ReportSections><ReportSection><Body><ReportItems>" +
               items + "</ReportItems><Height>10pt</Height></Body><Width>400pt</Width><Page>" + sections +
               "<PageHeight>200pt</PageHeight><PageWidth>400pt</PageWidth>" + page +
               "</Page></ReportSection></ReportSections>" + more + "</Report>";
    }

    std::vector<pages::Page> composed(const std::string& xml, const std::vector<GivenValue>& values = {})
    {
        Kept kept;
        remarks_.clear();
        for (const Remark& remark : compose(parse_layout(xml), values, connection_, Date{40000}, kept))
            remarks_ += to_utf8(in_words(remark)) + '\n';
        return kept.pages;
    }

    TemporaryFolder folder_;
    Connection connection_;
    std::string remarks_;
};

const std::string grow = "<CanGrow>true</CanGrow>", shrink = "<CanShrink>true</CanShrink>";

TEST_F(Composer, what_stands_below_moves_with_what_grows_and_shrinks)
{
    const std::string tall = "uno&#10;dos&#10;tres";
    EXPECT_EQ(texts(composed(layout(box("a", tall, grow + at(0, 0, 100, 12)) +
                                    box("b", "debajo", at(0, 20, 100, 12)) +
                                    box("c", "al lado", at(200, 0, 100, 12))))[0]),
              "0 9 uno\n0 20 dos\n0 31 tres\n200 9 al lado\n0 51 debajo\n");
    // What does not grow shows what has room; what shrinks draws up what stands below it.
    EXPECT_EQ(texts(composed(layout(box("a", tall, at(0, 0, 100, 24)) +
                                    box("b", "debajo", shrink + at(0, 30, 100, 40)) +
                                    box("c", "más", at(0, 80, 100, 12))))[0]),
              "0 9 uno\n0 20 dos\n0 39 debajo\n0 60 más\n");
    // What is always hidden keeps its room, what its data hide does not.
    const auto hidden = [](const std::string& condition) {
        return layout(
            box("a", "no", "<Visibility><Hidden>" + condition + "</Hidden></Visibility>" + at(0, 0, 9, 12)) +
            box("b", "sí", at(0, 20, 100, 12)));
    };
    EXPECT_EQ(texts(composed(hidden("true"))[0]), "0 29 sí\n");
    EXPECT_EQ(texts(composed(hidden("=1=1"))[0]), "0 17 sí\n");
}

TEST_F(Composer, text_breaks_at_blanks_and_where_it_has_none_and_aligns)
{
    const std::string style =
        "<Style><VerticalAlign>Bottom</VerticalAlign><PaddingRight>5pt</PaddingRight></Style>";
    const auto pages = composed(layout(box("a", "dos palabras", grow + at(0, 0, 50, 12)) +
                                       box("b", "iiiiiiiiiiWWWWWW", grow + at(100, 0, 60, 12)) +
                                       box("c", "=1234.5", style + at(200, 0, 100, 30)) +
                                       box("d", "=1/0", at(300, 0, 100, 12))));
    EXPECT_EQ(texts(pages[0]),
              "0 9 dos\n0 20 palabras\n100 9 iiiiiiiiiiWWWW\n100 20 WW\n264 28 1234.5\n300 9 #Error\n");
    EXPECT_THAT(remarks_, HasSubstr("Textbox \"d\""));
}

TEST_F(Composer, lines_keep_the_height_that_a_paragraph_gives_them_and_lists_hang)
{
    const std::string list =
        "<Textbox Name='a'><CanGrow>true</CanGrow><Paragraphs><Paragraph><TextRuns><TextRun>"
        "<Value>uno dos</Value></TextRun></TextRuns><ListStyle>Numbered</ListStyle>"
        "<ListLevel>1</ListLevel><Style><LineHeight>20pt</LineHeight></Style></Paragraph>"
        "</Paragraphs>" +
        at(0, 0, 55, 12) + "</Textbox>";
    EXPECT_EQ(texts(composed(layout(list))[0]), "18 18 1.  uno\n32 38 dos\n");
}

TEST_F(Composer, groups_sort_total_and_count)
{
    const std::string rows =
        row(12, cell(box("z", "=Fields!cZona.Value")) + cell(box("s", "=Sum(Fields!nImporte.Value)"))) +
        row(12, cell(box("d", "=RowNumber(\"Zona\") &amp; Fields!cArticulo.Value")) +
                    cell(box("r", "=RunningValue(Fields!nDoble.Value, Sum, \"T\")"))) +
        row(12, cell(box("n", "=CountRows()")) + cell(box("x", "=Max(Fields!nImporte.Value, \"D\")")));
    const std::string members =
        "<TablixMember><Group Name='Zona'><GroupExpressions><GroupExpression>=Fields!cZona.Value</GroupExpression>"
        "</GroupExpressions></Group><SortExpressions><SortExpression><Value>=Sum(Fields!nImporte.Value)</Value>"
        "<Direction>Descending</Direction></SortExpression></SortExpressions><TablixMembers><TablixMember/>"
        "<TablixMember><Group Name='Renglon'/><SortExpressions><SortExpression><Value>=Fields!cArticulo.Value</Value>"
        "</SortExpression></SortExpressions></TablixMember></TablixMembers></TablixMember><TablixMember/>";
    EXPECT_EQ(words(composed(layout(tablix(2, rows, members)))),
              "Norte 60 1Café 40 2Pan 120 Sur 40 1Azúcar 180 2Pan 200 4 40 ");
    const std::string filters =
        "<Filters><Filter><FilterExpression>=Fields!nImporte.Value</FilterExpression><Operator>"
        "TopN</Operator><FilterValues><FilterValue DataType='Integer'>=2</FilterValue>"
        "</FilterValues></Filter></Filters>";
    EXPECT_EQ(words(composed(layout(tablix(2, rows, members, "", filters)))),
              "Norte 40 1Pan 80 Sur 30 1Azúcar 140 2 40 ");
}

TEST_F(Composer, a_matrix_has_a_column_for_each_value_and_its_headers_grow)
{
    const auto grouped = [](const std::string& name, const std::string& by, const std::string& header) {
        return "<TablixMember><Group Name='" + name + "'><GroupExpressions><GroupExpression>" + by +
               "</GroupExpression></GroupExpressions></Group><SortExpressions><SortExpression><Value>" + by +
               "</Value></SortExpression></SortExpressions><TablixHeader>" + header +
               "</TablixHeader></TablixMember>";
    };
    const auto header = [](int size, const std::string& content) {
        return "<Size>" + std::to_string(size) + "pt</Size><CellContents>" + content + "</CellContents>";
    };
    const std::string total =
        "<TablixMember><TablixHeader>" + header(12, box("tt", "Total")) + "</TablixHeader></TablixMember>";
    const std::string corner =
        "<TablixCorner><TablixCornerRows><TablixCornerRow><TablixCornerCell><CellContents>" +
        box("esquina", "Zona") +
        "</CellContents></TablixCornerCell></TablixCornerRow>"
        "</TablixCornerRows></TablixCorner>";
    const std::string sum = "=Sum(Fields!nImporte.Value)";
    EXPECT_EQ(texts(composed(layout(tablix(
                  2, row(12, cell(box("s", sum)) + cell(box("t", sum))),
                  grouped("Zona", "=Fields!cZona.Value", header(80, box("z", "=Fields!cZona.Value"))),
                  grouped("Anno", "=Fields!nAnno.Value",
                          header(12, box("a", "=\"Año\" &amp; vbCrLf &amp; Fields!nAnno.Value", grow))) +
                      total,
                  corner)))[0]),
              "0 9 Zona\n80 9 Año\n80 20 2010\n180 9 Año\n180 20 2011\n280 9 Total\n"
              "169 31 20\n269 31 40\n369 31 60\n0 31 Norte\n169 43 10\n269 43 30\n369 43 40\n0 43 Sur\n");
}

TEST_F(Composer, headers_come_again_on_each_page_and_sections_know_their_page)
{
    const std::string rows = row(12, cell(box("h", "Artículo"))) +
                             row(80, cell(box("d", "=Fields!cArticulo.Value"))) +
                             row(12, cell(box("f", "fin")));
    const std::string members =
        "<TablixMember><KeepWithGroup>After</KeepWithGroup><RepeatOnNewPage>true</RepeatOnNewPage>"
        "</TablixMember><TablixMember><Group Name='R'/></TablixMember><TablixMember>"
        "<KeepWithGroup>Before</KeepWithGroup></TablixMember>";
    const std::string sections =
        "<PageHeader><Height>10pt</Height><PrintOnLastPage>true</PrintOnLastPage><ReportItems>" +
        box("p", "=Globals!PageNumber &amp; \"/\" &amp; Globals!TotalPages", at(0, 0, 50, 10)) +
        "</ReportItems></PageHeader><PageFooter><Height>10pt</Height><PrintOnFirstPage>true</PrintOnFirstPage><ReportItems>" +
        box("u", "=First(ReportItems!d.Value) &amp; \"-\" &amp; Last(ReportItems!d.Value)",
            at(0, 0, 99, 10)) +
        "</ReportItems></PageFooter>";
    // The footer row would not fit beside the last row: both go on to a page of their own.
    EXPECT_EQ(words(composed(layout(tablix(1, rows, members), sections))),
              "Artículo Pan Café Pan-Café | Artículo Azúcar 2/3 Azúcar-Azúcar | Artículo Pan fin 3/3 ");
}

const std::string header_member = "<TablixMember><KeepWithGroup>After</KeepWithGroup><RepeatOnNewPage>true"
                                  "</RepeatOnNewPage></TablixMember>";
const std::string detail_member = "<TablixMember><Group Name='R'/></TablixMember>";
const std::string footer_member = "<TablixMember><KeepWithGroup>Before</KeepWithGroup></TablixMember>";

// A group by zone around other members.
std::string zones(const std::string& members, const std::string& more = "")
{
    return "<TablixMember><Group Name='Zona'><GroupExpressions><GroupExpression>=Fields!cZona.Value"
           "</GroupExpression></GroupExpressions>" +
           more + "</Group><TablixMembers>" + members + "</TablixMembers></TablixMember>";
}

TEST_F(Composer, a_page_that_rows_fill_to_its_end_is_followed_by_headers)
{
    const std::string rows =
        row(50, cell(box("h", "Artículo"))) + row(75, cell(box("d", "=Fields!nAnno.Value")));
    EXPECT_EQ(words(composed(layout(tablix(1, rows, header_member + detail_member)))),
              "Artículo 2010 2010 | Artículo 2011 2011 ");
}

TEST_F(Composer, a_row_higher_than_a_page_goes_on_over_pages_and_the_next_stands_below_it)
{
    const std::string tall = "=Replace(Space(29), \" \", \"x\" &amp; vbCrLf) &amp; Fields!nImporte.Value";
    const std::string border = "<Style><Border><Style>Solid</Style></Border></Style>";
    const std::string rows = row(12, cell(box("h", "H")) + cell(box("i", "I"))) +
                             row(12, cell(box("d", tall, grow + border)) + cell(box("e", "al lado", border)));
    const auto pages = composed(layout(tablix(2, rows, header_member + detail_member)));
    ASSERT_EQ(pages.size(), 8u);
    EXPECT_THAT(texts(pages[0]), ::testing::StartsWith("0 9 H\n100 9 I\n0 21 x\n"));
    EXPECT_THAT(texts(pages[1]), ::testing::StartsWith("0 9 H\n100 9 I\n0 21 x\n"));
    // Each part of its cells is a closed box.
    const auto is_line = [](const pages::Mark& mark) {
        return std::holds_alternative<pages::LineMark>(mark);
    };
    EXPECT_EQ(std::count_if(pages[1].marks.begin(), pages[1].marks.end(), is_line), 8);
    // The second row begins on a page of its own: little was left.
    EXPECT_THAT(texts(pages[2]), HasSubstr("x\n100 21 al lado\n"));
}

TEST_F(Composer, breaks_of_groups_take_header_and_footer_rows_along)
{
    const std::string rows = row(12, cell(box("h", "H"))) + row(12, cell(box("z", "=Fields!cZona.Value"))) +
                             row(12, cell(box("d", "=Fields!cArticulo.Value"))) +
                             row(12, cell(box("f", "F")));
    const auto broken = [&](const std::string& location) {
        const std::string breaks = "<PageBreak><BreakLocation>" + location + "</BreakLocation></PageBreak>";
        const std::string members =
            header_member + zones("<TablixMember/>" + detail_member, breaks) + footer_member;
        return words(
            composed(layout(box("a", "antes", at(0, 0, 90, 12)) + "<Rectangle Name='r'><ReportItems>" +
                            tablix(1, rows, members) + "</ReportItems>" + at(0, 20, 100, 12) +
                            "</Rectangle>" + box("b", "después", at(0, 40, 90, 12)))));
    };
    const std::string south = "Sur Pan Azúcar ", north = "Norte Café Pan ";
    EXPECT_EQ(broken("Between"), "antes H " + south + "| H " + north + "F después ");
    EXPECT_EQ(broken("Start"), "antes | H " + south + "| H " + north + "F después ");
    EXPECT_EQ(broken("End"), "antes H " + south + "| H " + north + "F | después ");
    EXPECT_EQ(broken("StartAndEnd"), "antes | H " + south + "| H " + north + "F | después ");
}

TEST_F(Composer, a_rectangle_in_a_cell_may_break_pages)
{
    const std::string rectangle =
        "<Rectangle Name='r'><PageBreak><BreakLocation>End</BreakLocation></PageBreak>"
        "<ReportItems>" +
        box("d", "=Fields!nAnno.Value", at(0, 0, 90, 12)) + "</ReportItems></Rectangle>";
    EXPECT_EQ(words(composed(layout(tablix(1, row(20, cell(rectangle)), detail_member)))),
              "2010 | 2010 | 2011 | 2011 ");
}

TEST_F(Composer, a_value_that_repeats_is_shown_again_on_each_page)
{
    const std::string hides = "<HideDuplicates>D</HideDuplicates>";
    const std::string rows = row(60, cell(box("z", "=Fields!nAnno.Value \\ 1000", hides)) +
                                         cell(box("d", "=Fields!cArticulo.Value")));
    EXPECT_EQ(words(composed(layout(tablix(2, rows, detail_member)))), "2 Pan Café Azúcar | 2 Pan ");
}

TEST_F(Composer, rows_count_and_run_through_groups_regions_and_matrices)
{
    const auto shown = [&](const std::string& expression) {
        const std::string rows =
            row(12, cell(box("z", "=Fields!cZona.Value"))) + row(12, cell(box("d", expression)));
        return words(composed(layout(tablix(1, rows, zones("<TablixMember/>" + detail_member)))));
    };
    EXPECT_EQ(shown("=RowNumber(Nothing)"), "Sur 1 2 Norte 3 4 ");
    EXPECT_EQ(shown("=RowNumber(\"D\")"), "Sur 1 2 Norte 3 4 ");
    EXPECT_EQ(shown("=RunningValue(Fields!nImporte.Value, Sum, \"D\")"), "Sur 10 40 Norte 60 100 ");
    EXPECT_EQ(shown("=RunningValue(Fields!nImporte.Value, Sum, Nothing)"), "Sur 10 40 Norte 60 100 ");
    EXPECT_EQ(shown("=RunningValue(Fields!nImporte.Value, Sum, \"Zona\")"), "Sur 10 40 Norte 20 60 ");
    EXPECT_EQ(shown("=Previous(Fields!nImporte.Value)"), "Sur 10 Norte 20 ");
    EXPECT_EQ(shown("=ReportItems!z.Value"), "Sur Sur Sur Norte Norte Norte ");
    EXPECT_EQ(shown("=Sum(Fields!nImporte.Value, \"Zona\") / 10"), "Sur 4 4 Norte 6 6 ");

    const std::string zone = row(12, cell(box("z", "=Sum(Fields!nImporte.Value) &amp; \":\" &amp; "
                                                   "Previous(Sum(Fields!nImporte.Value))")));
    EXPECT_EQ(words(composed(layout(tablix(1, zone, zones("<TablixMember/>"))))), "40: 60:40 ");
    const std::string best =
        "<Filters><Filter><FilterExpression>=Sum(Fields!nImporte.Value)</FilterExpression>"
        "<Operator>TopN</Operator><FilterValues><FilterValue>=1</FilterValue></FilterValues>"
        "</Filter></Filters>";
    EXPECT_EQ(words(composed(layout(tablix(1, zone, zones("<TablixMember/>", best))))), "60: ");

    const std::string years =
        "<TablixMember><Group Name='Anno'><GroupExpressions><GroupExpression>"
        "=Fields!nAnno.Value</GroupExpression></GroupExpressions></Group></TablixMember>";
    const auto matrix = [&](const std::string& expression) {
        return words(
            composed(layout(tablix(2, row(12, cell(box("s", expression)) + cell(box("t", expression))),
                                   zones("<TablixMember/>"), years + "<TablixMember/>"))));
    };
    EXPECT_EQ(matrix("=RunningValue(Fields!nImporte.Value, Sum, \"Zona\")"), "10 40 40 20 60 60 ");
    EXPECT_EQ(matrix("=Sum(Fields!nImporte.Value, \"Anno\")"), "30 70 40 30 70 60 ");
}

TEST_F(Composer, sections_read_what_stands_on_their_page)
{
    const std::string rows =
        row(90, cell(box("d", "=Fields!cArticulo.Value"))) + row(12, cell(box("f", "fin")));
    const std::string footer = "<PageFooter><Height>10pt</Height><PrintOnFirstPage>true</PrintOnFirstPage>"
                               "<PrintOnLastPage>true</PrintOnLastPage><ReportItems>" +
                               box("p", "=\"(\" &amp; ReportItems!f.Value &amp; \")\"", at(0, 0, 90, 10)) +
                               "</ReportItems></PageFooter>";
    EXPECT_EQ(words(composed(layout(tablix(1, rows, detail_member + "<TablixMember/>"), footer))),
              "Pan Café () | Azúcar Pan () | fin (fin) ");
}

TEST_F(Composer, the_document_map_nests_as_the_groups_do)
{
    const std::string label = "<DocumentMapLabel>=Fields!cZona.Value</DocumentMapLabel>";
    const std::string rows =
        row(12, cell(box("z", "z"))) +
        row(12, cell(box("d", "d", "<DocumentMapLabel>=Fields!cArticulo.Value</DocumentMapLabel>")));
    const auto pages = composed(layout(tablix(1, rows, zones("<TablixMember/>" + detail_member, label))));
    std::string map;
    for (const pages::Mark& mark : pages[0].marks)
        if (const auto* entry = std::get_if<pages::OutlineMark>(&mark))
            map += std::to_string(entry->level) + to_utf8(entry->label) + ' ';
    EXPECT_EQ(map, "0Sur 1Pan 1Azúcar 0Norte 1Café 1Pan ");
}

TEST_F(Composer, without_rows_the_table_says_so_in_its_own_look)
{
    const std::string none =
        "<Filters><Filter><FilterExpression>=1</FilterExpression><Operator>Equal</Operator>"
        "<FilterValues><FilterValue>=2</FilterValue></FilterValues></Filter></Filters>"
        "<NoRowsMessage>Sin ventas</NoRowsMessage><Style><FontSize>20pt</FontSize></Style>";
    const auto pages = composed(layout(tablix(1, row(12, cell(box("d", "=1"))), detail_member, "", none)));
    ASSERT_EQ(pages[0].marks.size(), 1u);
    EXPECT_EQ(std::get<pages::TextMark>(pages[0].marks[0]).font.size, 20);
}

TEST_F(Composer, each_of_several_pages_across_has_its_number)
{
    const std::string footer =
        "<PageFooter><Height>10pt</Height><PrintOnFirstPage>true</PrintOnFirstPage>"
        "<PrintOnLastPage>true</PrintOnLastPage><ReportItems>" +
        box("p", "=Globals!PageNumber &amp; \"/\" &amp; Globals!TotalPages", at(0, 0, 90, 10)) +
        "</ReportItems></PageFooter>";
    EXPECT_EQ(words(composed(layout(box("b", "derecha", at(450, 0, 90, 12)), footer))), "1/2 | derecha 2/2 ");
}

TEST_F(Composer, pages_without_end_are_an_error)
{
    const auto endless = [&](const std::string& item, const std::string& page = "") {
        return error_number([&] { composed(layout(item, "", "", page)); });
    };
    const std::string huge =
        "<Rectangle Name='r'><ReportItems/><Style><BackgroundColor>Red</BackgroundColor></Style>"
        "<Height>100000cm</Height><Width>1cm</Width></Rectangle>";
    std::string rows;
    for (int i = 0; i < 20; ++i) rows += huge;
    EXPECT_EQ(endless(rows), numbers::invalid_call);
}

TEST_F(Composer, groups_begin_pages_and_count_them_anew)
{
    const std::string rows =
        row(12, cell(box("z", "=Fields!cZona.Value"))) + row(90, cell(box("d", "=Fields!cArticulo.Value")));
    const std::string members =
        "<TablixMember><Group Name='Zona'><GroupExpressions><GroupExpression>=Fields!cZona.Value</GroupExpression>"
        "</GroupExpressions><PageBreak><BreakLocation>Between</BreakLocation><ResetPageNumber>true</ResetPageNumber>"
        "</PageBreak></Group><TablixMembers><TablixMember/><TablixMember><Group Name='R'/></TablixMember></TablixMembers>"
        "</TablixMember>";
    const std::string sections =
        "<PageFooter><Height>10pt</Height><PrintOnFirstPage>true</PrintOnFirstPage>"
        "<PrintOnLastPage>true</PrintOnLastPage><ReportItems>" +
        box("p",
            "=Globals!PageNumber &amp; \"/\" &amp; Globals!TotalPages &amp; \" \" &amp; "
            "Globals!OverallPageNumber &amp; \"/\" &amp; Globals!OverallTotalPages",
            at(0, 0, 90, 10)) +
        "</ReportItems></PageFooter>";
    EXPECT_EQ(words(composed(layout(tablix(1, rows, members), sections))),
              "Sur Pan 1/2 1/4 | Azúcar 2/2 2/4 | Norte Café 1/2 3/4 | Pan 2/2 4/4 ");
}

TEST_F(Composer, a_long_report_is_numbered_as_a_short_one)
{
    const std::string many =
        "<Query><DataSourceName>x</DataSourceName><CommandText>With n(i) As (Select 1 Union All "
        "Select i+1 From n Where i&lt;150) Select i as nAnno From n</CommandText></Query>";
    std::string xml =
        layout(tablix(1, row(190, cell(box("d", "=Fields!nAnno.Value"))),
                      "<TablixMember><Group Name='R'/></TablixMember>"),
               "<PageFooter><Height>10pt</Height><PrintOnFirstPage>true</PrintOnFirstPage><PrintOnLastPage>"
               "true</PrintOnLastPage><ReportItems>" +
                   box("p", "=Globals!PageNumber &amp; \"/\" &amp; Globals!TotalPages", at(0, 0, 90, 10)) +
                   "</ReportItems></PageFooter>");
    xml.replace(xml.find("<Query>"), xml.find("</Query>") + 8 - xml.find("<Query>"), many);
    const auto pages = composed(xml);
    ASSERT_EQ(pages.size(), 150u);
    EXPECT_EQ(words({pages[0]}), "1 1/150 ");
    EXPECT_EQ(words({pages[149]}), "150 150/150 ");
}

TEST_F(Composer, what_is_too_wide_comes_on_the_next_page_and_columns_fill_one_after_another)
{
    EXPECT_EQ(words(composed(
                  layout(box("a", "izquierda", at(0, 0, 90, 12)) + box("b", "derecha", at(450, 0, 90, 12))))),
              "izquierda | derecha ");
    const std::string rows = row(90, cell(box("d", "=Fields!cArticulo.Value")));
    const std::string xml = layout(tablix(1, rows, "<TablixMember><Group Name='R'/></TablixMember>"), "", "",
                                   "<Columns>2</Columns><ColumnSpacing>10pt</ColumnSpacing>");
    std::string narrow = xml;
    narrow.replace(narrow.find("<Width>400pt</Width><Page>"), 20, "<Width>150pt</Width>");
    EXPECT_EQ(texts(composed(narrow)[0]), "0 9 Pan\n0 99 Café\n160 9 Azúcar\n160 99 Pan\n");
}

TEST_F(Composer, subreports_take_their_parameters_and_never_contain_themselves)
{
    const auto subreport = [](const std::string& name) {
        return "<Subreport Name='s'><ReportName>/carpeta/" + name +
               "</ReportName><Parameters><Parameter Name='zona'>"
               "<Value>Norte</Value></Parameter></Parameters>" +
               at(0, 0, 100, 20) + "</Subreport>";
    };
    const std::string parameters =
        "<ReportParameters><ReportParameter Name='zona'><DataType>String</DataType><Nullable>"
        "true</Nullable></ReportParameter></ReportParameters>";
    std::string inner = layout(tablix(1, row(12, cell(box("d", "=Fields!cArticulo.Value"))),
                                      "<TablixMember><Group Name='R'/></TablixMember>"),
                               "", parameters);
    const std::string command = "<CommandText>Select * From ventas</CommandText>";
    inner.replace(
        inner.find(command), command.size(),
        "<CommandText>Select * From ventas Where cZona = @zona</CommandText><QueryParameters><QueryParameter "
        "Name='@zona'><Value>=Parameters!zona.Value</Value></QueryParameter></QueryParameters>");
    write_file(folder_.file("dentro.rdl"), inner);
    write_file(folder_.file("fuera.rdl"),
               layout(subreport("dentro") + box("a", "después", at(0, 20, 90, 12))));
    write_file(folder_.file("sinfin.rdl"), layout(subreport("sinfin"), "", parameters));
    write_file(folder_.file("falta.rdl"), layout(subreport("no_hay")));
    Kept kept;
    compose(read_layout(folder_.file("fuera.rdl")), {}, connection_, Date{1}, kept);
    EXPECT_EQ(texts(kept.pages.at(0)), "0 9 Café\n0 21 Pan\n0 33 después\n");
    const auto failure = [&](const char* file) {
        return error_number(
            [&] { compose(read_layout(folder_.file(file)), {}, connection_, Date{1}, kept); });
    };
    EXPECT_EQ(failure("sinfin.rdl"), numbers::invalid_call);
    EXPECT_EQ(failure("falta.rdl"), numbers::file_not_found);
}

TEST_F(Composer, what_is_handed_to_a_layout_must_be_known_and_enough)
{
    const auto with = [](const std::string& parameter) {
        return layout(box("a", "=Parameters!cIndFactura.Value", at(0, 0, 90, 12)), "",
                      "<ReportParameters><ReportParameter Name='cIndFactura'>" + parameter +
                          "</ReportParameter></ReportParameters>");
    };
    EXPECT_EQ(words(composed(with("<DataType>Integer</DataType>"), {{u"@CINDFACTURA", u"15"}})), "15 ");
    EXPECT_EQ(
        words(composed(with("<DataType>String</DataType><DefaultValue><Values><Value>=2+3</Value></Values>"
                            "</DefaultValue>"))),
        "5 ");
    for (const auto& [xml, values] : std::initializer_list<std::pair<std::string, std::vector<GivenValue>>>{
             {with("<DataType>String</DataType>"), {}},                                          // no value
             {with("<DataType>Integer</DataType>"), {{u"cIndFactura", u"quince"}}},              // no number
             {with("<DataType>String</DataType>"), {{u"cIndFactura", u"1"}, {u"nEmpresa", 1}}}}) // unknown
        EXPECT_NE(error_number([&] { composed(xml, values); }), 0);
}

TEST_F(Composer, a_query_that_fails_names_its_data_set_and_line)
{
    std::string xml = layout("");
    xml.replace(xml.find("From ventas"), 11, "From nadie");
    try {
        composed(xml);
        FAIL();
    } catch (const Error& error) {
        EXPECT_THAT(error.what(), HasSubstr("conjunto de datos «D», renglón 1"));
    }
}

} // namespace
} // namespace tolvex::printing
