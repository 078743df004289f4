// The command-line program: the same operations as the classes, one command each.
#include "console/commands.hpp"

#include <CLI/CLI.hpp>
#include <cstdio>

namespace {

using namespace tolvex::console;

constexpr auto description =
    "Emite facturas y notas de crédito electrónicas (CFDI 3.0), las cancela y las borra.\n"
    "\n"
    "Ejemplos:\n"
    "  tolvex demo --carpeta prueba            una empresa de prueba con sus documentos\n"
    "  tolvex emite ventas.txt --bd tienda.db  emite los documentos de un archivo plano\n"
    "  tolvex folio 1                          siguiente folio del rango 1\n"
    "  tolvex cancela 15 --empresa 1 --sucursal 1";

constexpr auto connection_notes =
    "La conexión también se toma del entorno: TOLVEX_SERVIDOR, TOLVEX_BD, TOLVEX_USUARIO, TOLVEX_CLAVE.\n"
    "Código de salida: 0 si todo salió bien, 1 si la operación falló, 2 si la orden está mal escrita.";

constexpr int wrong_usage = 2;

void add_connection_options(CLI::App& app, Place& place)
{
    app.add_option("--servidor", place.server,
                   "Servidor SQL Server (host o host,puerto), o sqlite: para un archivo")
        ->envname("TOLVEX_SERVIDOR")
        ->default_str("sqlite:");
    app.add_option("--bd", place.database, "Base de datos; con sqlite:, la ruta del archivo")
        ->envname("TOLVEX_BD")
        ->default_str("tolvex.db");
    app.add_option("--usuario", place.user, "Usuario del servidor")->envname("TOLVEX_USUARIO");
    app.add_option("--clave", place.password, "Contraseña del usuario")->envname("TOLVEX_CLAVE");
}

void add_document_key(CLI::App& command, DocumentKey& key)
{
    command.add_option("FOLIO", key.folio, "Folio del documento, como se emitió")->required();
    command.add_option("--empresa", key.company, "Número de la empresa")->required();
    command.add_option("--sucursal", key.branch, "Número de la sucursal")->required();
}

void speak_spanish(CLI::App& app)
{
    app.option_defaults()->group("Opciones");
    app.set_help_flag("-h,--help", "Muestra esta ayuda");
    const auto formatter = app.get_formatter();
    for (const auto& [english, spanish] : {std::pair{"Usage", "Uso"},
                                           {"OPTIONS", "OPCIONES"},
                                           {"OPTION", "OPCIÓN"},
                                           {"SUBCOMMAND", "ORDEN"},
                                           {"SUBCOMMANDS", "ÓRDENES"},
                                           {"Positionals", "Argumentos"},
                                           {"POSITIONALS", "ARGUMENTOS"},
                                           {"REQUIRED", "(obligatorio)"},
                                           {"Env", "Entorno"},
                                           {"TEXT", "TEXTO"},
                                           {"INT", "NÚMERO"}})
        formatter->label(english, spanish);
    formatter->column_width(32);
}

// The part of a library's message that names the argument.
std::string named(const std::string& message, const std::string& before, const std::string& after)
{
    const auto start = message.find(before);
    const auto from = before.empty() || start == std::string::npos ? 0 : start + before.size();
    return message.substr(from, after.empty() ? std::string::npos : message.find(after, from) - from);
}

// What is wrong with the command line, in Spanish.
std::string usage_message(const CLI::App*, const CLI::Error& error)
{
    const auto kind = static_cast<CLI::ExitCodes>(error.get_exit_code());
    const std::string message = error.what();
    std::string reason = message;
    if (message.starts_with("A subcommand"))
        reason = "falta la orden";
    else if (kind == CLI::ExitCodes::RequiredError)
        reason = "falta " + named(message, "", " is required");
    else if (kind == CLI::ExitCodes::ExtrasError)
        reason = "no se conoce o sobra: " + named(message, ": ", "");
    else if (kind == CLI::ExitCodes::ConversionError)
        reason = "no es un número válido: " + named(message, ": ", "");
    else if (kind == CLI::ExitCodes::ArgumentMismatch)
        reason = "falta el valor de " + named(message, "", ":");
    return "tolvex: " + reason + "\nVea «tolvex --help» o «tolvex ORDEN --help».\n";
}

// Whether all that was printed reached standard output.
bool written_out()
{
    if (std::fflush(stdout) == 0 && !std::ferror(stdout)) return true;
    say_error("no se pudo escribir el resultado en la salida estándar");
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{description, "tolvex"};
    app.footer(connection_notes);
    app.require_subcommand(1);
    app.fallthrough(); // connection options may stand before or after the command
    app.failure_message(usage_message);
    speak_spanish(app);

    Place place{"sqlite:", "tolvex.db", "", ""};
    add_connection_options(app, place);

    std::string folder = "demo", file, range, date;
    DocumentKey key;
    bool credit_note = false, extended_root = false, create = false;
    int result = 0;

    const auto add_command = [&](const char* name, const char* purpose) {
        auto* command = app.add_subcommand(name, purpose)->group("Órdenes");
        command->get_help_ptr()->group("Opciones"); // inherited before the options' group is
        return command;
    };
    auto* demo_command = add_command("demo", "Prepara una empresa de prueba y emite documentos de verdad");
    demo_command->add_option("--carpeta", folder, "Carpeta de trabajo")->capture_default_str();
    demo_command->callback([&] { result = demo(place, folder); });

    auto* emite_command = add_command(
        "emite", "Emite los documentos de un archivo plano y escribe la ruta de cada XML, uno por línea");
    emite_command->add_option("ARCHIVO", file, "Archivo plano (vea docs/archivo-plano.md)")->required();
    emite_command->add_flag("--raiz-extendida", extended_root,
                            "Escribe en el XML la raíz extendida, con folio y método de pago");
    emite_command->callback([&] { result = emite(place, file, extended_root); });

    auto* cancela_command = add_command("cancela", "Marca un documento como cancelado");
    add_document_key(*cancela_command, key);
    cancela_command->add_option("--fecha", date, "Fecha de cancelación aaaa-mm-dd (si falta, hoy)");
    cancela_command->add_flag("--nota-de-credito", credit_note, "El documento es una nota de crédito");
    cancela_command->callback([&] { result = cancela(place, key, date, credit_note); });

    auto* borra_command = add_command("borra", "Borra un documento con su receptor y sus renglones");
    add_document_key(*borra_command, key);
    borra_command->callback([&] { result = borra(place, key); });

    auto* folio_command = add_command("folio", "Escribe el siguiente folio de un rango, sin tomarlo");
    folio_command->add_option("CLAVE", range, "Número del rango de folios")->required();
    folio_command->callback([&] { result = folio(place, range); });

    auto* esquema_command =
        add_command("esquema", "Escribe las instrucciones que crean las tablas en SQL Server");
    esquema_command->add_flag("--crea", create, "Las ejecuta: crea en la base de datos lo que falte");
    esquema_command->callback([&] { result = esquema(place, create); });

    add_command("conexion", "Dice qué base de datos se alcanzó y si su esquema está completo")->callback([&] {
        result = conexion(place);
    });

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : wrong_usage;
    } catch (const std::exception& error) {
        say_error(error.what());
        return 1;
    }
    return written_out() ? result : 1;
}
