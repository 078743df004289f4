#include "support/sample_page.hpp"

#include "support/files.hpp"

namespace tolvex::testing {

using namespace pages;

std::shared_ptr<const Picture> sample_picture(const char* name)
{
    const std::filesystem::path folder = TOLVEX_SOURCE_DIR "/tests/datos";
    return std::make_shared<Picture>(open_picture(read_file(folder / name)));
}

std::string sample_bmp()
{
    constexpr int width = 16, height = 12;
    static constexpr std::string_view blue = "\xD0\x40\x20", white = "\xFF\xFF\xFF", red = "\x20\x20\xD0",
                                      green = "\x40\xA0\x20";
    std::string bytes("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x10\0\0\0\x0C\0\0\0\1\0\x18\0", 30);
    bytes.resize(54);
    for (int row = 0; row < height; ++row)
        for (int x = 0; x < width; ++x)
            bytes += row < height / 2 ? (x < width / 2 ? blue : white) : (x < width / 2 ? red : green);
    return bytes;
}

Page sample_page()
{
    const Font sans{u"Arial", 10}, bold{u"Arial", 12, true}, serif{u"Times New Roman", 10, false, true};
    Page page;
    page.marks = {FillMark{{300, 100, 100, 40}, {255, 240, 200}},
                  PictureMark{{40, 400, 64, 48}, {40, 400, 64, 48}, sample_picture("logo.png")},
                  PictureMark{{140, 400, 64, 48}, {150, 400, 40, 48}, sample_picture("logo.jpg")},
                  PictureMark{{240, 400, 64, 48}, {240, 400, 64, 48}, sample_picture("logo.gif")},
                  PictureMark{{340, 400, 64, 48},
                              {340, 400, 64, 48},
                              std::make_shared<Picture>(open_picture(sample_bmp()))},
                  PictureMark{{440, 400, 64, 48}, {440, 400, 64, 48}, sample_picture("logo.png")},
                  LineMark{{40, 150}, {240, 150}, 0.5, {200, 0, 0}, Dashes::dashed},
                  TextMark{{40, 100}, u"Señor Núñez: 1 € “así” – ¿ya?", sans},
                  TextMark{{40, 120}, u"Ωμέγα и ŵ", bold, {0, 0, 200}},
                  TextMark{{40, 140}, u"uno dos tres", serif, {}, 0, 12},
                  TextMark{{500, 100}, u"abajo", sans, {}, 90},
                  LinkMark{{300, 100, 100, 40}, u"http://ejemplo.mx/año"},
                  OutlineMark{u"Sección Ñ", 0, 90},
                  OutlineMark{u"Renglón", 1, 110}};
    return page;
}

} // namespace tolvex::testing
