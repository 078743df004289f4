#include "platform/files.hpp"
#include "platform/pages/fonts.hpp"
#include "platform/pages/pdf.hpp"

#include "support/files.hpp"
#include "support/sample_page.hpp"
#include "support/shell.hpp"
#include "support/tables.hpp"
#include "support/temporary_folder.hpp"

#include <cmath>
#include <cstdlib>
#include <map>
#include <regex>

namespace tolvex::testing {
namespace {

using namespace pages;

class Pdf : public ::testing::Test
{
protected:
    void write(const std::vector<Page>& pages,
               const DocumentProperties& properties = {u"Factura “A1”", u"José Peña"})
    {
        PdfFile file(path(), properties);
        for (const Page& page : pages) file.take(page);
        file.finish();
    }

    Text path() const { return folder_.file("hoja.pdf"); }
    std::filesystem::path folder() const { return folder_.path(); }

    // What a program that reads PDF files says of it.
    std::string read_by(const std::string& program) const
    {
        const Outcome outcome = run_in_shell(program, folder_.path());
        EXPECT_EQ(outcome.exit_code, 0) << program << '\n' << outcome.errors;
        EXPECT_EQ(outcome.errors, "") << program;
        return outcome.output;
    }

private:
    const TemporaryFolder folder_;
};

int count(const std::string& text, const std::string& pattern)
{
    const std::regex looked_for(pattern);
    return static_cast<int>(std::distance(std::sregex_iterator(text.begin(), text.end(), looked_for), {}));
}

TEST(Page, is_described_mark_by_mark)
{
    EXPECT_EQ(described(sample_page()),
              "page 612x792\n"
              "fill 300 100 100x40 #FFF0C8\n"
              "picture 40 400 64x48 visible 40 400 64x48 png 16x12\n"
              "picture 140 400 64x48 visible 150 400 40x48 jpeg 16x12\n"
              "picture 240 400 64x48 visible 240 400 64x48 gif 16x12\n"
              "picture 340 400 64x48 visible 340 400 64x48 bmp 16x12\n"
              "picture 440 400 64x48 visible 440 400 64x48 png 16x12\n"
              "line 40 150 to 240 150 width 0.5 #C80000 dashed\n"
              "text 40 100 \"Señor Núñez: 1 € “así” – ¿ya?\" Arial 10 #000000\n"
              "text 40 120 \"Ωμέγα и ŵ\" Arial 12 bold #0000C8\n"
              "text 40 140 \"uno dos tres\" Times New Roman 10 italic #000000 word spacing 12\n"
              "text 500 100 \"abajo\" Arial 10 #000000 angle 90\n"
              "link 300 100 100x40 \"http://ejemplo.mx/año\"\n"
              "outline 0 \"Sección Ñ\" at 90\n"
              "outline 1 \"Renglón\" at 110\n");
}

TEST_F(Pdf, text_stays_text)
{
    write({sample_page()});
    const std::string text = read_by("pdftotext -layout hoja.pdf -");
    for (const char* line : {"Señor Núñez: 1 € “así” – ¿ya?", "Ωμέγα и ŵ", "abajo"})
        EXPECT_NE(text.find(line), std::string::npos) << text;
    EXPECT_EQ(count(text, "uno +dos +tres"), 1) << text;
}

struct Word
{
    double left, top, right, bottom;
};

// By where the words of a page are.
std::map<std::string, Word> words(const std::string& boxes)
{
    const std::regex line(R"re(<word xMin="(.+)" yMin="(.+)" xMax="(.+)" yMax="(.+)">(.+)</word>)re");
    std::map<std::string, Word> found;
    for (std::sregex_iterator at(boxes.begin(), boxes.end(), line), end; at != end; ++at)
        found[(*at)[5]] = {std::stod((*at)[1]), std::stod((*at)[2]), std::stod((*at)[3]),
                           std::stod((*at)[4])};
    return found;
}

// A composer places text by text_width: a reader must come to the same places.
TEST_F(Pdf, text_stands_where_it_was_measured)
{
    write({sample_page()});
    const auto found = words(read_by("pdftotext -bbox hoja.pdf -"));
    const Font sans{u"Arial", 10}, bold{u"Arial", 12, true}, serif{u"Times New Roman", 10, false, true};
    const double blank = text_width(serif, u" ") + 12;
    EXPECT_NEAR(found.at("Señor").left, 40, 0.01);
    EXPECT_NEAR(found.at("Señor").right, 40 + text_width(sans, u"Señor"), 0.01);
    EXPECT_NEAR(found.at("¿ya?").right, 40 + text_width(sans, u"Señor Núñez: 1 € “así” – ¿ya?"), 0.01);
    EXPECT_NEAR(found.at("ŵ").right, 40 + text_width(bold, u"Ωμέγα и ŵ"), 0.01);
    EXPECT_NEAR(found.at("dos").left, 40 + text_width(serif, u"uno") + blank, 0.01);
    EXPECT_NEAR(found.at("tres").right, 40 + text_width(serif, u"uno dos tres") + 24, 0.01);
    EXPECT_NEAR(found.at("abajo").top, 100, 0.01);
    EXPECT_NEAR(found.at("abajo").bottom, 100 + text_width(sans, u"abajo"), 0.01);
    EXPECT_LT(found.at("Señor").top, 100);
    EXPECT_GT(found.at("Señor").bottom, 100);
}

TEST_F(Pdf, fonts_are_embedded_as_the_part_that_is_used)
{
    write({sample_page()});
    const std::string fonts = read_by("pdffonts hoja.pdf");
    const int lines = count(fonts, "\n") - 2;
    EXPECT_EQ(count(fonts, "[A-Z]{6}\\+.* yes yes (yes|no) "), lines) << fonts;
    EXPECT_EQ(count(fonts, "CID TrueType +Identity-H +yes yes yes"), lines - 3) << fonts;
    EXPECT_LT(files::size(path()), 100'000U);
}

TEST_F(Pdf, a_picture_is_embedded_once_and_a_jpeg_as_it_is)
{
    write({sample_page(), sample_page()});
    const std::string images = read_by("pdfimages -list hoja.pdf");
    EXPECT_EQ(count(images, " image +16 +12 +rgb +3 +8 +jpeg +no +[0-9]+ +0 +18 +18 +373B"), 2) << images;
    EXPECT_EQ(count(images, " smask "), 6) << images;
    const std::string file = read_file(folder() / "hoja.pdf");
    EXPECT_EQ(count(file, "/Subtype /Image"), 4 + 2); // one of each format, two of them with their opacity
}

TEST_F(Pdf, properties_links_and_document_map)
{
    write({sample_page()});
    const std::string information = read_by("pdfinfo hoja.pdf"), links = read_by("pdfinfo -url hoja.pdf"),
                      map = read_by("pdftohtml -xml -i -stdout hoja.pdf");
    for (const char* line : {"Title:           Factura “A1”\n", "Author:          José Peña\n",
                             "Producer:        TOLVEX\n", "Page size:       612 x 792 pts"})
        EXPECT_NE(information.find(line), std::string::npos) << information;
    EXPECT_NE(links.find("http://ejemplo.mx/a%C3%B1o"), std::string::npos) << links;
    EXPECT_EQ(count(map, "<item page=\"1\">Sección Ñ</item>\\s*<outline>\\s*<item page=\"1\">Renglón</item>"),
              1)
        << map;
}

TEST_F(Pdf, what_no_file_can_hold_is_left_out_or_told)
{
    Page page = sample_page();
    page.marks.push_back(TextMark{{40, 300}, Text(200'000, u'ñ'), {u"Arial", 5'000}});
    page.marks.push_back(TextMark{{NAN, 1e30}, u"lejos", {u"Arial", -1}});
    page.marks.push_back(LineMark{{-1e30, NAN}, {1e30, 5}, 1e9, {}, Dashes::dotted});
    page.marks.push_back(LinkMark{{0, 0, 1, 1}, Text(100'000, u'ñ')});
    page.marks.push_back(OutlineMark{Text(100'000, u'ñ'), -3, -1e9});
    write({page}, {Text(100'000, u'ñ'), u""});
    EXPECT_EQ(count(read_by("pdftotext hoja.pdf -"), "Núñez"), 1);
    for (const double side : {2.0, 14'401.0, static_cast<double>(NAN)})
        EXPECT_EQ(error_number([&] { write({{612, side, {}}}); }), 5) << side;
}

TEST_F(Pdf, an_older_file_stays_until_the_new_one_is_whole)
{
    files::write(path(), "antes");
    const auto failing = [&](const Mark& mark) {
        return error_number([&] { write({sample_page(), {612, 792, {mark}}}); });
    };
    Picture cut = *sample_picture("logo.png");
    cut.bytes.resize(60);
    const Box box{0, 0, 10, 10};
    EXPECT_EQ(failing(PictureMark{box, box, std::make_shared<Picture>(cut)}), 5);
    EXPECT_EQ(read_file(folder() / "hoja.pdf"), "antes");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder()), {}), 1);
    EXPECT_EQ(error_number([&] { PdfFile((folder() / "no" / "hoja.pdf").u16string(), {}); }), 75);
}

TEST_F(Pdf, two_runs_differ_in_their_date_only)
{
    const auto written = [this] {
        write({sample_page()});
        return std::regex_replace(read_file(folder() / "hoja.pdf"),
                                  std::regex("/CreationDate \\(D:[0-9]{14}\\)"), "/date");
    };
    const std::string first = written();
    EXPECT_EQ(count(first, "/date\n"), 1);
    EXPECT_EQ(written(), first);
}

// Ends well when the text was as wide as in the bold serifs of a reader's own.
[[noreturn]] void write_bold_serifs(const std::filesystem::path& file)
{
    const Font font{u"Cambria", 10, true};
    Page page;
    page.marks = {TextMark{{40, 100}, u"Señor и €", font}};
    PdfFile pdf(file.u16string(), {});
    pdf.take(page);
    pdf.finish();
    std::exit(std::abs(text_width(font, u"Señor") - 25) < 0.01 ? 0 : 1);
}

// In a process of its own, since a font is looked for once.
TEST_F(Pdf, without_font_files_readers_bring_their_own)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "tolvex_sin_fuentes.pdf",
                                none = std::filesystem::temp_directory_path() / "tolvex_sin_fuentes.conf";
    write_file(none, "<fontconfig></fontconfig>");
    setenv("FONTCONFIG_FILE", none.c_str(), 1);
    EXPECT_EXIT(write_bold_serifs(file), ::testing::ExitedWithCode(0), "");
    unsetenv("FONTCONFIG_FILE");
    EXPECT_EQ(count(read_by("pdftotext " + quoted(file) + " -"), "Señor \\? €"), 1);
    EXPECT_EQ(count(read_by("pdffonts " + quoted(file)), "\nTimes-Bold +Type 1 +WinAnsi +no +no"), 1);
    std::filesystem::remove(file);
    std::filesystem::remove(none);
}

} // namespace
} // namespace tolvex::testing
