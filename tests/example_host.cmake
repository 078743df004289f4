# Installs the native edition into a folder of its own, builds the example host against it as a user would, and runs
# it on a fresh demonstration.
#   cmake -DBUILD=… -DSOURCE=… -DWORK=… -DSANITIZE=ON|OFF -P example_host.cmake
function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE exit_code OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT exit_code EQUAL 0)
        message(FATAL_ERROR "${ARGV}: ${exit_code}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
set(flags "")
if(SANITIZE)
    set(flags "-DCMAKE_CXX_FLAGS=-fsanitize=address,undefined")
endif()
run(${CMAKE_COMMAND} -G Ninja -S ${SOURCE} -B ${WORK}/build -DCMAKE_PREFIX_PATH=${WORK}/prefix ${flags})
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${WORK}/prefix/bin/tolvex demo --carpeta ${WORK}/demo)
run(${WORK}/build/ejemplo_nativo ${WORK}/demo)
if(NOT output MATCHES "Factura 4 emitida\nSigue el folio 5" OR NOT EXISTS ${WORK}/demo/Facturas/A4.xml)
    message(FATAL_ERROR "The example host did not issue its invoice:\n${output}")
endif()
