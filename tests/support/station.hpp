// A station that issues documents: a working folder with the key, an embedded database with master data, and
// the shared session pointed at them.
//
// Company 1 with branches 1 (certificate 1, range 1) and 2 (no certificate, no range); ranges 1 ("A", 1 to
// 100, never used), 2 ("NC", 1 to 100, last 7) and 3 ("B", used up).
#pragma once

#include "session/session.hpp"
#include "support/files.hpp"
#include "support/rows.hpp"
#include "support/schema_change.hpp"
#include "support/temporary_folder.hpp"
#include "support/text_io.hpp"
#include "tolvex/tolvex.hpp"

#include <functional>
#include <gtest/gtest.h>

namespace tolvex::testing {

// Values of Cliente::SetDatosClientes for a sale in pesos; tests change what they are about.
struct Receiver
{
    Text Rfc = u"PEGM-800101-AB1", Nombre = u"María Peña", Calle = u"Niños Héroes", NumeroExt = u"120",
         NumeroInt = u"4 B", Colonia = u"Del Valle", Localidad = u"Ciudad de México",
         Estado = u"Distrito Federal", Municipio = u"Benito Juárez", Pais = u"México", CodigoPos = u"03100";
    Text Subtotal = u"1370.00", Descuento = u"70", Impuesto = u"208.00", Total = u"1508.00";
    std::int16_t FormaPago = 1;
    Text ClaveFolio = u"1";
    Date FechaHoraDocto = Date::of(2011, 3, 15, 14, 5, 9);
    Text RutaDeArchivos = {}; // the station's folder when empty
    Currency IvaRet = 0, ISRRet = 0;
    Text moneda = u"PESOS";
    Currency Paridad = 1;
    Text vlDatoAdicional = u"caja 3", vlDatoAdicional_2 = u"", vlDatoAdicional_3 = u"mostrador";
};

class Station : public ::testing::Test
{
protected:
    // Opens the database, an embedded one in the station's folder unless a connection string names a server;
    // lets a server be prepared for the master data, and stores them.
    explicit Station(
        const Text& server = {}, const std::function<void()>& prepare = [] {});
    ~Station() override;
    // Again, as a host does after it lost it.
    void open_database();

    void load_issuer();
    void stage(Receiver receiver = {});
    // Two lines: 5 KG of coffee, and 2.5 pieces whose price and amount end in half a cent.
    void stage_lines();
    // Loads the issuer, stages receiver and lines.
    void stage_document(const Receiver& receiver = {});
    // Issues what is staged, without an addenda unless it is asked for.
    bool issue(Text folio = u"A00123", const Text& kind = u"ingreso", bool addenda = false);
    bool issue_from_counter();

    void execute(const Text& sql);
    // Of the tables themselves, as an administrator does.
    void change_schema(const Text& sql) { testing::change_schema(shared_connection(session()), sql); }
    // Column 1 of the first row; Null without a row.
    Value answer(const Text& sql);
    int count(const Text& table, const Text& condition = u"1=1");
    Text rows(const Text& sql) { return rows_as_text(shared_connection(session()), sql); }
    // The last folio taken from a range.
    Value counter(int range);
    // Adds rows "nRama,nPadre,'cNombre','cTipo','cValor'" to the staged receiver's addenda layout.
    void add_layout(const Text& table, std::initializer_list<Text> rows);

    bool exists(const std::string& name) const { return std::filesystem::exists(folder() / name); }
    std::string content(const std::string& name) const { return read_file(folder() / name); }
    const std::filesystem::path& folder() const { return folder_.path(); }
    Text folder_text() const { return folder_.path().u16string(); }
    Text database_path() const { return folder_.file("tolvex.db"); }
    // Names of the work files that are there, joined by blanks.
    std::string work_files() const;

    GeneraDocto genera_docto;
    std::vector<Message> messages; // shown since the station was set up

private:
    void store_master_data();

    const Text server_; // connection string; empty for the embedded database
    TemporaryFolder folder_;
};

} // namespace tolvex::testing
