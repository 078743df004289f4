#include "core/text.hpp"
#include "support/shell.hpp"
#include "support/station.hpp"
#include "support/test_certificate.hpp"

#include <gmock/gmock.h>

#include <set>

namespace tolvex::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* names[] = {"registros", "sello", "xml", "folio", "resto"};

class Verifying : public Station
{
protected:
    Verifying() { execute(u"Update FE_CERTIFICADOS Set cCertificado='" + Text(test_certificate) + u"'"); }

    // "xml A2: falta su XML…", one for each finding.
    std::vector<std::string> findings(VerifiedRange range = {})
    {
        std::vector<std::string> told;
        range.folder = folder_text();
        summary = verify_documents(
            range, {[&](const Finding& finding) {
                        told.push_back(std::string(names[static_cast<int>(finding.fault)]) + " " +
                                       to_utf8(finding.serie + finding.folio + u": " + finding.what));
                    },
                    {}});
        EXPECT_EQ(summary.findings, told.size());
        return told;
    }

    void issue_documents(int count)
    {
        stage_document();
        for (int i = 1; i <= count; ++i) ASSERT_TRUE(issue_from_counter()) << to_utf8(last_error());
    }

    // Rows of documents as verify_folios needs them: "company,branch,'serie','kind','folio'".
    void store_folios(std::initializer_list<TextView> rows)
    {
        execute(u"Delete FE_VENTAS_RESUMEN");
        for (const TextView row : rows)
            execute(
                u"Insert Into FE_VENTAS_RESUMEN(dFecha,nEmpresa,nSucursal,cSerie,cTipoDocumento,cDocumento)"
                u" Values('2011-03-15'," +
                Text(row) + u")");
    }

    // What is told of folios alone.
    std::vector<std::string> folio_findings(const VerifiedRange& range = {})
    {
        std::vector<std::string> told = findings(range);
        std::erase_if(told, [](const std::string& finding) { return !finding.starts_with("folio"); });
        return told;
    }

    VerificationSummary summary;
};

TEST_F(Verifying, what_was_issued_is_right_by_either_digest_in_openssls_eyes_too)
{
    issue_documents(2);
    Receiver old;
    old.FechaHoraDocto = Date::of(2010, 12, 31, 23, 59, 59);
    stage_document(old);
    ASSERT_TRUE(issue_from_counter());
    EXPECT_THAT(findings(), IsEmpty());
    EXPECT_EQ(summary.documents, 3u);
    for (const auto& [nID, digest] : {std::pair{u"1", "sha1"}, {u"3", "md5"}}) {
        const Text condition = Text(u" From FE_VENTAS_RESUMEN Where nID=") + nID;
        std::string original;
        for (const char16_t byte : answer(u"Select cCadenaOriginal" + condition).text())
            original += static_cast<char>(byte);
        write_file(folder() / "cadena", original);
        write_file(folder() / "sello", to_utf8(answer(u"Select cSelloDigital" + condition).text()));
        EXPECT_EQ(run_in_shell(std::string("openssl base64 -d -A -in sello -out firma && openssl dgst -") +
                                   digest +
                                   " -verify " TOLVEX_SOURCE_DIR
                                   "/tests/datos/llave_publica.pem -signature firma cadena",
                               folder())
                      .output,
                  "Verified OK\n");
    }
}

