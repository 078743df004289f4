#include "platform/pages/pdf_streams.hpp"

#include <hpdf_streams.h>
#include <zlib.h>

#include <algorithm>
#include <new>
#include <string>

namespace tolvex::pages {

namespace {

std::string content(HPDF_Stream stream)
{
    std::string bytes;
    for (HPDF_UINT i = 0; i < HPDF_MemStream_GetBufCount(stream); ++i) {
        HPDF_UINT size = 0;
        const HPDF_BYTE* const piece = HPDF_MemStream_GetBufPtr(stream, i, &size);
        bytes.append(reinterpret_cast<const char*>(piece), size);
    }
    return bytes;
}

std::string compressed(const std::string& bytes)
{
    uLongf size = compressBound(static_cast<uLong>(bytes.size()));
    std::string packed(size, '\0');
    const int result =
        compress(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
                 static_cast<uLong>(bytes.size()));
    if (result != Z_OK) throw std::bad_alloc();
    packed.resize(size);
    return packed;
}

// Says how the stream is compressed, which libharu says itself only of what it compresses itself.
HPDF_STATUS write_filter(HPDF_Dict, HPDF_Stream stream)
{
    return HPDF_Stream_WriteStr(stream, "/Filter /FlateDecode\n");
}

} // namespace

HPDF_Stream new_stream(HPDF_Doc document, std::string_view bytes)
{
    const auto size = static_cast<HPDF_UINT>(bytes.size());
    const HPDF_Stream stream = checked(document, HPDF_MemStream_New(document->mmgr, std::max(size, 1U)));
    HPDF_Stream_Write(stream, reinterpret_cast<const HPDF_BYTE*>(bytes.data()), size);
    return checked(document, stream);
}

void replace_stream(HPDF_Doc document, HPDF_Dict object, std::string_view bytes)
{
    const HPDF_Stream stream = new_stream(document, bytes);
    HPDF_Stream_Free(object->stream);
    object->stream = stream;
}

void compress_now(HPDF_Doc document, HPDF_Dict object)
{
    replace_stream(document, object, compressed(content(object->stream)));
    object->filter = HPDF_STREAM_FILTER_NONE;
    object->write_fn = write_filter;
}

} // namespace tolvex::pages
