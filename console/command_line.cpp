#include "console/command_line.hpp"

#include "console/nearest.hpp"
#include "console/output.hpp"
#include "console/reference.hpp"
#include "platform/terminal.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <sstream>

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
    const auto add = [&](const char* name, std::string& value, const char* help) {
        return app.add_option(name, value, help)->group("Conexión");
    };
    add("--servidor", place.server, "Servidor SQL Server (host o host,puerto), o sqlite: para un archivo")
        ->capture_default_str();
    add("--bd", place.database, "Base de datos; con sqlite:, la ruta del archivo")->capture_default_str();
    add("--usuario", place.user, "Usuario del servidor");
    add("--clave", place.password,
        "Contraseña del usuario. Así escrita, otros usuarios del equipo pueden verla: es mejor TOLVEX_CLAVE, o dejar "
        "que se pida en la terminal");
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

// Options of the connection may stand before the order or after it.
bool is_given(const CLI::App& order, const std::string& option)
{
    return order.get_option(option)->count() > 0 || order.get_parent()->get_option(option)->count() > 0;
}

void ask_for_missing_password(const CLI::App& order, Place& place)
{
    const bool given = is_given(order, "--clave") || terminal::environment(password_variable);
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

// What was asked for instead of an order, help for instance, or what is wrong with the words.
int tell(CLI::App& app, const CLI::ParseError& error)
{
    std::ostringstream out, errors;
    const int code = app.exit(error, out, errors);
    terminal::print(stdout, out.str());
    terminal::print(stderr, errors.str());
    return code == 0 ? 0 : wrong_usage;
}

// For the system that installs the program.
int print_whole(const std::string& text)
{
    terminal::print(stdout, text);
    return all_written_out() ? 0 : 1;
}

std::string with_hint(const std::string& reason)
{
    return "tolvex: " + reason + "\nVea «tolvex --help» o «tolvex ORDEN --help».\n";
}

// Of words that were not understood: the option, since the others may be its values, or else the first.
std::string most_wrong(const std::string& words)
{
    const auto option = (" " + words).find(" -");
    const std::string rest = words.substr(option == std::string::npos ? 0 : option);
    return rest.substr(0, rest.find(' '));
}

// The word with what may have been meant.
std::string with_nearest(const CLI::App& app, const std::string& word)
{
    std::vector<std::string> known;
    const bool is_option = word.starts_with("-");
    const auto add_options = [&](const CLI::App& of) {
        for (const CLI::Option* option : of.get_options())
            if (!option->get_positional()) known.push_back("--" + option->get_lnames().front());
    };
    if (is_option) add_options(app);
    for (const CLI::App* order : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (is_option && order->parsed()) add_options(*order);
        if (!is_option && app.get_subcommands().empty()) known.push_back(order->get_name());
    }
    const std::string meant = nearest(word, known);
    return word + (meant.empty() ? "" : " (¿quiso decir «" + meant + "»?)");
}

// What is wrong with the command line, in Spanish.
std::string usage_message(const CLI::App* app, const CLI::Error& error)
{
    const auto kind = static_cast<CLI::ExitCodes>(error.get_exit_code());
    const std::string message = error.what();
    std::string reason = message;
    if (message.starts_with("A subcommand"))
        reason = app->remaining().empty()
                     ? "falta la orden"
                     : "no se conoce la orden " + with_nearest(*app, app->remaining().front());
    else if (kind == CLI::ExitCodes::RequiredError)
        reason = "falta " + named(message, "", " is required");
    else if (kind == CLI::ExitCodes::ExtrasError)
        reason = "no se conoce o sobra: " + with_nearest(*app, most_wrong(named(message, ": ", "")));
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

int run(Command& order, const CLI::App& words, Place& place)
{
    for (const std::string& option : order.refused_options(place))
        if (is_given(words, option)) {
            say_error("sobra " + option + ": no se usa con «" + order.name() + "»");
            return wrong_usage;
        }
    if (order.needs_database()) ask_for_missing_password(words, place);
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
    app.set_version_flag("--version", "tolvex " TOLVEX_VERSION, "Escribe la versión")->group("Opciones");
    speak_spanish(app);
    Place place = place_of_environment();
    add_connection_options(app, place);

    int result = 0;
    for (const auto& command : commands) {
        CLI::App* added = app.add_subcommand(command->name(), command->purpose())->group("Órdenes");
        added->get_help_ptr()->group("Opciones"); // inherited before the options' group is
        added->footer(std::string("Ejemplo:\n  ") + command->example());
        Options options(*added);
        command->declare(options);
        add_connection_options(*added, place);
        added->callback([&, added, order = command.get()] { result = run(*order, *added, place); });
    }
    if (words == std::vector<std::string>{"--man"}) return print_whole(man_page(app));
    if (words == std::vector<std::string>{"--completado"}) return print_whole(bash_completion(app));

    try {
        std::reverse(words.begin(), words.end()); // the library wants the last one first
        app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        return tell(app, error);
    } catch (const WrongOrder& error) {
        terminal::print(stderr, with_hint(error.what()));
        return wrong_usage;
    }
    return all_written_out() ? result : 1;
}

} // namespace tolvex::console
