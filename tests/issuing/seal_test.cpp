#include "issuing/seal.hpp"

#include "support/keys_of_openssl.hpp"
#include "support/station.hpp"
#include "support/tables.hpp"

namespace tolvex::testing {
namespace {

TEST(Utf8Characters, are_utf8_below_2048_and_the_systems_own_above)
{
    expect_all<Text, Text>(utf8_characters,
                           {{u"a|\u007F", u"a|\u007F"}, {u"\u0080á", u"\u00C2\u0080\u00C3\u00A1"}});
    EXPECT_EQ(utf8_characters(u"\u07FF\u0800"),
              u"\u00DF\u00BF\u00EE\u00A0\u0080");                   // 2048\144 = 14; 14 or 234
    EXPECT_EQ(utf8_characters(u"€"), u"\u00FA\u0082\u00AC");        // 8364\144 = 58; 58 or 234 is 250
    EXPECT_EQ(utf8_characters(u"\u8FFF"), u"\u00FF\u00BF\u00BF");   // 36863\144 = 255
    EXPECT_EQ(error_number([] { utf8_characters(u"\u9000"); }), 5); // 256 is no byte
}

TEST(CleanSeal, keeps_base64_only) { EXPECT_EQ(clean_seal(u"Ab+/\n 9\r=-_ñ="), u"Ab+/9=="); }

using Seal = Station;

TEST_F(Seal, batch_files_are_the_documented_lines)
{
    write_seal_batch(folder_text(), Digest::sha1);
    const std::string r = folder();
    EXPECT_EQ(content("sello.bat"), r + "\\openssl dgst -sha1 -sign " + r + "\\pkey.key.pem  -out " + r +
                                        "\\fi_md5.txt " + r + "\\utf8.txt\r\n" + r +
                                        "\\openssl enc -base64  -in " + r + "\\fi_md5.txt -out " + r +
                                        "\\sello.txt\r\n");
    const Text trailing = folder_text() + u"\\";
    write_seal_batch(trailing, Digest::md5);
    const std::string t = r + "\\\\";
    EXPECT_EQ(content("sello.bat"), t + "openssl dgst -md5 -sign " + t + "pkey.key.pem  -out " + t +
                                        "fi_md5.txt " + t + "utf8.txt\r\n" + t + "openssl enc -base64 -in " +
                                        t + "fi_md5.txt -out " + t + "sello.txt\r\n");
}

TEST_F(Seal, in_process_is_the_programs_and_leaves_the_same_files_after_a_failure)
{
    std::filesystem::create_directory(folder() / "Facturas");
    std::filesystem::create_directory(folder() / "Facturas/A123.xml"); // the XML cannot take its place
    const auto sealed = [&](Sealing sealing) {
        set_sealing(sealing);
        stage_document();
        EXPECT_FALSE(issue());
        std::vector<std::string> contents;
        for (const char* name : {"sello.bat", "utf8.txt", "fi_md5.txt", "sello.txt"}) {
            contents.push_back(content(name));
            std::filesystem::remove(folder() / name);
        }
        return contents;
    };
    const auto by_the_program = sealed(Sealing::openssl_program);
    EXPECT_EQ(sealed(Sealing::in_process), by_the_program);
    EXPECT_EQ(rows(u"Select count(distinct cSelloDigital) as n,count(*) as m From FE_VENTAS_RESUMEN"),
              u"1|2");

    // The next key is read, and one that is none is told with its file.
    write_file(folder() / "pkey.key.pem", keys_of_openssl[0].pem);
    EXPECT_EQ(sealed(Sealing::in_process)[2].size(), 1024U / 8);
    write_file(folder() / "pkey.key.pem", "nada");
    EXPECT_FALSE((stage_document(), issue()));
    EXPECT_EQ(to_utf8(last_error()),
              (folder() / "pkey.key.pem").string() + ": no es una llave privada sin contraseña en forma PEM");
    std::filesystem::remove(folder() / "pkey.key.pem");
    EXPECT_FALSE((stage_document(), issue()));
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 3);
}

} // namespace
} // namespace tolvex::testing
