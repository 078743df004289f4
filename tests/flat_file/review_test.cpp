// What a flat file is held to before its first document is issued.
#include "flat_file/flat_file_station.hpp"

#include "core/code_pages.hpp"

namespace tolvex::testing {
namespace {

class FlatFileReview : public FlatFileStation
{
protected:
    Review review(const std::string& bytes, FlatFileOptions options = {})
    {
        options.folder = folder_text();
        return review_flat_file(session(), Lines(bytes), options);
    }

    static Text in_words(const std::vector<LineFinding>& findings)
    {
        Text words;
        for (const LineFinding& each : findings) words += each.in_words() + u"\n";
        return words;
    }

    static std::string with(std::string record, const std::string& what, const std::string& instead)
    {
        return record.replace(record.find(what), what.size(), instead);
    }
};

TEST_F(FlatFileReview, every_wrong_line_is_told_and_nothing_is_issued)
{
    expect_stop(emisor + with(cliente, "Peña", "O'Hara") + with(detalle, "|5|", "|cinco|") + emite +
                    document + "FACTURA|1\n",
                u"",
                {u"Línea 2: el valor 2 de CLIENTE (Nombre) lleva un apóstrofo en la letra 8",
                 u"Línea 3: el valor 5 de DETALLE (Cantidad) no es un importe: \"cinco\"",
                 u"Línea 8: no se conoce el registro \"FACTURA\"", u"No se emitió nada"});
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 0);
    const Review all = review(emisor + std::string(3000, '|') + "x\n" + [] {
        std::string wrong;
        for (int i = 0; i < 1200; ++i) wrong += "FACTURA\n";
        return wrong;
    }());
    EXPECT_EQ(all.fault_count, 1201u);
    EXPECT_EQ(all.faults.size(), Review::most_findings);
}

TEST_F(FlatFileReview, each_record_is_held_to_its_form_its_place_and_the_database)
{
    add_layout(u"fe_ctl_adendas", {u"2,1,'orden','A',''"});
    const std::string receiver = emisor + cliente, line = receiver + detalle;
    for (
        const auto& [bytes, faults] : std::initializer_list<std::pair<std::string, Text>>{
            {emisor + document, u""},
            {"EMISOR|1\n", u"Línea 1: EMISOR lleva 2 valores y trae 1\n"},
            {"EMISOR;1;1\n", u"Línea 1: los valores van separados por «|», y aquí por «;»\n"},
            {"EMISOR|1.5|40000\n",
             u"Línea 1: el valor 1 de EMISOR (nEmpresa) no es un número entero de -32768 a "
             u"32767: \"1.5\"\nLínea 1: el valor 2 de EMISOR (nSucursal) no es un número entero "
             u"de -32768 a 32767: \"40000\"\n"},
            {"\n# otra\nEMISOR|7|1\n", u"Línea 3: no existe la empresa 7\n"},
            {"EMISOR|1|9\n", u"Línea 1: no existe la sucursal 9\n"},
            {"EMISOR|1|2\n", u"Línea 1: no existe el certificado 0\n"},
            {"EMISOR|1|1||||\n|||\n" + document, u""}, // as a spreadsheet writes it
            {document, u"Línea 3: EMITE necesita antes un registro EMISOR\n"},
            {emisor + detalle,
             u"Línea 2: DETALLE está fuera de un documento: va entre su CLIENTE y su EMITE\n"},
            {emisor + emite, u"Línea 2: EMITE necesita antes un registro CLIENTE\n"},
            {receiver + emite, u"Línea 3: el documento no lleva ningún DETALLE\n"},
            {line + document, u"Línea 4: el documento de la línea 2 no tiene EMITE\n"},
            {emisor + document + cliente + detalle, u"Línea 5: a este documento le falta su EMITE\n"},
            {emisor + with(document, "|900|0|144|", "|novecientos|0||"),
             u"Línea 2: el valor 12 de CLIENTE (Subtotal) no es un importe: \"novecientos\"\n"
             u"Línea 2: el valor 14 de CLIENTE (Impuesto) no es un importe: \"\"\n"},
            {emisor + with(document, "|144|1044|", "|14,321|1044|"),
             u"Línea 2: el valor 14 de CLIENTE (Impuesto) no es un importe: \"14,321\"\n"},
            {emisor + with(document, "03-15", "02-29"),
             u"Línea 2: el valor 18 de CLIENTE (FechaHoraDocto) no es una fecha aaaa-mm-dd hh:mm:ss: \"2011-02-29 "
             u"14:05:09\"\n"},
            {emisor + with(document, "|1|1|2011", "|1|9|2011"), u"Línea 4: no existe el rango de folios 9\n"},
            {emisor + with(document, "09|", "09|" + (folder() / "no hay").string()),
             u"Línea 2: La ruta de la carpeta de trabajo no puede llevar blancos: " + folder_text() +
                 u"/no hay\n"},
            {emisor + with(document, "09|", "09|" + (folder() / "falta").string()),
             u"Línea 2: el valor 19 de CLIENTE (RutaDeArchivos) no es una carpeta que exista: \"" +
                 folder_text() + u"/falta\"\n"},
            {emisor + with(document, "09|", "09|/"),
             u"Línea 2: falta la llave pkey.key.pem en la carpeta de trabajo /\n"},
            {line + "ADDENDA|X|2|1|v\nADDENDA|X|2|9|v\nADDENDADET|1|X|4|3\n" + emite,
             u"Línea 5: la addenda del receptor PEGM800101AB1 no tiene la rama 2 del padre 9\n"
             u"Línea 6: la addenda del receptor PEGM800101AB1 no tiene en sus renglones la rama 4 del padre 3\n"},
            {line + "EMITE|1|si||dieciséis\n",
             u"Línea 4: el valor 2 de EMITE (CtrlFolioInterno) no es 0 o 1: \"si\"\n"
             u"Línea 4: el valor 4 de EMITE (vlTasaDeIva) no es un número entero de -32768 a 32767: \"dieciséis\"\n"},
            {line + "EMITE||1|factura\n",
             u"Línea 4: el valor 3 de EMITE (vlTipoDocumento) no es «ingreso» ni «egreso»: \"factura\"\n"},
            {line + "EMITE\n",
             u"Línea 4: el valor 1 de EMITE (vlnFactura) está vacío: escriba uno como 00000120, o CtrlFolioInterno 1 "
             u"para tomar el siguiente del rango\n"},
            {line + "EMITE|X12\n",
             u"Línea 4: el valor 1 de EMITE (vlnFactura) no tiene un número de folio: \"X12\": escriba uno como "
             u"00000120, o CtrlFolioInterno 1 para tomar el siguiente del rango\n"},
            {line + "EMITE|X012\n", u""}})
        EXPECT_EQ(in_words(review(bytes).faults), faults) << bytes;
    std::filesystem::remove(folder() / "pkey.key.pem");
    EXPECT_EQ(review(emisor + document + document).fault_count, 2u);
}

TEST_F(FlatFileReview, characters_that_no_seal_verifies_are_named_with_what_to_write)
{
    const auto of_product = [](const std::string& name) { return emisor + with(document, "Café", name); };
    for (
        const auto& [name, fault] : std::initializer_list<std::pair<std::string, Text>>{
            {"Ñandú áéíóú ¿? «x» ´`· \"", u""},
            {"a—b", u"«—» (U+2014) en la letra 2, con el que el sello no se puede comprobar: escriba «-»"},
            {"€",
             u"«€» (U+20AC) en la letra 1, con el que el sello no se puede comprobar: quítelo o escriba otro"},
            {"x😀",
             u"«😀» (U+1F600) en la letra 2, con el que el sello no se puede comprobar: quítelo o escriba otro"},
            {"a\tb", u"un carácter de control (U+0009) en la letra 2: quítelo"},
            {"1/4'",
             u"un apóstrofo en la letra 4, que dejaría el documento a medias: escriba «´» o quítelo"}})
        EXPECT_EQ(in_words(review(of_product(name)).faults),
                  fault.empty() ? fault
                                : u"Línea 3: el valor 4 de DETALLE (Producto) lleva " + fault + u"\n");

    const std::string typographic = of_product("“Pan” – ‘dulce’… •");
    EXPECT_EQ(review(typographic).fault_count, 7u);
    const Review plain = review(typographic, {.plain_text = true});
    EXPECT_EQ(in_words(plain.faults), u"");
    EXPECT_EQ(in_words(plain.warnings),
              u"Línea 3: el valor 4 de DETALLE (Producto) se escribe «\"Pan\" - `dulce´... ·»\n");
    issue_flat_file_records(session(), Lines(typographic), {.folder = folder_text(), .plain_text = true}, {});
    EXPECT_EQ(rows(u"Select cProducto From FE_VENTAS_RESUMEN_DET"), u"\"Pan\" - `dulce´... ·");
}

TEST_F(FlatFileReview, what_looks_odd_is_a_warning)
{
    execute(u"Update FE_FOLIOS Set cDocumento='NOTAS DE CREDITO' Where nFolio=2");
    for (
        const auto& [bytes, warnings] : std::initializer_list<std::pair<std::string, Text>>{
            {emisor + document, u""},
            {emisor + with(document, "|1044|", "|1044.01|"), u""}, // a cent of rounding
            {emisor + with(document, "|1044|", "|1144|"),
             u"Línea 4: el Total es 1,144.00 y sus partes suman 1,044.00\n"},
            {emisor + with(document, "|900|16", "|800|16"),
             u"Línea 4: el Subtotal es 900.00 y sus renglones suman 800.00\n"},
            {emisor + with(document, "|1|1|2011", "|1|2|2011"),
             u"Línea 4: el rango de folios 2 es de NOTAS DE CREDITO, y el documento es una factura\n"},
            {emisor + with(document, "|Café|", "||"),
             u"Línea 3: el valor 4 de DETALLE (Producto) va vacío, y la autoridad lo pide\n"},
            {emisor + with(document, "María Peña", "María  Peña"),
             u"Línea 2: el valor 2 de CLIENTE (Nombre) lleva blancos de más, con los que el sello no se puede comprobar\n"},
            {emisor + with(document, "Café", "\"Café\""),
             u"Línea 3: el valor 4 de DETALLE (Producto) va entre comillas, como las ponen las hojas de cálculo: se emite "
             u"con ellas\n"}}) {
        const Review reviewed = review(bytes);
        EXPECT_EQ(in_words(reviewed.warnings), warnings) << bytes;
        EXPECT_EQ(reviewed.fault_count, 0u) << bytes;
    }
}

TEST_F(FlatFileReview, a_file_that_stopped_goes_on_from_a_line)
{
    const std::string bytes = emisor + "FACTURA\n" + document + document;
    EXPECT_EQ(review(bytes).fault_count, 1u);
    EXPECT_EQ(review(bytes, {.from_line = 6}).document_count, 1u);
    EXPECT_EQ(review(bytes, {.from_line = 6}).fault_count, 0u); // EMISOR counts all the same
    EXPECT_EQ(review(bytes, {.from_line = 7}).fault_count, 2u); // in the middle of a document
    const FlatFileResult rest = issue_flat_file_records(session(), Lines(bytes), {folder_text(), 6}, {});
    EXPECT_EQ(rest.series_and_folios(), u"A1");
    EXPECT_EQ(rest.failure, u"");

    FlatFileEvents events;
    events.must_stop = [] { return true; };
    const FlatFileResult stopped =
        issue_flat_file_records(session(), Lines(emisor + document + document), {folder_text()}, events);
    EXPECT_EQ(stopped.failure, u"Línea 4: se interrumpió después de este documento");
    EXPECT_EQ(stopped.progress(), u"Se emitió un documento, A2; lo que falta comienza en la línea 5");
    EXPECT_EQ(issue_flat_file_records(session(), Lines(emisor + document), {folder_text()}, events).failure,
              u"");
}

TEST_F(FlatFileReview, files_of_other_programs_are_read_or_called_what_they_are)
{
    const Text text = to_text(emisor + document);
    const auto failure = [](const std::string& bytes) -> Text {
        try {
            Lines lines(bytes);
            return u"";
        } catch (const Error& error) {
            return error.description();
        }
    };
    std::string utf16;
    for (const char16_t c : text) utf16 += {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
    EXPECT_NE(failure("\xFF\xFE" + utf16).find(u"UTF-16"), Text::npos);
    EXPECT_NE(failure(utf16).find(u"UTF-16"), Text::npos);
    EXPECT_NE(failure(to_utf8(replace_all(text, u"\n", u"\r"))).find(u"sólo con CR"), Text::npos);

    const std::string dos = "DETALLE|Jos\x82 Mu\xA4oz\r\n\x1A"; // in code page 850
    EXPECT_NE(failure(dos).find(u"DOS"), Text::npos);
    EXPECT_EQ(Lines(dos, Encoding::code_page_850).text(1), u"DETALLE|José Muñoz");
    EXPECT_EQ(Lines(dos, Encoding::code_page_850).count(), 1u);
    EXPECT_EQ(Lines(bytes_of_text(text)).text(2), split(text, u'\n')[1]); // Windows-1252

    const Review damaged = review(with(emisor + document, "Café", "Caf\xE9 y pan"));
    EXPECT_EQ(in_words(damaged.faults),
              u"Línea 3: la letra 23 no es UTF-8, y el resto del archivo sí: guárdelo otra vez "
              u"como UTF-8\n");
}

} // namespace
} // namespace tolvex::testing
