# Cross-builds the Windows edition, 32 bits.
set(TOLVEX_WINDOWS_TRIPLET i686-w64-mingw32)
set(CMAKE_SYSTEM_PROCESSOR x86)
# The arithmetic of the 64-bit edition, whatever precision a host has set the old floating-point unit to; entry points
# then realign the stack, which hosts keep to four bytes.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
