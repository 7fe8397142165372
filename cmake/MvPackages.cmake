# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Debian packages, one for each install component, made by cpack in the build folder; see script/package.
# Include it last: it packs the components that exist by then. Only shared libraries for Linux are packed.

get_target_property(type mvhost TYPE)
if(NOT type STREQUAL "SHARED_LIBRARY" OR NOT CMAKE_SYSTEM_NAME STREQUAL "Linux")
    return()
endif()

set(MV_PACKAGE_MAINTAINER "The mvresource contributors <mvresource@example.org>"
    CACHE STRING "Maintainer of the Debian packages")

# mv_package(COMPONENT NAME TEXT LONG_TEXT [NEEDS COMPONENTS...] [DEPENDS PACKAGES] [RECOMMENDS PACKAGES]
#            [SUGGESTS PACKAGES] [CONFLICTS PACKAGES] [SECTION SECTION] [DATA])
# Describes the package of a component. What its programs and libraries link, it depends on anyway. DATA:
# it has neither, and suits every machine. cpack asks for the type of every single file of the others.
macro(mv_package component name text long_text)
    cmake_parse_arguments(ARG "DATA" "DEPENDS;RECOMMENDS;SUGGESTS;CONFLICTS;SECTION" "NEEDS" ${ARGN})
    string(TOUPPER ${component} upper)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    set(CPACK_COMPONENT_${upper}_DEPENDS ${ARG_NEEDS})
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${text}\n${long_text}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${ARG_DEPENDS}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_RECOMMENDS "${ARG_RECOMMENDS}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_SUGGESTS "${ARG_SUGGESTS}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_CONFLICTS "${ARG_CONFLICTS}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${ARG_SECTION})
    if(ARG_DATA)
        set(CPACK_DEBIAN_${upper}_PACKAGE_ARCHITECTURE all)
        set(CPACK_DEBIAN_${upper}_PACKAGE_SHLIBDEPS OFF)
    endif()
endmacro()

# The libraries for Qt 5 and Qt 6 can be installed beside each other; what hosts find them by, cannot.
if(MV_QT EQUAL 5)
    set(for_qt)
    set(version_of_library ${MV_ABI_VERSION})
    set(dev_package libmvresource-dev)
    set(other_dev_package libmvresource-qt6-dev)
    set(qml_package qml-module-mv-resources)
    set(qml_qtquick "qml-module-qtquick2, qml-module-qtquick-window2")
    set(qt_dev "qtbase5-dev (>= ${MV_QT_MINIMUM})")
    set(qt_svg libqt5svg5)
    set(qt_texts qttranslations5-l10n)
else()
    set(for_qt " (Qt ${MV_QT})")
    set(version_of_library ${MV_LIBRARY_SUFFIX}-${MV_ABI_VERSION})
    set(dev_package libmvresource${MV_LIBRARY_SUFFIX}-dev)
    set(other_dev_package libmvresource-dev)
    set(qml_package qml${MV_QT}-module-mv-resources)
    set(qml_qtquick "qml6-module-qtqml, qml6-module-qtquick, qml6-module-qtquick-window")
    set(qt_dev "qt6-base-dev (>= ${MV_QT_MINIMUM})")
    set(qt_svg libqt6svg6)
    set(qt_texts qt6-translations-l10n)
endif()

# mv_library_package(COMPONENT ARGUMENTS...): as mv_package(), for a component of MvComponents.cmake; says to
# other packages which of them have its libraries.
macro(mv_library_package component name)
    string(TOLOWER ${component} install_component)
    mv_package(${install_component} ${name} ${ARGN} SECTION libs)
    string(TOUPPER ${install_component} upper)
    set(shlibs)
    foreach(library IN LISTS MV_COMPONENT_${component}_LIBRARIES)
        string(APPEND shlibs
               "lib${library}${MV_LIBRARY_SUFFIX} ${MV_ABI_VERSION} ${name} (>= ${PROJECT_VERSION})\n")
    endforeach()
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/packaging/${name}/shlibs CONTENT "${shlibs}" @ONLY)
    set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/packaging/${name}/shlibs)
endmacro()

set(CPACK_COMPONENTS_ALL)
mv_library_package(
    Core
    libmvresource${version_of_library}
    "resource manager for slideshow editors${for_qt}"
    "A catalogue of downloadable filters, transitions, motions, themes and
background materials: it is read, kept current, and its items are
downloaded and verified. These libraries need no window system.")
mv_built_components(built)
set(libraries core)
if("Model" IN_LIST built)
    list(APPEND libraries model)
    mv_library_package(
        Model libmvmodel${version_of_library} "resource manager for slideshow editors - item model${for_qt}"
        "The catalogue as an item model for lists, without widgets." NEEDS core)
endif()
if(MV_BUILD_QML)
    mv_package(
        qml ${qml_package} "resource manager for slideshow editors - QML module${for_qt}"
        "The QML module Mv.Resources: the catalogue as an item model for Qt Quick." NEEDS model
        RECOMMENDS ${qml_qtquick} SECTION libs)
endif()
list(APPEND libraries browser)
mv_library_package(
    Browser libmvbrowser${version_of_library} "resource manager for slideshow editors - lists${for_qt}"
    "The lists of items as widgets: live cells with previews, downloads and
favourites, in four skins and six languages." NEEDS core DEPENDS ${qt_svg})
mv_package(
    dev ${dev_package} "resource manager for slideshow editors - development files${for_qt}"
    "Headers, and what CMake and pkg-config need to find the libraries."
    NEEDS ${libraries}
    DEPENDS ${qt_dev}
    SUGGESTS "mvresource-doc, ${qml_package}"
    CONFLICTS ${other_dev_package}
    SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_SHLIBDEPS OFF) # headers only
mv_package(
    doc mvresource-doc "resource manager for slideshow editors - documents"
    "Guides for hosts and for operators of a resource server, and example
programs." DATA SECTION doc)
if(MV_BUILD_TOOLS)
    mv_package(
        tools
        mvresource-tools
        "resource manager for slideshow editors - console tools"
        "mvres lists, fetches, updates, verifies and removes resources from
scripts. mvpublish creates, signs, checks and uploads the tree of a resource
server."
        NEEDS core
        SUGGESTS "rclone, minisign"
        SECTION utils)
endif()
if(MV_BUILD_APP)
    mv_package(
        editor mveditor "miniature slideshow editor on mvresource"
        "Browses, previews, collects, downloads and applies the resources of a
slideshow editor. It is the reference for programs that embed mvresource."
        NEEDS browser
        RECOMMENDS ${qt_texts}
        SUGGESTS mveditor-demo
        SECTION graphics)
endif()
if(MV_BUILD_DEMO)
    mv_package(samples mvresource-samples "resource manager for slideshow editors - samples"
               "A small complete resource server, its source, and an installed tree." DATA SECTION graphics)
    mv_package(
        demo mveditor-demo "miniature slideshow editor on mvresource - demo"
        "Shows the editor on the samples, which it serves itself. Scripts can drive
its window. With mvpublish beside it, it shows updates, too."
        NEEDS browser samples
        RECOMMENDS "mvresource-tools, ${qt_texts}"
        SECTION graphics)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME mvresource)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_VENDOR "The mvresource contributors")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
# What Debian wants of every package and an installation elsewhere does without.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian/finish.cmake)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${MV_PACKAGE_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
include(CPack)
