# Builds the outside project with the folder of sources: first as FetchContent has it, whose build is installed too, then as
# add_subdirectory has it, for which nothing of the library is built again.
cmake_minimum_required(VERSION 3.25)

include(${CMAKE_CURRENT_LIST_DIR}/Use.cmake)

set(build ${FOLDER}/by-sources)
run_consumer(${build}/consumer)
if(IMPORT)
    run_importer(${build}/importer)
endif()

file(GLOB library ${build}/_deps/ipc2581-build/ipc2581/libipc2581.*)
list(GET library 0 library)
file(TIMESTAMP ${library} before)
file(REMOVE ${build}/consumer ${build}/importer)
build_consumer(${build} -D WAY=add_subdirectory -D SOURCE=${SOURCE} -U IPC2581_INSTALL)
file(TIMESTAMP ${library} after)
if(NOT before STREQUAL after)
    message(FATAL_ERROR "add_subdirectory has built ${library} in another way")
endif()
run_consumer(${build}/consumer)
if(IMPORT)
    run_importer(${build}/importer)
endif()

# A project that takes the library in installs its own files alone.
set(elsewhere ${FOLDER}/elsewhere)
file(REMOVE_RECURSE ${elsewhere})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${elsewhere} COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE installed ${elsewhere}/*)
if(installed)
    message(FATAL_ERROR "Installed by a project that only uses the library: ${installed}")
endif()
