// What painting with the system's drawing interface holds, each freed by itself.
#pragma once

#include "platform/windows/windows.hpp"

#include <memory>
#include <type_traits>

namespace tolvex {

struct DeleteGdiObject
{
    void operator()(void* object) const { DeleteObject(object); }
};
template <class Handle>
using GdiObject = std::unique_ptr<std::remove_pointer_t<Handle>, DeleteGdiObject>;

struct DeleteDeviceContext
{
    void operator()(HDC device) const { DeleteDC(device); }
};
using DeviceContext = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteDeviceContext>;

// An object in use by a device for as long as this lives.
class Selected
{
public:
    Selected(HDC device, HGDIOBJ object) : device_(device), before_(SelectObject(device, object)) {}
    ~Selected() { SelectObject(device_, before_); }
    Selected(const Selected&) = delete;

private:
    const HDC device_;
    const HGDIOBJ before_;
};

// What a device is set to, restored at the end.
class SavedState
{
public:
    explicit SavedState(HDC device) : device_(device), number_(SaveDC(device)) {}
    ~SavedState() { RestoreDC(device_, number_); }
    SavedState(const SavedState&) = delete;

private:
    const HDC device_;
    const int number_;
};

// A picture in memory that can be drawn on: rows from the top, blue, green, red and opacity a byte each.
class Canvas32
{
public:
    // Throws std::bad_alloc.
    explicit Canvas32(SIZE size);

    HDC device() const { return device_.get(); }
    SIZE size() const { return size_; }
    unsigned char* bytes() const { return bytes_; }

private:
    const SIZE size_;
    const DeviceContext device_;
    unsigned char* bytes_ = nullptr;
    const GdiObject<HBITMAP> bitmap_;
    const Selected selected_;
};

// The head of a 32-bit bitmap, rows from the top.
BITMAPINFO bitmap_format(SIZE size);

} // namespace tolvex
