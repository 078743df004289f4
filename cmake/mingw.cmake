# What both bitnesses of the Windows edition share. setup/windows.sh installs and builds what is named here.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${TOLVEX_WINDOWS_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TOLVEX_WINDOWS_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${TOLVEX_WINDOWS_TRIPLET}-windres)
set(CMAKE_RC_FLAGS_INIT "-c 65001")

# Headers and libraries come from the compiler's own folders and from what the set-up built, programs from the host.
get_filename_component(TOLVEX_WINDOWS_BUILD ${CMAKE_CURRENT_LIST_DIR}/../build/windows ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH /usr/${TOLVEX_WINDOWS_TRIPLET} ${TOLVEX_WINDOWS_BUILD}/${TOLVEX_WINDOWS_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Windows 7 is the oldest Windows that a point of sale runs; UNICODE because all text is UTF-16.
add_compile_definitions(_WIN32_WINNT=0x0601 WINVER=0x0601 UNICODE _UNICODE)

# Everything of the compiler is linked in: a DLL must import system libraries only. The moment of a build would make its
# bytes differ from those of another.
foreach(kind EXE SHARED MODULE)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
endforeach()
