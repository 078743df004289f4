#include "platform/pages/pdf_outline.hpp"

#include "core/text.hpp"

namespace tolvex::pages {

void PdfOutline::add(TextView label, int level, HPDF_Page page, float top)
{
    constexpr std::size_t longest_label = 500;
    while (!open_.empty() && open_.back().level >= level) open_.pop_back();
    const HPDF_Outline above = open_.empty() ? nullptr : open_.back().outline;
    const HPDF_Encoder encoder = HPDF_GetEncoder(document_, "UTF-8");
    const HPDF_Outline entry =
        checked(document_,
                HPDF_CreateOutline(document_, above, to_utf8(clip(label, longest_label)).c_str(), encoder));
    const HPDF_Destination place = checked(document_, HPDF_Page_CreateDestination(page));
    HPDF_Destination_SetFitH(place, top);
    HPDF_Outline_SetDestination(entry, place);
    HPDF_SetPageMode(document_, HPDF_PAGE_MODE_USE_OUTLINE);
    check(document_);
    open_.push_back({level, entry});
}

} // namespace tolvex::pages
