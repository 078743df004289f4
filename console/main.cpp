// The command-line program: the same operations as the classes, one command each.
#include "console/command_line.hpp"
#include "console/output.hpp"
#include "platform/terminal.hpp"

int main(int argc, char** argv)
try {
    using namespace tolvex::console;
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(demo_command());
    commands.push_back(emite_command());
    commands.push_back(cancela_command());
    commands.push_back(borra_command());
    commands.push_back(documentos_command());
    commands.push_back(xml_command());
    commands.push_back(verifica_command());
    commands.push_back(diagnostico_command());
    commands.push_back(folio_command());
    commands.push_back(esquema_command());
    commands.push_back(conexion_command());
    commands.push_back(maestros_command());
    commands.push_back(certificado_command());
    commands.push_back(lista_command());
    commands.push_back(reporte_command());
    commands.push_back(imprime_command());
    commands.push_back(revisa_reporte_command());
    return run_command_line(tolvex::terminal::take(argc, argv), commands);
} catch (const std::exception& error) {
    return tolvex::console::fail(error);
}
