# Builds the outside project against the package that find_package finds under PREFIX.
cmake_minimum_required(VERSION 3.25)

include(${CMAKE_CURRENT_LIST_DIR}/Use.cmake)

set(build ${FOLDER}/by-cmake)
file(REMOVE_RECURSE ${build})
build_consumer(${build} -D WAY=find_package -D CMAKE_PREFIX_PATH=${PREFIX} -D CMAKE_FIND_USE_PACKAGE_REGISTRY=OFF
    -D WANTED_VERSION=${VERSION})
run_consumer(${build}/consumer)
if(IMPORT)
    run_importer(${build}/importer)
endif()