TEST_F(Verifying, rows_and_seals_that_were_changed_are_told_by_document)
{
    issue_documents(3);
    const Text seal = answer(u"Select cSelloDigital From FE_VENTAS_RESUMEN Where nID=2").text();
    const Text header = u"Update FE_VENTAS_RESUMEN Set ", receiver = u"Update FE_ClienteFactura Set ",
               lines = u"Update FE_VENTAS_RESUMEN_DET Set ", certificate = u"Update FE_CERTIFICADOS Set ";
    const auto sealed = [&](const Text& sello) {
        return header + u"cSelloDigital='" + sello + u"' Where nID=2;" + receiver + u"cSelloDigital='" +
               sello + u"' Where nidFE=2";
    };
    const struct
    {
        Text change, repair;
        const char* told;
    } cases[] = {
        {lines + u"nPrecio=1 Where nIdFe=2 And nRenglon=1",
         lines + u"nPrecio=180 Where nIdFe=2 And nRenglon=1",
         "registros A2: sus registros ya no dan la cadena original: precio del renglón 1: se guardó «180.00»"},
        {receiver + u"nidFE=99 Where nidFE=2", receiver + u"nidFE=2 Where nidFE=99",
         "registros A2: falta su receptor en FE_ClienteFactura"},
        {u"Insert Into FE_ClienteFactura Select * From FE_ClienteFactura Where nidFE=2",
         u"Delete FE_ClienteFactura Where rowid=(Select max(rowid) From FE_ClienteFactura)",
         "registros A2: tiene 2 receptores en FE_ClienteFactura"},
        {receiver + u"nImporteIva=1 Where nidFE=2", receiver + u"nImporteIva=208 Where nidFE=2",
         "registros A2: sus registros ya no dan la cadena original: IVA: se guardó «208.00»"},
        {header + u"nIva=1 Where nID=2", header + u"nIva=208 Where nID=2",
         "registros A2: sus registros se contradicen: FE_ClienteFactura.nImporteIva dice 208 y "
         "FE_VENTAS_RESUMEN.nIva 1"},
        {receiver + u"nImporteIva='x' Where nidFE=2", receiver + u"nImporteIva=208 Where nidFE=2",
         "registros A2: FE_ClienteFactura.nImporteIva no sirve: "},
        {sealed(u""), sealed(seal), "sello A2: se guardó sin sello"},
        {sealed(u"¿sello?"), sealed(seal), "sello A2: su sello no es base64"},
        {sealed(u"QUJD"), sealed(seal), "sello A2: su sello no es el de la cadena original"},
        {header + u"cCadenaOriginal=cCadenaOriginal+' ' Where nID=2",
         header + u"cCadenaOriginal=rtrim(cCadenaOriginal) Where nID=2", "sello A2: su sello no es el de la"},
    };
    for (const auto& [change, repair, told] : cases) {
        execute(change);
        EXPECT_THAT(findings(), ::testing::Contains(::testing::StartsWith(told))) << to_utf8(change);
        for (const std::string& finding : findings())
            EXPECT_THAT(finding, HasSubstr(" A2: ")) << to_utf8(change);
        execute(repair);
        EXPECT_THAT(findings(), IsEmpty()) << to_utf8(repair);
    }
    execute(certificate + u"cCertificado='no es base64'");
    EXPECT_THAT(findings(),
                ElementsAre(HasSubstr("sello A1: el certificado"), HasSubstr("sello A2: el certificado"),
                            HasSubstr("sello A3: el certificado")));
}

