include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/ipc2581)
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS ipc2581 EXPORT ipc2581Targets FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT ipc2581Targets NAMESPACE ipc2581:: DESTINATION ${package_folder})
# A component of the package, so that who wants the core alone needs no XML parser.
if(TARGET ipc2581_import)
    install(TARGETS ipc2581_import EXPORT ipc2581ImportTargets FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
    install(EXPORT ipc2581ImportTargets NAMESPACE ipc2581:: DESTINATION ${package_folder})
endif()

configure_package_config_file(
    ${CMAKE_CURRENT_LIST_DIR}/ipc2581Config.cmake.in ${PROJECT_BINARY_DIR}/ipc2581Config.cmake
    INSTALL_DESTINATION ${package_folder}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ipc2581ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ipc2581Config.cmake ${PROJECT_BINARY_DIR}/ipc2581ConfigVersion.cmake
    DESTINATION ${package_folder})

# The file finds its folders from where it lies, so that "cmake --install --prefix" and a moved tree keep working.
file(RELATIVE_PATH PKGCONFIG_TO_PREFIX
    ${CMAKE_INSTALL_PREFIX}/${pkgconfig_folder} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" PKGCONFIG_TO_PREFIX "${PKGCONFIG_TO_PREFIX}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/ipc2581.pc.in ${PROJECT_BINARY_DIR}/ipc2581.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/ipc2581.pc DESTINATION ${pkgconfig_folder})
if(TARGET ipc2581_import)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/ipc2581-import.pc.in ${PROJECT_BINARY_DIR}/ipc2581-import.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/ipc2581-import.pc DESTINATION ${pkgconfig_folder})
endif()

# Views for gdb, which finds them by itself where they lie under the name of the library that it has loaded.
set(views ${PROJECT_SOURCE_DIR}/tools/gdb/ipc2581.py)
install(FILES ${views} DESTINATION ${CMAKE_INSTALL_DATADIR}/ipc2581/gdb)
if(BUILD_SHARED_LIBS)
    # The name is that of the place to which it is installed in the end, which is known then.
    set(auto_load "\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/gdb/auto-load")
    install(CODE "file(INSTALL DESTINATION \"${auto_load}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}\" TYPE FILE
        RENAME libipc2581.so.${PROJECT_VERSION}-gdb.py FILES \"${views}\")")
endif()

if(TARGET ipc2581_host)
    install(TARGETS ipc2581_host)
    install(FILES ${PROJECT_SOURCE_DIR}/hosts/ipc2581/share/ipc2581.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES ${PROJECT_SOURCE_DIR}/hosts/ipc2581/share/lines.schema.json
        ${PROJECT_SOURCE_DIR}/hosts/ipc2581/share/listings.schema.json
        DESTINATION ${CMAKE_INSTALL_DATADIR}/ipc2581)
    install(FILES ${PROJECT_SOURCE_DIR}/hosts/ipc2581/share/completion.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME ipc2581)
endif()
