# Builds the outside project's program with the flags that pkg-config gives for the package under PREFIX.
cmake_minimum_required(VERSION 3.25)

include(${CMAKE_CURRENT_LIST_DIR}/Use.cmake)

find_program(pkg_config pkg-config REQUIRED)
set(ENV{PKG_CONFIG_PATH} ${PREFIX}/${LIBDIR}/pkgconfig)
execute_process(
    COMMAND ${pkg_config} --print-errors --cflags --libs "ipc2581 = ${VERSION}"
    OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
set(program ${FOLDER}/by-pkg-config)
execute_process(
    COMMAND ${LAUNCHER} ${COMPILER} -std=c++20 ${CMAKE_CURRENT_LIST_DIR}/consumer/main.cpp -o ${program} ${flags}
    COMMAND_ERROR_IS_FATAL ANY)
set(ENV{LD_LIBRARY_PATH} ${PREFIX}/${LIBDIR})
run_consumer(${program})

if(IMPORT)
    set(static)
    if(KIND STREQUAL "static")
        set(static --static)
    endif()
    execute_process(
        COMMAND ${pkg_config} --print-errors ${static} --cflags --libs "ipc2581-import = ${VERSION}"
        OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    set(program ${FOLDER}/importer-by-pkg-config)
    execute_process(
        COMMAND ${LAUNCHER} ${COMPILER} -std=c++20 ${CMAKE_CURRENT_LIST_DIR}/consumer/importer.cpp -o ${program} ${flags}
        COMMAND_ERROR_IS_FATAL ANY)
    run_importer(${program})
endif()
