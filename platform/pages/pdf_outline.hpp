// The document map of a PDF document, which viewers show beside the pages.
#pragma once

#include "platform/pages/libharu.hpp"

#include <vector>

namespace tolvex::pages {

class PdfOutline
{
public:
    explicit PdfOutline(HPDF_Doc document) : document_(document) {}

    // Under the last entry of a smaller level; it leads to that height of the page.
    void add(TextView label, int level, HPDF_Page page, float top);

private:
    struct Entry
    {
        int level;
        HPDF_Outline outline;
    };

    const HPDF_Doc document_;
    std::vector<Entry> open_; // the last entry and those above it
};

} // namespace tolvex::pages
