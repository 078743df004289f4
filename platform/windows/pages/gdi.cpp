#include "platform/windows/pages/gdi.hpp"

#include <new>

namespace tolvex {

namespace {

HBITMAP new_bitmap(SIZE size, unsigned char*& bytes)
{
    const BITMAPINFO format = bitmap_format(size);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap) throw std::bad_alloc();
    bytes = static_cast<unsigned char*>(bits);
    return bitmap;
}

} // namespace

BITMAPINFO bitmap_format(SIZE size)
{
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = size.cx;
    format.bmiHeader.biHeight = -size.cy;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    return format;
}

Canvas32::Canvas32(SIZE size)
    : size_(size), device_(CreateCompatibleDC(nullptr)), bitmap_(new_bitmap(size, bytes_)),
      selected_(device_.get(), bitmap_.get())
{}

} // namespace tolvex
