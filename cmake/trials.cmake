# Long trials, built when they are asked for (make soak, make faults); a short soak is among the tests of the Windows
# edition.
if(WIN32)
    file(GLOB shop_sources CONFIGURE_DEPENDS trials/windows/*.cpp)
else()
    file(GLOB shop_sources CONFIGURE_DEPENDS trials/native/*.cpp)
endif()
add_executable(soak trials/soak.cpp ${shop_sources})

if(WIN32)
    # A host of the component: it has none of the rooms.
    target_include_directories(soak PRIVATE ${PROJECT_SOURCE_DIR} $<TARGET_FILE_DIR:TOLVEX>)
    target_include_directories(soak SYSTEM PRIVATE ${headers})
    target_compile_definitions(soak PRIVATE FMT_HEADER_ONLY)
    target_link_libraries(soak PRIVATE ole32 oleaut32 uuid psapi)
    target_link_options(soak PRIVATE -s)
    add_dependencies(soak TOLVEX)
else()
    set_target_properties(soak PROPERTIES EXCLUDE_FROM_ALL TRUE)
    target_link_libraries(soak PRIVATE tolvex_rooms fmt::fmt)
    # What stands before the system's calls must not be checked twice.
    add_library(faulty_system MODULE EXCLUDE_FROM_ALL trials/faulty_system.cpp)
    target_compile_options(faulty_system PRIVATE -U_FORTIFY_SOURCE)
    set_target_properties(faulty_system PROPERTIES PREFIX "" CXX_VISIBILITY_PRESET default)
    target_link_libraries(faulty_system PRIVATE ${CMAKE_DL_LIBS})
    add_library(file_server MODULE EXCLUDE_FROM_ALL trials/file_server.cpp)
    set_target_properties(file_server PROPERTIES PREFIX "")
    target_link_libraries(file_server PRIVATE tolvex_rooms)
endif()
