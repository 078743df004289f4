// The viewer of Windows.
#include "platform/pages/viewer.hpp"

#include "platform/windows/screen.hpp"
#include "platform/windows/viewer/window.hpp"

namespace tolvex {

void show_pages(std::vector<pages::Page> pages, const pages::DocumentProperties& properties)
{
    require_a_screen();
    if (pages.empty()) throw invalid_call(u"el documento no tiene páginas");
    ViewerWindow::open(std::move(pages), properties);
}

} // namespace tolvex
