#include "platform/pages/libharu.hpp"

#include <cstdio>
#include <new>

namespace tolvex::pages {

HaruDocument new_haru_document()
{
    HaruDocument document(HPDF_New(nullptr, nullptr));
    if (!document) throw std::bad_alloc();
    return document;
}

void check(HPDF_Doc document)
{
    const HPDF_STATUS number = HPDF_GetError(document);
    if (number == HPDF_OK) return;
    if (number == HPDF_FAILD_TO_ALLOC_MEM) throw std::bad_alloc();
    char digits[40];
    std::snprintf(digits, sizeof digits, "error 0x%04lX de libharu", static_cast<unsigned long>(number));
    throw invalid_call(u"no se pudo componer el PDF: " + to_text(digits));
}

} // namespace tolvex::pages
