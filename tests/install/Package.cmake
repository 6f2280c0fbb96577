# Installs the library under PREFIX, with the PROGRAMS: out of the build BUILT, or out of one that the outside project makes
# here of the sources, by FetchContent.
cmake_minimum_required(VERSION 3.25)

include(${CMAKE_CURRENT_LIST_DIR}/Use.cmake)

if(NOT DEFINED BUILT)
    set(BUILT ${FOLDER}/by-sources)
    set(shared OFF)
    if(KIND STREQUAL "shared")
        set(shared ON)
    endif()
    build_consumer(${BUILT} -D WAY=FetchContent -D SOURCE=${SOURCE} -D IPC2581_INSTALL=ON
        -D CMAKE_INSTALL_LIBDIR=${LIBDIR} -D BUILD_SHARED_LIBS=${shared} -D IPC2581_BUILD_IMPORT=${IMPORT})
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
