# The libraries that the portable core stands on, for the system that is built for.
if(WIN32)
    # Built by setup/windows.sh for this architecture.
    set(TOLVEX_WINDOWS_LIBRARIES "" CACHE PATH "Folder with the cross-built libraries of this architecture")
    add_library(tolvex_sqlite STATIC IMPORTED)
    set_target_properties(tolvex_sqlite PROPERTIES
        IMPORTED_LOCATION ${TOLVEX_WINDOWS_LIBRARIES}/lib/libsqlite3.a
        INTERFACE_INCLUDE_DIRECTORIES ${TOLVEX_WINDOWS_LIBRARIES}/include)
    set(TOLVEX_LIBRARIES tolvex_sqlite odbc32 ole32 oleaut32 uuid)
else()
    find_package(PkgConfig REQUIRED)
    find_package(SQLite3 REQUIRED)
    find_package(LibXml2 REQUIRED)
    pkg_check_modules(ODBC REQUIRED IMPORTED_TARGET odbc odbcinst)
    set(TOLVEX_LIBRARIES SQLite::SQLite3 LibXml2::LibXml2 PkgConfig::ODBC)
endif()
