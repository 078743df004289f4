// The desktop's own viewer of PDF files shows the pages.
#include "platform/pages/viewer.hpp"

#include "core/errors.hpp"
#include "platform/native/temporary_pdf.hpp"

#include <array>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tolvex {

namespace {

constexpr auto opener = "xdg-open";

// Runs the program that hands a file to the desktop; it comes back at once.
bool open_with_desktop(std::string path)
{
    std::string program = opener;
    std::array<char*, 3> arguments{program.data(), path.data(), nullptr};
    pid_t child = 0;
    if (posix_spawnp(&child, opener, nullptr, nullptr, arguments.data(), environ) != 0) return false;
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) continue;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): a viewer that is a window keeps the pages
void show_pages(std::vector<pages::Page> pages, const pages::DocumentProperties& properties)
{
    TemporaryPdf pdf(pages, properties);
    if (!open_with_desktop(pdf.path()))
        throw invalid_call(
            u"No se pudo abrir el visor de PDF del escritorio: instale xdg-utils y un visor, o pida el "
            u"archivo PDF");
    pdf.leave();
}

} // namespace tolvex
