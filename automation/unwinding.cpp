// On 32 bits the unwinder finds the frames of a module in a list that the module's start-up code adds to, and
// where the host brings MinGW's shared run-time library that code adds to the host's list. The unwinder
// linked into the component would then find none of its frames, and the first error would end the host. So
// the component adds its frames to its own list as well.
#ifdef __i386__

#include "automation/component.hpp"
#include "platform/windows/windows.hpp"

#include <cstring>

extern "C" void __register_frame_info(const void* frames, void* list_entry);

namespace tolvex::automation {

namespace {

// Sections of images have names of eight characters; this one's is cut off.
constexpr char frames_section[IMAGE_SIZEOF_SHORT_NAME + 1] = ".eh_fram";

const void* frames_of(HMODULE module)
{
    auto* const start = reinterpret_cast<const char*>(module);
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(start);
    const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(start + dos->e_lfanew);
    const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(headers);
    for (int i = 0; i < headers->FileHeader.NumberOfSections; ++i, ++section)
        if (std::memcmp(section->Name, frames_section, IMAGE_SIZEOF_SHORT_NAME) == 0)
            return start + section->VirtualAddress;
    return nullptr;
}

// Before anything can be thrown.
[[gnu::constructor]] void add_own_frames()
{
    if (!GetModuleHandleW(L"libgcc_s_dw2-1.dll")) return;
    alignas(void*) static char list_entry[16 * sizeof(void*)]; // the unwinder's own, longer than it needs
    if (const void* frames = frames_of(this_module())) __register_frame_info(frames, list_entry);
}

} // namespace

} // namespace tolvex::automation

#endif
