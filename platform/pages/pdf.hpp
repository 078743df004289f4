// Pages as a PDF file: text stays text, fonts are embedded as the part that is used.
#pragma once

#include "platform/pages/page.hpp"

namespace tolvex::pages {

class PdfFile : public PageSink
{
public:
    // Throws Error 75 when the file cannot be written there; an older one stays until finish().
    PdfFile(TextView path, const DocumentProperties& properties);
    ~PdfFile() override;

    void take(Page page) override;
    // Writes the file whole. Throws Error 57 or 75, with what to do: another program has it open, the disk is
    // full.
    void finish();

private:
    struct Writer;
    std::unique_ptr<Writer> writer_;
};

} // namespace tolvex::pages
