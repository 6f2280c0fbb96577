# Installs the library under PREFIX, with the PROGRAMS: out of the build BUILT, or out of a build made for it here.
cmake_minimum_required(VERSION 3.25)

if(NOT DEFINED BUILT)
    set(BUILT ${FOLDER}/build)
    set(shared OFF)
    if(KIND STREQUAL "shared")
        set(shared ON)
    endif()
    execute_process(
        COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${BUILT} -G ${GENERATOR}
            -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}
            -D CMAKE_BUILD_TYPE=${CONFIG} -D CMAKE_INSTALL_LIBDIR=${LIBDIR}
            -D BUILD_SHARED_LIBS=${shared} -D IPC2581_BUILD_IMPORT=${IMPORT}
        COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILT} --parallel 2 COMMAND_ERROR_IS_FATAL ANY)
endif()
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILT} --prefix ${PREFIX} COMMAND_ERROR_IS_FATAL ANY)

string(REPLACE "," ";" programs "${PROGRAMS}")
foreach(program IN LISTS programs)
    execute_process(COMMAND ${PREFIX}/bin/${program} --version OUTPUT_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
    if(NOT said MATCHES "${VERSION}")
        message(FATAL_ERROR "${program} tells version ${said}, not ${VERSION}")
    endif()
endforeach()
