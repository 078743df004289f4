#include "platform/windows/pages/gdi_pictures.hpp"
#include "platform/windows/pages/resampling.hpp"

namespace tolvex {

GdiPicture::GdiPicture(const pages::Picture& picture, SIZE size) : canvas_(size)
{
    const pages::Pixels drawn = resampled(pages::pixels(picture), size.cx, size.cy);
    unsigned char* next = canvas_.bytes();
    for (std::size_t i = 0; i < drawn.rgba.size(); i += 4, next += 4) {
        const auto byte = [&](std::size_t offset) {
            return static_cast<unsigned char>(drawn.rgba[i + offset]);
        };
        const unsigned opacity = byte(3);
        const auto weighed = [&](unsigned color) {
            return static_cast<unsigned char>((color * opacity + 127) / 255);
        };
        next[0] = weighed(byte(2));
        next[1] = weighed(byte(1));
        next[2] = weighed(byte(0));
        next[3] = static_cast<unsigned char>(opacity);
        opaque_ = opaque_ && opacity == 255;
    }
}

const GdiPicture& GdiPictures::picture(const std::shared_ptr<const pages::Picture>& picture, SIZE drawn)
{
    constexpr long long most_smooth = 8'000'000, most_held = 40'000'000; // pixels
    const bool smooth = static_cast<long long>(drawn.cx) * drawn.cy <= most_smooth;
    const SIZE size =
        smooth ? drawn
               : SIZE{std::min<LONG>(drawn.cx, picture->width), std::min<LONG>(drawn.cy, picture->height)};
    const auto key = std::tuple(picture.get(), size.cx, size.cy);
    if (const auto found = pictures_.find(key); found != pictures_.end()) return *found->second.drawn;
    auto made = std::make_unique<GdiPicture>(*picture, size);
    pixels_ += static_cast<long long>(size.cx) * size.cy;
    if (pixels_ > most_held) {
        pictures_.clear();
        pixels_ = static_cast<long long>(size.cx) * size.cy;
    }
    return *(pictures_[key] = Held{picture, std::move(made)}).drawn;
}

} // namespace tolvex
