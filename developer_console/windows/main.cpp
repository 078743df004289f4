// TolvexConsola.exe: tries the component as a host of its own.
#include "developer_console/windows/late_bound.hpp"
#include "developer_console/windows/surroundings.hpp"
#include "platform/files.hpp"
#include "platform/terminal.hpp"

#include <ole2.h>

namespace {

using namespace tolvex;

// The programs of each bitness lie in a folder of their own within it.
Text folder_of_installation()
{
    const Text programs = files::program_folder();
    return programs.substr(0, programs.rfind(u'\\'));
}

// Where examples\demostracion.cmd puts the demonstration.
Text folder_of_demonstration()
{
    return to_text(terminal::environment("SystemDrive").value_or("C:")) + u"\\TOLVEX-demo";
}

void run_console()
{
    namespace console = developer_console;
    console::LateBoundComponent component;
    console::RegistryMemory memory;
    console::ConsoleForm form({component, memory, console::copy_to_clipboard, folder_of_demonstration(),
                               folder_of_installation() + u"\\layouts\\factura.rdl"});
    toolkit().show_modal(form);
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int)
{
    if (FAILED(OleInitialize(nullptr))) return 1;
    run_event(run_console);
    OleUninitialize();
    return 0;
}
