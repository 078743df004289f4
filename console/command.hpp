// One command of the program: its name, its options with their help, and what it does.
#pragma once

#include "console/place.hpp"

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tolvex::console {

// How a command declares what may follow its name. The values must outlive the parsing.
class Options
{
public:
    explicit Options(CLI::App& app) : app_(app) {}

    // Must be given: a word by its place, or a value after its option.
    void argument(const char* name, std::string& value, const char* help);
    // The same for a key that goes into statements as it is: refused when it has an apostrophe.
    void key(const char* name, std::string& value, const char* help);
    void choice(const char* name, std::string& value, const std::vector<std::string>& choices,
                const char* help);
    void required(const char* name, std::int16_t& value, const char* help);
    void required(const char* name, std::string& value, const char* help);
    // Any number of words by their place.
    void arguments(const char* name, std::vector<std::string>& values, const char* help);
    // May be given; the help shows the value that stands otherwise.
    void option(const char* name, std::string& value, const char* help);
    void option(const char* name, std::int16_t& value, const char* help);
    void option(const char* name, std::size_t& value, const char* help);
    void option(const char* name, std::string& value, const std::vector<std::string>& choices,
                const char* help);
    void flag(const char* name, bool& value, const char* help);
    // With or without a value after it.
    void flag_or_value(const char* name, bool& given, std::string& value, const char* help);

private:
    CLI::App& app_;
};

// Words that do not make an order together: told like a badly written one. The reason is in Spanish.
class WrongOrder : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

class Command
{
public:
    virtual ~Command() = default;
    virtual const char* name() const = 0;
    virtual const char* purpose() const = 0;
    // An order as somebody may type it.
    virtual const char* example() const = 0;
    virtual void declare(Options&) {}
    // Whether what was asked for needs the database, and so a password.
    virtual bool needs_database() const { return true; }
    // The options of the connection that say nothing to it, and so are refused.
    virtual std::vector<std::string> refused_options(const Place&) const { return {}; }
    // Prints its result on standard output and gives the process's exit code: 0 on success, 1 when it failed
    // and said why. Throws Error for what ends it unforeseen. The database is closed after it.
    virtual int run(const Place& place) = 0;
};

std::unique_ptr<Command> demo_command();
std::unique_ptr<Command> emite_command();
std::unique_ptr<Command> cancela_command();
std::unique_ptr<Command> borra_command();
std::unique_ptr<Command> documentos_command();
std::unique_ptr<Command> xml_command();
std::unique_ptr<Command> verifica_command();
std::unique_ptr<Command> diagnostico_command();
std::unique_ptr<Command> folio_command();
std::unique_ptr<Command> esquema_command();
std::unique_ptr<Command> conexion_command();
std::unique_ptr<Command> maestros_command();
std::unique_ptr<Command> certificado_command();
std::unique_ptr<Command> lista_command();
std::unique_ptr<Command> reporte_command();
std::unique_ptr<Command> imprime_command();
std::unique_ptr<Command> revisa_reporte_command();

} // namespace tolvex::console
