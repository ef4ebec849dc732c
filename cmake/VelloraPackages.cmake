# Debian packages: the library, what developers need, and the programs. `cpack` in the build folder
# makes them.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vellora)
set(CPACK_PACKAGE_VENDOR "The Vellora developers")
set(CPACK_PACKAGE_CONTACT "The Vellora developers <vellora@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://vellora.example.org")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_COMPONENTS_ALL library development programs)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(VELLORA_DEB_LIBRARY "libvellora${PROJECT_VERSION_MAJOR}")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME "${VELLORA_DEB_LIBRARY}")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/triggers")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS
    "qt6-image-formats-plugins, fonts-liberation")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION
    "Photo-editing module for slideshow authoring - library\n Keeps non-destructive edits of photos, shows an edit dialog and renders\n finished pictures. With its text styles, clips and language files.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvellora-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${VELLORA_DEB_LIBRARY} (= ${PROJECT_VERSION}), qt6-base-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "Photo-editing module for slideshow authoring - development files\n Headers, CMake package and pkg-config file for programs that load the\n module.")

set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME vellora)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_DEPENDS "${VELLORA_DEB_LIBRARY} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION
    "Slideshows of photos with words\n The command line renders photos and slideshows without a display; the\n desktop program edits, plays and exports them.")

foreach(package IN ITEMS library:${VELLORA_DEB_LIBRARY} development:libvellora-dev programs:vellora)
    string(REPLACE ":" ";" package "${package}")
    list(GET package 0 component)
    list(GET package 1 name)
    set(folder "${CMAKE_INSTALL_DATADIR}/doc/${name}")
    vellora_install_compressed("${PROJECT_SOURCE_DIR}/packaging/changelog" changelog
        "${folder}" ${component})
    install(FILES "${PROJECT_SOURCE_DIR}/packaging/copyright"
        DESTINATION "${folder}" COMPONENT ${component})
endforeach()

include(CPack)
