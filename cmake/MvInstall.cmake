# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Installs the libraries, and what lets hosts find them: a CMake package and pkg-config files. Every file
# belongs to one install component, and so to one Debian package, see MvPackages.cmake.

include(CMakePackageConfigHelpers)
include(MvComponents)

# What belongs to no other component. Folders of programs set their own.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME dev)

# While the major version is 0, every minor version may change the interface.
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(MV_ABI_VERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
else()
    set(MV_ABI_VERSION ${PROJECT_VERSION_MAJOR})
endif()

# Libraries for Qt 6 have names of their own, so that they can be installed beside those for Qt 5, which
# programs may need at the same time.
set(MV_LIBRARY_SUFFIX)
if(NOT MV_QT EQUAL 5)
    set(MV_LIBRARY_SUFFIX -qt${MV_QT})
endif()

set(MV_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/MvResource)
set(MV_INSTALL_PKGCONFIGDIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Programs and libraries of an installed tree find each other wherever it is moved. In /usr the system's
# linker finds them.
if(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    file(RELATIVE_PATH folder ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set(CMAKE_INSTALL_RPATH $ORIGIN $ORIGIN/${folder})
endif()

# Stores in RELATIVE the name under which programs include the header.
function(mv_include_name header relative)
    cmake_path(ABSOLUTE_PATH header OUTPUT_VARIABLE absolute)
    set(base ${PROJECT_SOURCE_DIR}/src)
    cmake_path(IS_PREFIX PROJECT_BINARY_DIR ${absolute} is_generated)
    if(is_generated)
        set(base ${PROJECT_BINARY_DIR}/src)
    endif()
    cmake_path(RELATIVE_PATH absolute BASE_DIRECTORY ${base} OUTPUT_VARIABLE name)
    set(${relative} ${name} PARENT_SCOPE)
endfunction()

# mv_install_library(NAME HEADERS...)
# Installs a library of MvComponents.cmake with its public headers.
function(mv_install_library name)
    mv_component_of(${name} component)
    string(TOLOWER ${component} install_component)
    set_target_properties(
        ${name} PROPERTIES OUTPUT_NAME ${name}${MV_LIBRARY_SUFFIX} VERSION ${PROJECT_VERSION}
                           SOVERSION ${MV_ABI_VERSION})
    install(
        TARGETS ${name}
        EXPORT MvResource${component}Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${install_component} NAMELINK_COMPONENT dev
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${install_component})
    foreach(header IN LISTS ARGN)
        mv_include_name(${header} relative)
        cmake_path(GET relative PARENT_PATH folder)
        install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/mvresource/${folder} COMPONENT dev)
        set_property(GLOBAL APPEND PROPERTY MV_PUBLIC_HEADERS ${relative})
    endforeach()
endfunction()

# Installs the pkg-config file of a component. Qt requires position-independent code of a program, which
# its own files do not say.
function(mv_install_pkgconfig component)
    string(TOLOWER mvresource-${component} name)
    file(RELATIVE_PATH prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
    file(RELATIVE_PATH libdir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
    file(RELATIVE_PATH includedir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
    string(REGEX REPLACE "/$" "" prefix ${prefix})
    set(requires)
    foreach(needed IN LISTS MV_COMPONENT_${component}_NEEDS)
        string(TOLOWER "mvresource-${needed} = ${PROJECT_VERSION}" needed)
        list(APPEND requires ${needed})
    endforeach()
    foreach(module IN LISTS MV_COMPONENT_${component}_QT)
        list(APPEND requires "Qt${MV_QT}${module} >= ${MV_QT_MINIMUM}")
    endforeach()
    set(flags)
    if(MV_IS_STATIC) # shared libraries find what they use themselves
        set(flags " -DMV_STATIC")
        list(APPEND requires ${MV_COMPONENT_${component}_PRIVATE})
        if(MV_OPENSSL_DIGEST AND component STREQUAL "Core")
            list(APPEND requires libcrypto)
        endif()
    endif()
    list(JOIN requires ", " requires)
    set(libraries ${MV_COMPONENT_${component}_LIBRARIES})
    list(TRANSFORM libraries REPLACE "(.+)" "-l\\1${MV_LIBRARY_SUFFIX}")
    list(JOIN libraries " " libraries)
    set(text ${MV_COMPONENT_${component}_TEXT})
    configure_file(${PROJECT_SOURCE_DIR}/cmake/mvresource.pc.in ${name}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc DESTINATION ${MV_INSTALL_PKGCONFIGDIR} COMPONENT dev)
endfunction()

# mv_install_package(): call it after adding the libraries.
function(mv_install_package)
    mv_built_components(built)
    set(MV_COMPONENT_TABLE)
    foreach(component IN LISTS built)
        install(EXPORT MvResource${component}Targets NAMESPACE Mv:: DESTINATION ${MV_INSTALL_CMAKEDIR}
                COMPONENT dev)
        mv_install_pkgconfig(${component})
        string(APPEND MV_COMPONENT_TABLE "set(_mv_${component}_needs ${MV_COMPONENT_${component}_NEEDS})\n"
               "set(_mv_${component}_qt ${MV_COMPONENT_${component}_QT})\n")
    endforeach()
    configure_package_config_file(MvResourceConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/MvResourceConfig.cmake
                                  INSTALL_DESTINATION ${MV_INSTALL_CMAKEDIR} PATH_VARS MV_INSTALL_QML_DIR)
    write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/MvResourceConfigVersion.cmake
                                     COMPATIBILITY SameMinorVersion)
    install(
        FILES ${CMAKE_CURRENT_BINARY_DIR}/MvResourceConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/MvResourceConfigVersion.cmake DESTINATION ${MV_INSTALL_CMAKEDIR}
        COMPONENT dev)
endfunction()
