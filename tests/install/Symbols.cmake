# A shared library shows what is marked for hosts, and nothing of the standard library.
cmake_minimum_required(VERSION 3.25)

find_program(nm nm REQUIRED)
set(libraries ipc2581)
if(IMPORT)
    list(APPEND libraries ipc2581_import)
endif()
foreach(library IN LISTS libraries)
    execute_process(
        COMMAND ${nm} --dynamic --defined-only --demangle --format=posix ${PREFIX}/${LIBDIR}/lib${library}.so
        OUTPUT_VARIABLE names COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCHALL "[^\n]+" names "${names}")
    set(strangers ${names})
    list(FILTER strangers EXCLUDE REGEX
        "^(vtable for |typeinfo for |typeinfo name for |guard variable for |(non-)?virtual thunk to )?(C[A-Z]|Afx|SendMessage|SerializeElement|operator|ipc2581::)")
    list(LENGTH names count)
    if(strangers OR count LESS 10)
        list(JOIN strangers "\n    " strangers)
        message(FATAL_ERROR "lib${library}.so shows ${count} names, among them these:\n    ${strangers}")
    endif()
endforeach()
