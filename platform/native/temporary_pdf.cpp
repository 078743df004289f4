#include "platform/native/temporary_pdf.hpp"

#include "core/errors.hpp"
#include "platform/native/reason_of.hpp"
#include "platform/pages/pdf.hpp"

#include <cerrno>
#include <cstdlib>
#include <filesystem>

namespace tolvex {

TemporaryPdf::TemporaryPdf(const std::vector<pages::Page>& pages, const pages::DocumentProperties& properties)
{
    std::string folder = (std::filesystem::temp_directory_path() / "tolvex-XXXXXX").string();
    if (!mkdtemp(folder.data())) throw path_error(to_text(folder), reason_of(errno));
    folder_ = folder;
    path_ = folder + "/documento.pdf";
    pages::PdfFile file(to_text(path_), properties);
    for (const pages::Page& page : pages) file.take(page);
    file.finish();
}

TemporaryPdf::~TemporaryPdf()
{
    std::error_code ignored;
    if (!left_) std::filesystem::remove_all(folder_, ignored);
}

} // namespace tolvex
