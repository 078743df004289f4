// The pictures of pages as devices take them, decoded when they are first drawn.
#pragma once

#include "platform/pages/picture.hpp"
#include "platform/windows/pages/gdi.hpp"

#include <map>
#include <tuple>

namespace tolvex {

class GdiPicture
{
public:
    // With as many pixels as the size says. Throws Error 5 when the picture is damaged.
    GdiPicture(const pages::Picture& picture, SIZE size);

    const Canvas32& canvas() const { return canvas_; }
    bool is_opaque() const { return opaque_; }

private:
    Canvas32 canvas_; // colours are weighed by their opacity
    bool opaque_ = true;
};

class GdiPictures
{
public:
    // For drawing in that many pixels; one that is drawn much larger has fewer. The reference holds until
    // another is asked for. Throws Error 5 when the picture is damaged.
    const GdiPicture& picture(const std::shared_ptr<const pages::Picture>& picture, SIZE drawn);

private:
    struct Held
    {
        std::shared_ptr<const pages::Picture> picture; // its address is part of the key
        std::unique_ptr<GdiPicture> drawn;
    };

    std::map<std::tuple<const void*, LONG, LONG>, Held> pictures_;
    long long pixels_ = 0;
};

} // namespace tolvex
