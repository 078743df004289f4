# The scripts become texts of the library: every script of a folder a constant, named after its file, in the
# namespace and as declared by the header of the room that runs them.
function(add_scripts folder namespace header)
    file(GLOB scripts CONFIGURE_DEPENDS ${folder}/*.sql)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${scripts})
    set(source "#include \"${header}\"\n\nnamespace ${namespace} {\n")
    foreach(script ${scripts})
        get_filename_component(name ${script} NAME_WE)
        file(READ ${script} text)
        string(APPEND source "\nconst char* const ${name} = R\"sql(${text})sql\";\n")
    endforeach()
    string(APPEND source "\n} // namespace ${namespace}\n")
    file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/${folder}.cpp CONTENT "${source}")
    set(script_sources ${script_sources} ${PROJECT_BINARY_DIR}/${folder}.cpp PARENT_SCOPE)
endfunction()

add_scripts(schema tolvex::schema schema/scripts.hpp)
add_scripts(schema/sql_server tolvex::schema schema/scripts.hpp)
add_scripts(schema/sqlite tolvex::embedded database/embedded/schema.hpp)
