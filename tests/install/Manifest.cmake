# What lies under PREFIX is what the tree says: every header that a host reaches from the umbrella or one beside it, the
# library of this kind, the package files and one program for each folder of hosts/, with its man page and its completion
# for bash. No more and no less.
cmake_minimum_required(VERSION 3.25)

set(headers ipc2581/ipc2581.h ipc2581/version.h ipc2581/fields.h)
set(next 0)
list(LENGTH headers count)
while(next LESS count)
    list(GET headers ${next} header)
    file(STRINGS ${SOURCE}/${header} includes REGEX "^#include [\"<]ipc2581/")
    list(TRANSFORM includes REPLACE "^#include [\"<]([^\">]+).*" "\\1")
    list(APPEND headers ${includes})
    list(REMOVE_DUPLICATES headers)
    list(LENGTH headers count)
    math(EXPR next "${next} + 1")
endwhile()
list(TRANSFORM headers PREPEND include/ OUTPUT_VARIABLE expected)

if(KIND STREQUAL "shared")
    string(REGEX MATCH "^[0-9]+" major ${VERSION})
    list(APPEND expected
        ${LIBDIR}/libipc2581.so ${LIBDIR}/libipc2581.so.${major} ${LIBDIR}/libipc2581.so.${VERSION})
else()
    list(APPEND expected ${LIBDIR}/libipc2581.a)
endif()

string(TOLOWER "${CONFIG}" config)
if(NOT config)
    set(config noconfig)
endif()
foreach(file IN ITEMS Config.cmake ConfigVersion.cmake Targets.cmake Targets-${config}.cmake)
    list(APPEND expected ${LIBDIR}/cmake/ipc2581/ipc2581${file})
endforeach()
list(APPEND expected ${LIBDIR}/pkgconfig/ipc2581.pc)

string(REPLACE "," ";" programs "${PROGRAMS}")
foreach(program IN LISTS programs)
    list(APPEND expected
        bin/${program} share/man/man1/${program}.1 share/bash-completion/completions/${program})
endforeach()

file(GLOB_RECURSE installed LIST_DIRECTORIES false RELATIVE ${PREFIX} ${PREFIX}/*)
set(missing ${expected})
list(REMOVE_ITEM missing ${installed})
set(unexpected ${installed})
list(REMOVE_ITEM unexpected ${expected})
if(missing OR unexpected)
    list(JOIN missing "\n    " missing)
    list(JOIN unexpected "\n    " unexpected)
    message(FATAL_ERROR "Not installed:\n    ${missing}\nInstalled without need:\n    ${unexpected}")
endif()
