// A station whose documents come from flat files.
#pragma once

#include "core/text.hpp"
#include "flat_file/flat_file.hpp"
#include "support/station.hpp"

namespace tolvex::testing {

// The shortest good records; a document takes all four.
inline const std::string emisor = "EMISOR|1|1\n";
inline const std::string cliente =
    "CLIENTE|PEGM800101AB1|María Peña|Niños Héroes|120||Del Valle||Distrito Federal|Benito Juárez"
    "|México|03100|900|0|144|1044|1|1|2011-03-15 14:05:09|\n";
inline const std::string detalle = "DETALLE|1|F|CAF-01|Café|5|KG|180|144|900|16\n";
inline const std::string emite = "EMITE||1|Ingreso || 0 \n";
inline const std::string document = cliente + detalle + emite;

class FlatFileStation : public Station
{
protected:
    Text issue_file(const std::string& bytes)
    {
        write_file(folder() / "ventas.txt", bytes);
        messages.clear();
        return genera_docto.GeneraFacturaElectronicaDesdeArchivoPlano(folder_text(), u"ventas.txt", u"", u"",
                                                                      u"sqlite:", database_path());
    }

    // The file ends with a message that holds each of the texts.
    void expect_stop(const std::string& bytes, const Text& issued, const std::vector<Text>& texts)
    {
        EXPECT_EQ(issue_file(bytes), issued) << bytes;
        ASSERT_EQ(messages.size(), 1u) << bytes;
        EXPECT_EQ(messages[0].title, u"Facturación Electronica");
        EXPECT_TRUE(last_error().starts_with(messages[0].text.substr(0, 40)));
        for (const Text& text : texts)
            EXPECT_NE(messages[0].text.find(text), Text::npos)
                << to_utf8(messages[0].text) << "\n lacks " << to_utf8(text);
    }
};

} // namespace tolvex::testing
