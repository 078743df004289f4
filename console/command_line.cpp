#include "console/command_line.hpp"

#include "console/output.hpp"
#include "platform/terminal.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace tolvex::console {

namespace {

constexpr auto description =
    "Emite facturas y notas de crédito electrónicas (CFDI 3.0), las cancela y las borra.\n"
    "\n"
    "Ejemplos:\n"
    "  tolvex demo --carpeta prueba            una empresa de prueba con sus documentos\n"
    "  tolvex emite ventas.txt --bd tienda.db  emite los documentos de un archivo plano\n"
    "  tolvex folio 1                          siguiente folio del rango 1\n"
    "  tolvex imprime 15 --empresa 1 --pdf     el documento en PDF\n"
    "  tolvex cancela 15 --empresa 1 --sucursal 1\n"
    "  tolvex documentos --desde 2011-03-01    lo emitido desde ese día\n"
    "  tolvex verifica                         revisa todo lo emitido\n"
    "  tolvex diagnostico                      dice qué falta para poder emitir\n"
    "  tolvex xml 15 --empresa 1 --sucursal 1  escribe de nuevo el XML que falte";

constexpr auto connection_notes =
    "La conexión también se toma del entorno: TOLVEX_SERVIDOR, TOLVEX_BD, TOLVEX_USUARIO, TOLVEX_CLAVE.\n"
    "La contraseña de un usuario que no la trae se pide en la terminal.\n"
    "Código de salida: 0 si todo salió bien, 1 si la operación falló, 2 si la orden está mal escrita.";

constexpr int wrong_usage = 2;

constexpr auto apostrophe_in_key = "no puede llevar apóstrofos";

// Statements take keys between quotes as they are: an apostrophe would end them, and what follows be SQL.
std::string complaint_about_key(const std::string& key)
{
    return key.find('\'') == std::string::npos ? "" : apostrophe_in_key;
}

void add_connection_options(CLI::App& app, Place& place)
{
    app.add_option("--servidor", place.server,
                   "Servidor SQL Server (host o host,puerto), o sqlite: para un archivo")
        ->capture_default_str();
    app.add_option("--bd", place.database, "Base de datos; con sqlite:, la ruta del archivo")
        ->capture_default_str();
    app.add_option("--usuario", place.user, "Usuario del servidor");
    app.add_option("--clave", place.password,
                   "Contraseña del usuario. Así escrita, otros usuarios del equipo pueden verla: es mejor "
                   "TOLVEX_CLAVE, o dejar que se pida en la terminal");
}

Place place_of_environment()
{
    Place place;
    for (const auto& [variable, value] : {std::pair{"TOLVEX_SERVIDOR", &place.server},
                                          {"TOLVEX_BD", &place.database},
                                          {"TOLVEX_USUARIO", &place.user},
                                          {password_variable, &place.password}})
        *value = terminal::environment(variable).value_or(*value);
    return place;
}

void ask_for_missing_password(const CLI::App& app, Place& place)
{
    const bool given = app.get_option("--clave")->count() > 0 || terminal::environment(password_variable);
    if (given || place.user.empty() || is_embedded(place)) return;
    place.password =
        terminal::ask_for_password("Contraseña de " + place.user + " en " + place.server + ": ").value_or("");
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
                                           {"INT", "NÚMERO"},
                                           {"UINT", "NÚMERO"}})
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

std::string with_hint(const std::string& reason)
{
    return "tolvex: " + reason + "\nVea «tolvex --help» o «tolvex ORDEN --help».\n";
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
    else if (kind == CLI::ExitCodes::ValidationError && message.ends_with(apostrophe_in_key))
        reason = message;
    else if (kind == CLI::ExitCodes::ValidationError)
        reason = "no es uno de los valores posibles: " + named(message, ": ", " not in");
    else if (kind == CLI::ExitCodes::ArgumentMismatch)
        reason = "falta el valor de " + named(message, "", ":");
    return with_hint(reason);
}

class ClosedAtEnd
{
public:
    ClosedAtEnd() = default;
    ~ClosedAtEnd() { disconnect(); }
    ClosedAtEnd(const ClosedAtEnd&) = delete;
};

int run(Command& order, const CLI::App& app, Place& place)
{
    for (const std::string& option : order.refused_options(place))
        if (app.get_option(option)->count() > 0) {
            say_error("sobra " + option + ": no se usa con «" + order.name() + "»");
            return wrong_usage;
        }
    if (order.needs_database()) ask_for_missing_password(app, place);
    terminal::forget_environment(password_variable); // programs that a command starts have no use for it
    const ClosedAtEnd closed_at_end;
    return order.run(place);
}

} // namespace

void Options::argument(const char* name, std::string& value, const char* help)
{
    app_.add_option(name, value, help)->required();
}

void Options::key(const char* name, std::string& value, const char* help)
{
    app_.add_option(name, value, help)->required()->check(complaint_about_key, "");
}

void Options::choice(const char* name, std::string& value, const std::vector<std::string>& choices,
                     const char* help)
{
    app_.add_option(name, value, help)->required()->check(CLI::IsMember(choices))->type_name("TEXTO");
}

void Options::required(const char* name, std::int16_t& value, const char* help)
{
    app_.add_option(name, value, help)->required();
}

void Options::required(const char* name, std::string& value, const char* help)
{
    app_.add_option(name, value, help)->required();
}

void Options::option(const char* name, std::string& value, const char* help)
{
    app_.add_option(name, value, help)->capture_default_str();
}

void Options::option(const char* name, std::int16_t& value, const char* help)
{
    app_.add_option(name, value, help);
}

void Options::option(const char* name, std::string& value, const std::vector<std::string>& choices,
                     const char* help)
{
    app_.add_option(name, value, help)->check(CLI::IsMember(choices))->type_name("TEXTO");
}

void Options::flag_or_value(const char* name, bool& given, std::string& value, const char* help)
{
    const auto take = [&given, &value](const CLI::results_t& results) {
        given = true;
        if (!results.empty()) value = results.front();
        return true;
    };
    app_.add_option(name, take, help)->expected(0, 1)->type_name("[ARCHIVO]");
}

void Options::flag(const char* name, bool& value, const char* help) { app_.add_flag(name, value, help); }

void Options::arguments(const char* name, std::vector<std::string>& values, const char* help)
{
    app_.add_option(name, values, help)->option_text("...");
}

void Options::option(const char* name, std::size_t& value, const char* help)
{
    app_.add_option(name, value, help);
}

int run_command_line(std::vector<std::string> words, const std::vector<std::unique_ptr<Command>>& commands)
{
    CLI::App app{description, "tolvex"};
    app.footer(connection_notes);
    app.require_subcommand(1);
    app.fallthrough(); // connection options may stand before or after the command
    app.failure_message(usage_message);
    speak_spanish(app);
    Place place = place_of_environment();
    add_connection_options(app, place);

    int result = 0;
    for (const auto& command : commands) {
        CLI::App* added = app.add_subcommand(command->name(), command->purpose())->group("Órdenes");
        added->get_help_ptr()->group("Opciones"); // inherited before the options' group is
        Options options(*added);
        command->declare(options);
        added->callback([&, order = command.get()] { result = run(*order, app, place); });
    }

    try {
        std::reverse(words.begin(), words.end()); // the library wants the last one first
        app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : wrong_usage;
    } catch (const WrongOrder& error) {
        std::fputs(with_hint(error.what()).c_str(), stderr);
        return wrong_usage;
    } catch (const std::exception& error) {
        say_error(error.what());
        return 1;
    }
    return all_written_out() ? result : 1;
}

} // namespace tolvex::console
