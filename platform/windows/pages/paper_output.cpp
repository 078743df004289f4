#include "platform/windows/pages/paper_output.hpp"

#include "platform/windows/pages/gdi_painter.hpp"

#include <algorithm>

namespace tolvex {

namespace {

constexpr double points_per_inch = 72;

DeviceContext open_device(const PrinterSettings& settings)
{
    DeviceContext device(CreateDCW(nullptr, wide(settings.printer()), nullptr, &settings.get()));
    if (!device) throw last_printer_error(settings.printer());
    return device;
}

bool same_size(const pages::Page& a, const pages::Page& b)
{
    return a.width == b.width && a.height == b.height;
}

// One job on its way to a printer; taken back unless it is finished.
class PaperJob
{
public:
    PaperJob(const PrinterSettings& settings, const Text& title)
        : settings_(settings), device_(open_device(settings))
    {
        DOCINFOW document{};
        document.cbSize = sizeof document;
        document.lpszDocName = wide(title);
        check(StartDocW(device_.get(), &document) > 0);
        started_ = true;
    }
    ~PaperJob()
    {
        if (started_) AbortDoc(device_.get());
    }
    PaperJob(const PaperJob&) = delete;

    void use_paper_of(const pages::Page& page)
    {
        settings_.set_paper(page);
        check(ResetDCW(device_.get(), &settings_.get()) != nullptr);
    }

    void add(const pages::Page& page)
    {
        check(StartPage(device_.get()) > 0);
        paint(page);
        check(EndPage(device_.get()) > 0);
    }

    void finish()
    {
        check(EndDoc(device_.get()) > 0);
        started_ = false;
    }

private:
    void check(bool done) const
    {
        if (!done) throw last_printer_error(settings_.printer());
    }

    int capability(int which) const { return GetDeviceCaps(device_.get(), which); }

    // The device counts from the corner of what it can print on; the page begins at that of the paper.
    void paint(const pages::Page& page)
    {
        const double down = capability(LOGPIXELSY), across = capability(LOGPIXELSX);
        const SavedState state(device_.get());
        if (down != across) {
            const XFORM stretch{static_cast<FLOAT>(across / down), 0, 0, 1, 0, 0};
            SetGraphicsMode(device_.get(), GM_ADVANCED);
            SetWorldTransform(device_.get(), &stretch);
        }
        GdiFonts fonts(down / points_per_inch * share_that_fits(page));
        const auto offset_across = static_cast<LONG>(capability(PHYSICALOFFSETX) * down / across);
        GdiPainter(device_.get(), {-offset_across, -capability(PHYSICALOFFSETY)}, fonts, pictures_)
            .paint(page);
    }

    // Less than 1 where the paper is smaller than the page.
    double share_that_fits(const pages::Page& page) const
    {
        constexpr double tolerance = 0.98;
        const double width = capability(PHYSICALWIDTH) * points_per_inch / capability(LOGPIXELSX);
        const double height = capability(PHYSICALHEIGHT) * points_per_inch / capability(LOGPIXELSY);
        const double share = std::min(width / page.width, height / page.height);
        return share < tolerance ? share : 1;
    }

    PrinterSettings settings_;
    const DeviceContext device_;
    GdiPictures pictures_;
    bool started_ = false;
};

} // namespace

void put_on_paper(std::span<const pages::Page> pages, const Text& title, const PrinterSettings& settings,
                  int times)
{
    if (pages.empty()) return;
    PaperJob job(settings, title);
    const pages::Page* before = &pages.front();
    for (; times > 0; --times)
        for (const pages::Page& page : pages) {
            if (!same_size(page, *before)) job.use_paper_of(page);
            job.add(page);
            before = &page;
        }
    job.finish();
}

} // namespace tolvex
