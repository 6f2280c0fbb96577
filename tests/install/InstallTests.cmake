# Both kinds of the library are installed and used from outside: the kind of this build from this build, with the
# programs, the other one as an outside project builds it of the sources, without them.
set(install_scripts ${CMAKE_CURRENT_LIST_DIR})

file(GLOB programs RELATIVE ${PROJECT_SOURCE_DIR}/hosts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/hosts/*/CMakeLists.txt)
list(TRANSFORM programs REPLACE "/CMakeLists.txt$" "")
if(NOT IPC2581_BUILD_HOSTS)
    set(programs)
endif()
list(JOIN programs "," programs)

if(BUILD_SHARED_LIBS)
    set(own_kind shared)
else()
    set(own_kind static)
endif()

foreach(kind IN ITEMS static shared)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/install/${kind})
    set(arguments
        -D SOURCE=${PROJECT_SOURCE_DIR}
        -D KIND=${kind}
        -D FOLDER=${folder}
        -D PREFIX=${folder}/prefix
        -D IMPORT=${IPC2581_BUILD_IMPORT}
        -D LIBDIR=${CMAKE_INSTALL_LIBDIR}
        -D VERSION=${PROJECT_VERSION}
        -D CONFIG=$<CONFIG>
        -D GENERATOR=${CMAKE_GENERATOR}
        -D COMPILER=${CMAKE_CXX_COMPILER}
        -D LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER})
    if(kind STREQUAL own_kind)
        list(APPEND arguments -D BUILT=${PROJECT_BINARY_DIR} -D PROGRAMS=${programs})
        if(TARGET ipc2581_python)
            list(APPEND arguments
                -D PYTHON_FOLDER=${IPC2581_PYTHON_FOLDER} -D PYTHON_MODULE=$<TARGET_FILE_NAME:ipc2581_python>)
            add_test(NAME install.${kind}.python
                COMMAND ${CMAKE_COMMAND} -E env PYTHONPATH=${folder}/prefix/${IPC2581_PYTHON_FOLDER}
                    PYTHONDONTWRITEBYTECODE=1 ${IPC2581_MODULE_PYTHON} -c
                    "import ipc2581; print(ipc2581.read('${PROJECT_SOURCE_DIR}/examples/board.cvg').net('GND').pins)")
            set_tests_properties(install.${kind}.python PROPERTIES
                FIXTURES_REQUIRED install.${kind} PASS_REGULAR_EXPRESSION "<list of 6 LogicalNetPin>")
        endif()
    endif()

    add_test(NAME install.${kind}.package COMMAND ${CMAKE_COMMAND} ${arguments} -P ${install_scripts}/Package.cmake)
    set_tests_properties(install.${kind}.package PROPERTIES FIXTURES_SETUP install.${kind} PROCESSORS 2)
    set(steps Manifest CMake PkgConfig)
    if(NOT kind STREQUAL own_kind)
        list(APPEND steps Subdirectory)
    endif()
    if(kind STREQUAL "shared" AND CMAKE_SYSTEM_NAME STREQUAL Linux)
        list(APPEND steps Symbols)
    endif()
    foreach(step IN LISTS steps)
        string(TOLOWER ${step} name)
        add_test(NAME install.${kind}.${name} COMMAND ${CMAKE_COMMAND} ${arguments} -P ${install_scripts}/${step}.cmake)
        set_tests_properties(install.${kind}.${name} PROPERTIES FIXTURES_REQUIRED install.${kind})
    endforeach()
endforeach()
