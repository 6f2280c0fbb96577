# Builds the outside project against the package that find_package finds under PREFIX.
cmake_minimum_required(VERSION 3.25)

include(${CMAKE_CURRENT_LIST_DIR}/Use.cmake)

set(build ${FOLDER}/by-cmake)
file(REMOVE_RECURSE ${build})
execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/consumer -B ${build} -G ${GENERATOR}
        -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -D CMAKE_BUILD_TYPE=${CONFIG}
        -D CMAKE_PREFIX_PATH=${PREFIX} -D CMAKE_FIND_USE_PACKAGE_REGISTRY=OFF -D WANTED_VERSION=${VERSION} -D IMPORT=${IMPORT}
    COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${build} COMMAND_ERROR_IS_FATAL ANY)
run_consumer(${build}/consumer)
if(IMPORT)
    run_importer(${build}/importer)
endif()
