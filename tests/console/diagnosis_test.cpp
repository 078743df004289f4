// What the diagnosis says of a shop that cannot issue, held to one that can.
#include "command.hpp"

#include <gmock/gmock.h>

namespace tolvex::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class Diagnosis : public Command
{
protected:
    Outcome diagnosed(std::vector<std::string> options = {}, const std::string& variables = "")
    {
        options.insert(options.begin(), {"diagnostico", "--bd", database});
        return tolvex(options, variables);
    }
};

TEST_F(Diagnosis, of_a_shop_that_issues_is_well_and_leaves_nothing_behind)
{
    demo();
    const std::string files = "ls -AR demo; md5sum demo/*.* demo/Facturas/*", before = in_shell(files).output;
    const Outcome outcome = diagnosed();
    EXPECT_EQ(outcome.exit_code, 0) << outcome.output;
    EXPECT_EQ(in_shell(files).output, before);
    for (const char* told : {"esquema: completo", "empresa 1: DEM110101AAA", "sella con el certificado 1",
                             "certificado 1: 20001000000100005867 vence el ", "openssl: ", ", OpenSSL 3.",
                             "llave: pkey.key.pem sella, y es del certificado 20001000000100005867",
                             "FACTURAS serie A de la sucursal 1, del 1 al 100000: quedan 99997",
                             "XML: documentos: 4; no falta ninguno"})
        EXPECT_THAT(outcome.output, HasSubstr(told));
    EXPECT_THAT(outcome.output, Not(HasSubstr("AVISO")));
    EXPECT_EQ(diagnosed({"--empresa", "1", "--sucursal", "1", "--carpeta", "demo"}).output, outcome.output);
}

// Each is done to a copy of the shop, by orders of the shell in its folder.
TEST_F(Diagnosis, names_what_keeps_a_shop_from_issuing)
{
    demo();
    in_shell("cp -r demo entera");
    const auto sql = [](const std::string& statement) { return "sqlite3 tolvex.db \"" + statement + "\""; };
    struct Case
    {
        std::string breakage, told;
        int exit_code = 1;
    };
    for (
        const auto& [breakage, told, exit_code] : std::initializer_list<Case>{
            {sql("drop table fe_ctl_adendas"), "MAL    esquema: fe_ctl_adendas: "},
            {sql("delete from FE_EMPRESAS"), "MAL    empresas: no hay ninguna; "},
            {"sqlite3 tolvex.db '.dump' | sed 's/nMostrarSerie smallint NOT NULL/nMostrarSerie smallint/' > d;"
             "rm tolvex.db; sqlite3 tolvex.db < d;" +
                 sql("update FE_EMPRESAS set nMostrarSerie=Null"),
             "MAL    empresa 1: los datos de la empresa 1 no se pudieron leer: "},
            {sql("delete from FE_SUCURSALES"), "MAL    empresa 1: no tiene sucursales; "},
            {sql("update FE_SUCURSALES set nCertificado=7"),
             "sella con el certificado 7, que no se pudo leer completo: no existe"},
            {sql("update FE_CERTIFICADOS set dVigencia_Cert_Hasta=Null"),
             "sella con el certificado 1, que no se pudo leer completo: "},
            {sql("update FE_CERTIFICADOS set dVigencia_Cert_Desde='2999-01-01'"),
             "20001000000100005867 vale a partir del 2999-01-01; "},
            {sql("update FE_CERTIFICADOS set dVigencia_Cert_Hasta='2012-01-01'"),
             "20001000000100005867 caducó el 2012-01-01; "},
            {sql("update FE_CERTIFICADOS set dVigencia_Cert_Hasta=datetime('now','+5 days')"),
             "AVISO  empresa 1, certificado 1: ", 0},
            {sql("update FE_CERTIFICADOS set cCertificado='QUJD'"), "lo guardado no es un certificado; "},
            {sql("update FE_CERTIFICADOS set cRutaArchivoSelloDigital='/no/hay'"),
             "MAL    carpeta /no/hay: no existe; "},
            {"rm pkey.key.pem", "MAL    llave: falta "},
            {"echo nada > pkey.key.pem", "MAL    llave: openssl no sella con pkey.key.pem"},
            {"openssl genrsa -out pkey.key.pem 2048",
             "MAL    llave: pkey.key.pem no es del certificado 20001000000100005867; "},
            {"openssl genrsa -aes128 -passout pass:1234 -out pkey.key.pem 2048",
             "está cifrada con una contraseña; "},
            {"printf '#!/bin/sh\\nexit 1' > openssl; chmod +x openssl", "demo/openssl no se pudo ejecutar; "},
            {sql("delete from FE_FOLIOS"), "MAL    empresa 1: no tiene rangos de folios; "},
            {sql("update FE_FOLIOS set nUltimoFolio=nHasta where cSerie='A'"),
             "FACTURAS serie A de la sucursal 1, del 1 al 100000: agotado; "},
            {sql("update FE_FOLIOS set nUltimoFolio=nHasta-9"), "AVISO  empresa 1, rango de folios 1: ", 0},
            {sql("update FE_FOLIOS set nDesde=101, nUltimoFolio=Null"),
             "el contador va en 0 y daría el folio 1; póngale 100 ", 0},
            {sql("insert into FE_FOLIOS(nFolio,nEmpresa,nSucursal,cDocumento,cSerie,nDesde,nHasta) values(3,1,1,'FACTURAS','B',1,9);"
                 "update FE_FOLIOS set nUltimoFolio=nHasta where cSerie='A'"),
             "bien   empresa 1, rango de folios 1: ", 0},
            {"rm Facturas/A2.xml", "AVISO  XML: documentos: 4; sin archivo: 1; ", 0}}) {
        in_shell("rm -r demo; cp -r entera demo; cd demo; " + breakage);
        const Outcome outcome = diagnosed();
        EXPECT_THAT(outcome.output, HasSubstr(told)) << breakage;
        EXPECT_EQ(outcome.exit_code, exit_code) << outcome.output;
    }
}

TEST_F(Diagnosis, names_what_is_not_where_it_was_asked_for)
{
    demo();
    in_shell("mkdir 'con blanco'");
    EXPECT_THAT(diagnosed({"--carpeta", "con blanco"}).output,
                HasSubstr("con blanco: La ruta de la carpeta de trabajo"));
    EXPECT_THAT(diagnosed({"--empresa", "7"}).output, HasSubstr("MAL    empresas: no existe la empresa 7; "));
    EXPECT_THAT(diagnosed({"--empresa", "1", "--sucursal", "7"}).output,
                HasSubstr("no tiene la sucursal 7; "));
    EXPECT_EQ(diagnosed({"--sucursal", "1"}).errors, "tolvex: falta --empresa\n");
    EXPECT_THAT(diagnosed({}, "PATH=/no/hay").output,
                HasSubstr("MAL    openssl: no está en la carpeta ni en el PATH"));
}

} // namespace
} // namespace tolvex::testing