TEST_F(Verifying, a_file_is_what_the_rows_say_wherever_it_lies_and_however_it_is_written)
{
    issue_documents(2);
    const auto file = folder() / "Facturas/A2.xml";
    const std::string issued = content("Facturas/A2.xml"), end = "</cfdi:Comprobante>\n";
    const auto with = [&](const std::string& what, const std::string& instead) {
        return to_utf8(replace_all(to_text(issued), to_text(what), to_text(instead)));
    };
    const std::string seal =
        to_utf8(answer(u"Select cSelloDigital From FE_VENTAS_RESUMEN Where nID=2").text());
    for (const auto& [written, told] : std::initializer_list<std::pair<std::string, const char*>>{
             {issued, nullptr},
             {with("><", ">\r\n  <"), nullptr},
             {with("\"", "'"), nullptr},
             {with(end, "<Addenda><Pedido orden='7'>texto</Pedido></Addenda>" + end), nullptr},
             {with("total=\"1508.00\"", "total=\"9.00\""),
              "@total: el XML dice «9.00» y debe decir «1508.00»"},
             {with("sello=\"" + seal.substr(0, 5), "sello=\"AAAAA"), "@sello: el XML dice «AAAAA"},
             {with(" estado=\"Distrito Federal\"", ""), "falta cfdi:Receptor/cfdi:Domicilio/@estado"},
             {with(end, "<otro/>" + end), "sobra otro"},
             {with(end, "texto" + end), "sobra text() «texto»"},
             {with("descripcion=\"Pan\"", "descripcion=\"Pay\""),
              "cfdi:Concepto[2]/@descripcion: el XML dice «Pay»"},
             {with("fecha=\"2011", "fecha=\"2012"), "@fecha: el XML dice «2012-03-15T14:05:09»"},
             {with("<cfdi:Receptor rfc=\"", "<cfdi:Receptor rfc=\"X"), "cfdi:Receptor/@rfc"},
             {with(end, "<Addenda></otra>" + end), "no es XML: línea 2"},
             {issued.substr(0, issued.size() / 2), "no es XML"},
             {"", "no es XML"},
             {"no es XML", "no es XML"},
             {std::string(5'000, '\0'), "no es XML"},
             {"<!DOCTYPE x [<!ENTITY a 'b'>]><x>&a;</x>", "no se admite DOCTYPE"},
             {to_utf8(replace_all(to_text(std::string(100, 'x')), u"x", u"<x>")), "demasiados niveles"},
             {"<x/>", "es de otro documento"},
         }) {
        write_file(file, written);
        if (told)
            EXPECT_THAT(findings(), ElementsAre(::testing::AllOf(HasSubstr("xml A2: "), HasSubstr(told))));
        else
            EXPECT_THAT(findings(), IsEmpty()) << written;
    }
    std::filesystem::remove(file);
    EXPECT_THAT(findings(), ElementsAre(HasSubstr("xml A2: falta su XML, " + file.string())));
    std::filesystem::create_directory(folder() / "Facturas/Anteriores");
    write_file(folder() / "Facturas/Anteriores/A2_2011-03-15T14-05-09.xml", "de otro");
    for (const char* number : {"-2", "-3", "-4"}) {
        const auto earlier =
            folder() / (std::string("Facturas/Anteriores/A2_2011-03-15T14-05-09") + number + ".xml");
        write_file(earlier, issued);
        EXPECT_THAT(findings(), IsEmpty()) << number;
        write_file(earlier, "de otro");
    }
    write_file(folder() / "Facturas/A7.xml.tmp", "");
    EXPECT_THAT(findings(), ::testing::Contains(HasSubstr("resto : ")));
}

TEST_F(Verifying, a_company_that_moved_is_no_fault_of_its_documents_but_their_issuer_is_held_to_the_string)
{
    issue_documents(1);
    execute(
        u"Update FE_EMPRESAS Set cCalle='Reforma',cColonia='',cLocalidad='Otra',cCodigoPostal='1',cNombre='X'");
    EXPECT_THAT(findings(), IsEmpty());
    EXPECT_EQ(summary.with_former_issuer, 1u);
    const std::string issued = content("Facturas/A1.xml");
    for (const char* value : {"calle=\"ALHÓNDIGA", "rfc=\"AES", "nombre=\"ABA", "codigoPostal=\"36000\""}) {
        std::string changed = issued;
        changed.replace(changed.find(value) + std::string(value).size() - 3, 1, "?");
        write_file(folder() / "Facturas/A1.xml", changed);
        EXPECT_THAT(findings(), ElementsAre(HasSubstr("cfdi:Emisor: el emisor no es el de la cadena")))
            << value;
    }
    execute(u"Update FE_EMPRESAS Set nEmpresa=2");
    EXPECT_THAT(findings(), ::testing::Contains(HasSubstr("registros A1: no existe la empresa 1")));
}

TEST_F(Verifying, folios_are_told_that_are_missing_twice_or_past_the_counter)
{
    const struct
    {
        std::initializer_list<TextView> rows;
        const char16_t* ranges; // changed first
        std::vector<std::string> told;
    } cases[] = {
        {{u"1,1,'A','F','1'", u"1,1,'A','F','2'", u"1,1,'A','F','3'"}, u"", {}},
        {{u"1,1,'A','F','3'", u"1,1,'A','F','1'"}, u"", {"folio A2: no hay documento con este folio"}},
        {{u"1,1,'A','F','0002'", u"1,1,'A','F','9'"},
         u"",
         {"folio A3 a 8: no hay documentos con estos folios (6)"}},
        {{u"1,1,'A','F','7'", u"1,1,'A','F','07'", u"1,1,'A','F','8'", u"1,1,'a','F',' 8 '"},
         u"",
         {"folio A7 a 8: los llevan dos documentos o más (2)"}},
        {{u"1,1,'A','F','X01'", u"1,1,'A','F','X09'", u"1,1,'A','F','X09'"},
         u"",
         {"folio AX9: lo llevan dos documentos o más"}},
        {{u"1,1,'A','F','12345678901234567890'", u"1,1,'A','F','12345678901234567892'"}, u"", {}},
        // One range of the serie: kinds and branches share its folios; they do not where each has its own.
        {{u"1,1,'A','F','1'", u"1,1,'A','N','2'", u"1,2,'A','F','3'", u"1,1,'A','F','4'"}, u"", {}},
        {{u"1,1,'A','F','1'", u"1,2,'A','F','2'", u"1,1,'A','F','3'"},
         u"cSerie='A' Where nFolio=3",
         {"folio A2: no hay documento con este folio",
          "folio A4 a 5: el contador del rango de folios 3 va en 5 y el último documento es el 3"}},
        {{u"1,1,'A','F','1'", u"1,1,'A','N','1'", u"2,1,'A','F','5'", u"1,1,'B','F','9'"}, u"", {}},
        {{u"1,1,'NC','N','9'"},
         u"",
         {"folio NC9: el contador del rango de folios 2 va en 7 y ya se emitió hasta éste"}},
        {{u"1,1,'NC','N','5'"},
         u"",
         {"folio NC6 a 7: el contador del rango de folios 2 va en 7 y el último documento es el 5"}},
        {{u"1,1,'NC','N','7'", u"1,1,'NC','N','101'"}, // past the range's end: another range's
         u"",
         {"folio NC8 a 100: no hay documentos con estos folios (93)"}},
    };
    for (const auto& [rows, ranges, told] : cases) {
        store_folios(rows);
        if (*ranges) execute(u"Update FE_FOLIOS Set " + Text(ranges));
        EXPECT_THAT(folio_findings(), ::testing::ElementsAreArray(told));
        if (*ranges) execute(u"Update FE_FOLIOS Set cSerie='B' Where nFolio=3");
    }
}

TEST_F(Verifying, a_range_of_days_has_its_documents_and_the_folios_between_them)
{
    store_folios(
        {u"1,1,'A','F','1'", u"1,1,'A','F','2'", u"1,1,'A','F','4'", u"1,1,'A','F','5'", u"1,1,'A','F','9'"});
    execute(u"Update FE_VENTAS_RESUMEN Set dFecha='2011-03-31 23:59:59' Where cDocumento In ('1','4')");
    execute(u"Update FE_VENTAS_RESUMEN Set dFecha='2011-04-01' Where cDocumento='5'");
    const Date march = Date::of(2011, 3, 31), april = Date::of(2011, 4, 1);
    EXPECT_THAT(folio_findings({.from = march, .to = march}), ElementsAre(HasSubstr("folio A3: ")));
    EXPECT_EQ(summary.documents, 2u);
    EXPECT_THAT(folio_findings({.from = april}), IsEmpty());
    EXPECT_EQ(summary.documents, 1u);
    folio_findings({.company = 2});
    EXPECT_EQ(summary.documents, 0u);
    folio_findings({.to = april});
    EXPECT_EQ(summary.documents, 5u);
}

TEST_F(Verifying, goes_over_many_documents_page_by_page_whatever_their_lines)
{
    issue_documents(1);
    const Text columns =
        u"cDocumento,cTipoDocumento,nEmpresa,nSucursal,dFecha,cSerie,nFolioFE,cNumero_Aprobacion"
        u",cSerie_Certificado,cSelloDigital,cCadenaOriginal,nSubTotalAD,nDescuento,nSubTotalDD"
        u",nIva,nTotal,cMoneda,nParidad,nIvaRetenido,nIsrRetenido";
    constexpr int documents = 450;
    for (int i = 2; i <= documents; ++i)
        execute(u"Insert Into FE_VENTAS_RESUMEN(" + columns + u") Select " + columns +
                u" From FE_VENTAS_RESUMEN Where nID=1");
    execute(u"Update FE_VENTAS_RESUMEN Set cDocumento=nID");
    execute(u"Delete FE_VENTAS_RESUMEN Where nID=250");
    execute(u"Update FE_VENTAS_RESUMEN_DET Set nIdFe=120"); // more lines than a page takes
    for (int i = 0; i < 12; ++i)
        execute(u"Insert Into FE_VENTAS_RESUMEN_DET Select * From FE_VENTAS_RESUMEN_DET");
    std::vector<std::pair<std::size_t, std::size_t>> progress;
    std::set<Text> told;
    verify_documents({.folder = folder_text()},
                     {[&](const Finding& finding) { told.insert(finding.folio); },
                      [&](std::size_t done, std::size_t all) { progress.emplace_back(done, all); }});
    EXPECT_EQ(told.size(), documents); // of each is told what is not right with it, the missing one included
    EXPECT_GT(progress.size(), 3u);
    EXPECT_EQ(progress.back(), std::pair(std::size_t{documents - 1}, std::size_t{documents - 1}));
}

TEST_F(Verifying, a_database_that_fails_is_an_error)
{
    issue_documents(1);
    change_schema(u"Drop Table FE_VENTAS_RESUMEN_DET");
    EXPECT_THROW(findings(), Error);
}

} // namespace
} // namespace tolvex::testing
