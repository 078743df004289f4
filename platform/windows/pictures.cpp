// Pictures decoded by the system's imaging component.
#include "platform/pages/picture_decoder.hpp"

#include "platform/windows/windows.hpp"

#include <shlwapi.h>
#include <wincodec.h>

#include <algorithm>

namespace tolvex::pages {

namespace {

using Factory = ComPtr<IWICImagingFactory>;

// The first picture of the file.
ComPtr<IWICBitmapFrameDecode> first_frame(const Factory& factory, const std::string& bytes)
{
    ComPtr<IWICStream> stream;
    check(factory->CreateStream(stream.GetAddressOf()), u"la imagen");
    check(stream->InitializeFromMemory(reinterpret_cast<BYTE*>(const_cast<char*>(bytes.data())),
                                       static_cast<DWORD>(bytes.size())),
          u"la imagen");
    ComPtr<IWICBitmapDecoder> decoder;
    check(factory->CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                           decoder.GetAddressOf()),
          u"la imagen");
    ComPtr<IWICBitmapFrameDecode> frame;
    check(decoder->GetFrame(0, frame.GetAddressOf()), u"la imagen");
    return frame;
}

// As blue, green, red, opacity: the order that every version knows.
ComPtr<IWICFormatConverter> with_opacity(const Factory& factory, IWICBitmapSource* source)
{
    ComPtr<IWICFormatConverter> converter;
    check(factory->CreateFormatConverter(converter.GetAddressOf()), u"la imagen");
    check(converter->Initialize(source, GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone, nullptr, 0,
                                WICBitmapPaletteTypeCustom),
          u"la imagen");
    return converter;
}

// Where a GIF picture lies on its screen.
unsigned offset(IWICBitmapFrameDecode* frame, const wchar_t* name)
{
    ComPtr<IWICMetadataQueryReader> metadata;
    PROPVARIANT value;
    PropVariantInit(&value);
    if (FAILED(frame->GetMetadataQueryReader(metadata.GetAddressOf()))) return 0;
    const bool is_there = SUCCEEDED(metadata->GetMetadataByName(name, &value)) && value.vt == VT_UI2;
    const unsigned found = is_there ? value.uiVal : 0;
    PropVariantClear(&value);
    return found;
}

// Puts rows of a picture at their place on a larger one.
void place(Pixels& pixels, const std::string& bgra, unsigned width, unsigned left, unsigned top)
{
    for (std::size_t i = 0; i < bgra.size(); i += 4) {
        const std::size_t x = left + i / 4 % width, y = top + i / 4 / width;
        const char rgba[] = {bgra[i + 2], bgra[i + 1], bgra[i], bgra[i + 3]};
        pixels.rgba.replace(4 * (y * static_cast<std::size_t>(pixels.width) + x), 4, rgba, 4);
    }
}

Pixels decode(const Picture& picture)
{
    Factory factory;
    check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                           IID_PPV_ARGS(factory.GetAddressOf())),
          u"la imagen");
    const auto frame = first_frame(factory, picture.bytes);
    const auto source = with_opacity(factory, frame.Get());
    UINT width = 0, height = 0;
    check(source->GetSize(&width, &height), u"la imagen");
    const bool is_gif = picture.format == PictureFormat::gif;
    const unsigned left = is_gif ? offset(frame.Get(), L"/imgdesc/Left") : 0;
    const unsigned top = is_gif ? offset(frame.Get(), L"/imgdesc/Top") : 0;
    if (left + width > static_cast<unsigned>(picture.width) ||
        top + height > static_cast<unsigned>(picture.height))
        throw invalid_call(u"el primer cuadro del GIF se sale de la imagen");
    std::string bgra(std::size_t{4} * width * height, '\0');
    check(source->CopyPixels(nullptr, 4 * width, static_cast<UINT>(bgra.size()),
                             reinterpret_cast<BYTE*>(bgra.data())),
          u"la imagen");
    Pixels pixels{picture.width, picture.height,
                  std::string(std::size_t{4} * picture.width * picture.height, '\0')};
    place(pixels, bgra, width, left, top);
    return pixels;
}

} // namespace

Pixels decoded(const Picture& picture)
{
    try {
        return decode(picture);
    } catch (const Error& error) {
        throw invalid_call(u"la imagen está dañada: " + error.description());
    }
}

} // namespace tolvex::pages
