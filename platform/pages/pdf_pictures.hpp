// The pictures of one PDF document: each is in it once, however often it is drawn.
#pragma once

#include "platform/pages/libharu.hpp"
#include "platform/pages/picture.hpp"

#include <map>

namespace tolvex::pages {

class PdfPictures
{
public:
    explicit PdfPictures(HPDF_Doc document) : document_(document) {}

    // Throws Error 5 when it is damaged.
    HPDF_Image image(const std::shared_ptr<const Picture>& picture);

private:
    struct Held
    {
        std::shared_ptr<const Picture> picture; // its bytes are the key
        HPDF_Image image;
    };

    HPDF_Image new_image(const Picture& picture);
    HPDF_Image image_of(const Pixels& pixels);
    HPDF_Image samples(const Pixels& pixels, const std::string& bytes, HPDF_ColorSpace colors);

    const HPDF_Doc document_;
    std::map<std::string_view, Held> images_;
};

} // namespace tolvex::pages
