// libharu, which writes PDF files: every call is checked, and fails with its own number.
#pragma once

#include "core/errors.hpp"

#include <hpdf.h>
#include <hpdf_doc.h>

#include <memory>

namespace tolvex::pages {

struct FreeHaruDocument
{
    void operator()(HPDF_Doc document) const { HPDF_Free(document); }
};
using HaruDocument = std::unique_ptr<_HPDF_Doc_Rec, FreeHaruDocument>;

// It calls nobody back when something fails: an exception may not cross C.
HaruDocument new_haru_document();

// Throws Error 5 when the document has met an error.
void check(HPDF_Doc document);

// What a call gives, once the document has been looked at.
template <class Result>
Result checked(HPDF_Doc document, Result result)
{
    check(document);
    return result;
}

} // namespace tolvex::pages
