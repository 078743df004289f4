#include "platform/pages/pdf.hpp"
#include "platform/pages/pdf_painter.hpp"

#include "core/dates.hpp"
#include "core/text.hpp"
#include "platform/clock.hpp"
#include "platform/new_file.hpp"

namespace tolvex::pages {

namespace {

void set_properties(HPDF_Doc document, const DocumentProperties& properties)
{
    constexpr std::size_t longest = 500;
    HPDF_SetCurrentEncoder(document, "UTF-8");
    HPDF_SetInfoAttr(document, HPDF_INFO_TITLE, to_utf8(clip(properties.title, longest)).c_str());
    HPDF_SetInfoAttr(document, HPDF_INFO_AUTHOR, to_utf8(clip(properties.author, longest)).c_str());
    HPDF_SetInfoAttr(document, HPDF_INFO_PRODUCER, "TOLVEX");
    const CalendarDate now = calendar(local_now());
    HPDF_SetInfoDateAttr(document, HPDF_INFO_CREATION_DATE,
                         {now.year, now.month, now.day, now.hour, now.minute, now.second, ' ', 0, 0});
    check(document);
}

HaruDocument new_document()
{
    HaruDocument document = new_haru_document();
    document->pdf_version = HPDF_VER_14; // the first with pictures that are partly transparent
    HPDF_SetCompressionMode(document.get(), HPDF_COMP_ALL);
    HPDF_SetPagesConfiguration(document.get(), 1'000);
    check(document.get());
    return document;
}

} // namespace

struct PdfFile::Writer
{
    explicit Writer(TextView path)
        : path(path), file(path), output(files::create(file.path_beside())), document(new_document()),
          fonts(document.get()), pictures(document.get()), outline(document.get())
    {}

    void write();
    void put_in_place();

    const Text path;
    NewFile file;
    std::unique_ptr<files::OutputFile> output; // closed before the file goes
    const HaruDocument document;
    PdfFonts fonts;
    PdfPictures pictures;
    PdfOutline outline;
};

void PdfFile::Writer::write()
{
    HPDF_SaveToStream(document.get());
    check(document.get());
    HPDF_BYTE piece[65'536];
    for (HPDF_UINT32 size = sizeof piece; size == sizeof piece;) {
        HPDF_ReadFromStream(document.get(), piece, &size);
        output->write({reinterpret_cast<const char*>(piece), size});
    }
    output->finish();
    output.reset();
}

// Where the older file cannot be replaced somebody is reading it, as a rule.
void PdfFile::Writer::put_in_place()
{
    try {
        file.put_in_place();
    } catch (const Error& error) {
        if (!files::exists(path)) throw;
        throw with_detail(error, u"si otro programa lo tiene abierto, ciérrelo ahí y repita");
    }
}

PdfFile::PdfFile(TextView path, const DocumentProperties& properties)
    : writer_(std::make_unique<Writer>(path))
{
    set_properties(writer_->document.get(), properties);
}

PdfFile::~PdfFile() = default;

void PdfFile::take(Page page)
{
    PdfPainter painter(writer_->document.get(), page, writer_->fonts, writer_->pictures, writer_->outline);
    for (const Mark& mark : page.marks) std::visit(painter, mark);
    painter.finish();
}

void PdfFile::finish()
{
    writer_->write();
    writer_->put_in_place();
}

} // namespace tolvex::pages
