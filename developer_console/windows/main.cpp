// TolvexConsola.exe: tries the component as a host of its own.
#include "developer_console/windows/late_bound.hpp"
#include "developer_console/windows/surroundings.hpp"

#include <ole2.h>

namespace {

using namespace tolvex;

// The programs of each bitness lie in a folder of their own within it.
Text folder_of_installation()
{
    Text path(32767, u'\0');
    path.resize(GetModuleFileNameW(nullptr, wide(path), static_cast<DWORD>(path.size())));
    const auto folder_of = [](const Text& inner) { return inner.substr(0, inner.rfind(u'\\')); };
    return folder_of(folder_of(path));
}

// Where examples\demostracion.cmd puts the demonstration.
Text folder_of_demonstration()
{
    Text drive(16, u'\0');
    drive.resize(GetEnvironmentVariableW(L"SystemDrive", wide(drive), static_cast<DWORD>(drive.size())));
    return drive + u"\\TOLVEX-demo";
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
