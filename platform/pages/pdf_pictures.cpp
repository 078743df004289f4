#include "platform/pages/pdf_pictures.hpp"
#include "platform/pages/pdf_streams.hpp"

namespace tolvex::pages {

namespace {

bool is_grey(const std::string& rgba)
{
    for (std::size_t i = 0; i < rgba.size(); i += 4)
        if (rgba[i] != rgba[i + 1] || rgba[i] != rgba[i + 2]) return false;
    return true;
}

bool is_opaque(const std::string& rgba)
{
    for (std::size_t i = 3; i < rgba.size(); i += 4)
        if (rgba[i] != '\xFF') return false;
    return true;
}

// Of each pixel's four bytes, `count` from `first` on.
std::string channels(const std::string& rgba, std::size_t first, std::size_t count)
{
    std::string bytes;
    bytes.reserve(rgba.size() / 4 * count);
    for (std::size_t i = first; i < rgba.size(); i += 4) bytes.append(rgba, i, count);
    return bytes;
}

} // namespace

HPDF_Image PdfPictures::image(const std::shared_ptr<const Picture>& picture)
{
    const auto found = images_.find(picture->bytes);
    if (found != images_.end()) return found->second.image;
    const HPDF_Image image = new_image(*picture);
    images_.emplace(picture->bytes, Held{picture, image});
    return image;
}

HPDF_Image PdfPictures::new_image(const Picture& picture)
{
    if (picture.format != PictureFormat::jpeg) return image_of(pixels(picture));
    const HPDF_Image image =
        checked(document_,
                HPDF_LoadJpegImageFromMem(document_, reinterpret_cast<const HPDF_BYTE*>(picture.bytes.data()),
                                          static_cast<HPDF_UINT>(picture.bytes.size())));
    if (!image) throw invalid_call(u"la imagen JPEG está dañada");
    return image;
}

HPDF_Image PdfPictures::image_of(const Pixels& pixels)
{
    const HPDF_Image image = is_grey(pixels.rgba)
                                 ? samples(pixels, channels(pixels.rgba, 0, 1), HPDF_CS_DEVICE_GRAY)
                                 : samples(pixels, channels(pixels.rgba, 0, 3), HPDF_CS_DEVICE_RGB);
    if (is_opaque(pixels.rgba)) return image;
    HPDF_Image_AddSMask(image, samples(pixels, channels(pixels.rgba, 3, 1), HPDF_CS_DEVICE_GRAY));
    return checked(document_, image);
}

HPDF_Image PdfPictures::samples(const Pixels& pixels, const std::string& bytes, HPDF_ColorSpace colors)
{
    const HPDF_Image image = checked(
        document_, HPDF_LoadRawImageFromMem(document_, reinterpret_cast<const HPDF_BYTE*>(bytes.data()),
                                            static_cast<HPDF_UINT>(pixels.width),
                                            static_cast<HPDF_UINT>(pixels.height), colors, 8));
    compress_now(document_, image);
    return image;
}

} // namespace tolvex::pages
