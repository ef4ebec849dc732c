# Installation: the library, its public headers, the CMake package and the pkg-config file.

include(CMakePackageConfigHelpers)

install(TARGETS vellora EXPORT VelloraTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        COMPONENT library NAMELINK_COMPONENT development
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT library)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/vellora" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    COMPONENT development FILES_MATCHING PATTERN "*.h")
# Text styles, textures, clips and language files, for every host that wants them.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/assets/" DESTINATION "${CMAKE_INSTALL_DATADIR}/vellora"
    COMPONENT library)
install(EXPORT VelloraTargets NAMESPACE Vellora::
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Vellora" COMPONENT development)

configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/VelloraConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/VelloraConfig.cmake"
    INSTALL_DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Vellora")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VelloraConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/VelloraConfig.cmake"
    "${PROJECT_BINARY_DIR}/VelloraConfigVersion.cmake"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Vellora" COMPONENT development)

# Relative, so that the installed files may be moved and staged.
file(RELATIVE_PATH VELLORA_PC_TO_PREFIX
    "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" VELLORA_PC_TO_PREFIX "${VELLORA_PC_TO_PREFIX}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/vellora.pc.in" "${PROJECT_BINARY_DIR}/vellora.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/vellora.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT development)
