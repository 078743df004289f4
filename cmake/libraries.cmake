# The libraries that the portable core stands on, for the system that is built for.
if(WIN32)
    # Built by setup/windows.sh for this architecture.
    set(libraries ${TOLVEX_WINDOWS_BUILD}/${TOLVEX_WINDOWS_TRIPLET})
    add_library(tolvex_sqlite STATIC IMPORTED)
    set_target_properties(tolvex_sqlite PROPERTIES
        IMPORTED_LOCATION ${libraries}/lib/libsqlite3.a INTERFACE_INCLUDE_DIRECTORIES ${libraries}/include)
    set(TOLVEX_LIBRARIES tolvex_sqlite odbc32 ole32 oleaut32 uuid shell32 comdlg32 comctl32 gdi32 user32
        advapi32)
else()
    find_package(PkgConfig REQUIRED)
    find_package(SQLite3 REQUIRED)
    find_package(LibXml2 REQUIRED)
    find_package(EXPAT REQUIRED)
    pkg_check_modules(ODBC REQUIRED IMPORTED_TARGET odbc)
    set(TOLVEX_LIBRARIES SQLite::SQLite3 LibXml2::LibXml2 EXPAT::EXPAT PkgConfig::ODBC)
endif()
