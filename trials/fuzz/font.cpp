// Any bytes may be installed as a font: an error, or a font from which every part can be cut and embedded.
#include "platform/pages/libharu.hpp"
#include "platform/pages/pdf_streams.hpp"
#include "platform/pages/true_type.hpp"
#include "platform/pages/western.hpp"
#include "trials/fuzz/require.hpp"

#include <hpdf_fontdef.h>

namespace {

using namespace tolvex::pages;

void embed(const FontPart& part)
{
    const HaruDocument document = new_haru_document();
    const HPDF_FontDef font =
        HPDF_TTFontDef_Load(document->mmgr, new_stream(document.get(), part.file), HPDF_TRUE);
    require(font != nullptr);
    for (const char16_t c : western_characters()) HPDF_TTFontDef_GetCharWidth(font, c);
    const HPDF_Stream embedded = HPDF_MemStream_New(document->mmgr, 4'096);
    require(HPDF_TTFontDef_SaveFontData(font, embedded) == HPDF_OK);
    HPDF_Stream_Free(embedded);
    HPDF_FontDef_Free(font);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    try {
        const TrueTypeFont font(std::string(reinterpret_cast<const char*>(bytes), size));
        embed(font.part(western_characters()));
    } catch (const tolvex::Error& error) {
        require(error.number() == 5);
    }
    return 0;
}
