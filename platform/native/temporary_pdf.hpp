// Pages in a PDF file for another program, which only this user may read.
#pragma once

#include "platform/pages/page.hpp"

namespace tolvex {

class TemporaryPdf
{
public:
    TemporaryPdf(const std::vector<pages::Page>& pages, const pages::DocumentProperties& properties);
    // Removes the file unless it was left to another program.
    ~TemporaryPdf();
    TemporaryPdf(const TemporaryPdf&) = delete;
    TemporaryPdf& operator=(const TemporaryPdf&) = delete;

    const std::string& path() const { return path_; }
    void leave() { left_ = true; }

private:
    std::string folder_, path_;
    bool left_ = false;
};

} // namespace tolvex
