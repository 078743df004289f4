# What Windows shows as the properties of a DLL (VFT_DLL) or program (VFT_APP), and other resources and values of its own.
string(REPLACE "." "," version_numbers ${PROJECT_VERSION}.0)
function(add_file_properties target file_name file_type description other_resources other_values)
    get_filename_component(internal_name ${file_name} NAME_WE)
    set(resources ${CMAKE_CURRENT_BINARY_DIR}/${internal_name}.rc)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/file_properties.rc.in ${resources} @ONLY)
    target_sources(${target} PRIVATE ${resources})
endfunction()

add_file_properties(tolvex_command tolvex.exe VFT_APP "TOLVEX: facturas electrónicas CFDI 3.0, línea de órdenes" "" "")

# TolvexConsola.exe, the developer console. It is a host of the component: of the rooms only what draws its form is
# linked in.
file(GLOB developer_console_sources CONFIGURE_DEPENDS developer_console/*.cpp developer_console/windows/*.cpp)
add_executable(tolvex_console WIN32 ${developer_console_sources})
set_target_properties(tolvex_console PROPERTIES OUTPUT_NAME TolvexConsola RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
target_link_libraries(tolvex_console PRIVATE tolvex_archive)
target_link_options(tolvex_console PRIVATE -municode -s)
add_file_properties(tolvex_console TolvexConsola.exe VFT_APP "TOLVEX: consola para integradores"
    "1 24 \"${PROJECT_SOURCE_DIR}/developer_console/windows/TolvexConsola.manifest\"" "")
