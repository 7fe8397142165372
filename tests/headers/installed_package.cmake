# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Installs the build into a folder of its own, builds a host against it and runs that.
#
#   everything    exactly the public headers are installed; a host with the lists
#   core          a host without a window, on a machine without Qt Widgets
#   components    what find_package() answers to components that are there, unknown or missing
#   pkgConfig     the same hosts with the compiler alone
#   quick         examples/quick with the installed QML module
cmake_minimum_required(VERSION 3.25)

set(prefix ${WORK_FOLDER}/installed)
set(host ${WORK_FOLDER}/host)
file(REMOVE_RECURSE ${WORK_FOLDER})

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "failed (${result}): ${command}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# configure(PROJECT OPTIONS...): with nothing but the installed tree and the system.
function(configure project)
    cmake_path(ABSOLUTE_PATH project BASE_DIRECTORY ${CMAKE_CURRENT_LIST_DIR})
    run(${CMAKE_COMMAND}
        -S
        ${project}
        -B
        ${host}
        -G
        ${GENERATOR}
        -DCMAKE_PREFIX_PATH=${prefix}
        -DCMAKE_BUILD_TYPE=${BUILD_TYPE}
        -DCMAKE_CXX_COMPILER=${COMPILER}
        -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}
        -DPACKAGE_VERSION=${PACKAGE_VERSION}
        -DPACKAGE_QT=${QT}
        ${ARGN})
    file(READ ${host}/CMakeCache.txt cache)
    if(NOT cache MATCHES "MvResource_DIR:PATH=${prefix}/")
        message(FATAL_ERROR "the package was not found below ${prefix}")
    endif()
endfunction()

# compile(SOURCE PROGRAM PACKAGE): as a makefile would, with the flags of pkg-config.
function(compile source program package)
    run(${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${prefix}/${LIBRARY_FOLDER}/pkgconfig ${PKG_CONFIG} --cflags
        --libs ${package})
    separate_arguments(flags UNIX_COMMAND "${output}")
    file(MAKE_DIRECTORY ${host})
    run(${COMPILER}
        -std=c++17
        -Wall
        -Wextra
        -Werror
        ${source}
        -o
        ${host}/${program}
        ${flags}
        -Wl,-rpath,${prefix}/${LIBRARY_FOLDER})
    set(flags ${flags} PARENT_SCOPE)
endfunction()

# runs(PROGRAM): it uses the installed libraries.
function(runs program)
    file(MAKE_DIRECTORY ${WORK_FOLDER}/home)
    run(${CMAKE_COMMAND} -E env HOME=${WORK_FOLDER}/home XDG_DATA_HOME=${WORK_FOLDER}/home ${host}/${program}
        ${WORK_FOLDER}/root)
    if(NOT output MATCHES "config catalogue: ${WORK_FOLDER}/root/")
        message(FATAL_ERROR "${program} printed:\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(needs_no_window program)
    file(GET_RUNTIME_DEPENDENCIES EXECUTABLES ${host}/${program} RESOLVED_DEPENDENCIES_VAR libraries)
    list(FILTER libraries INCLUDE REGEX "Gui|Widgets|browser|hostui")
    if(libraries)
        message(FATAL_ERROR "${program} needs ${libraries}")
    endif()
endfunction()

function(every_header_is_public)
    file(READ ${HEADER_LIST} expected)
    file(GLOB_RECURSE installed RELATIVE ${prefix}/${INCLUDE_FOLDER} ${prefix}/${INCLUDE_FOLDER}/*)
    list(SORT expected)
    list(SORT installed)
    if(NOT installed STREQUAL expected)
        message(FATAL_ERROR "installed headers:\n${installed}\nexpected:\n${expected}")
    endif()
endfunction()

# Moved afterwards: the installed tree must be relocatable.
set(components dev core model browser)
if(CASE STREQUAL "quick")
    list(APPEND components qml)
endif()
foreach(component IN LISTS components)
    run(${CMAKE_COMMAND} --install ${BUILD_FOLDER} --prefix ${WORK_FOLDER}/staged --component ${component})
endforeach()
file(RENAME ${WORK_FOLDER}/staged ${prefix})

if(CASE STREQUAL "everything")
    every_header_is_public()
    configure(consumer)
    run(${CMAKE_COMMAND} --build ${host})
    runs(consumer)
elseif(CASE STREQUAL "core")
    foreach(module Gui Widgets)
        list(APPEND without -DCMAKE_DISABLE_FIND_PACKAGE_Qt5${module}=ON
             -DCMAKE_DISABLE_FIND_PACKAGE_Qt6${module}=ON)
    endforeach()
    configure(core ${without})
    run(${CMAKE_COMMAND} --build ${host})
    runs(core)
    if(NOT output MATCHES "versions: ${PACKAGE_VERSION} ${PACKAGE_VERSION}\n")
        message(FATAL_ERROR "the versions are not those of the project:\n${output}")
    endif()
    needs_no_window(core)
elseif(CASE STREQUAL "components")
    configure(components)
elseif(CASE STREQUAL "pkgConfig")
    compile(${CMAKE_CURRENT_LIST_DIR}/core/main.cpp core mvresource-core)
    if(flags MATCHES "Gui|Widgets|browser|hostui")
        message(FATAL_ERROR "mvresource-core asks for ${flags}")
    endif()
    runs(core)
    needs_no_window(core)
    compile(${CMAKE_CURRENT_LIST_DIR}/../../examples/embed/main.cpp embed mvresource-browser)
    execute_process(COMMAND ${host}/embed ERROR_VARIABLE output)
    if(NOT output MATCHES "usage: embed SETTINGS.ini")
        message(FATAL_ERROR "embed printed:\n${output}")
    endif()
elseif(CASE STREQUAL "quick")
    configure(../../examples/quick)
    run(${CMAKE_COMMAND} --build ${host})
    file(MAKE_DIRECTORY ${WORK_FOLDER}/home)
    set(environment HOME=${WORK_FOLDER}/home XDG_DATA_HOME=${WORK_FOLDER}/home QT_QUICK_BACKEND=software
                    QT_LOGGING_RULES=MVThemeMgr=true)
    # Its document has opened the catalogue, and so has found the module.
    run(${CMAKE_COMMAND}
        -E
        env
        ${environment}
        ${CMAKE_CURRENT_LIST_DIR}/until_line
        "Resource root path: ${WORK_FOLDER}/root"
        ${host}/quick
        ${SAMPLES}/settings.ini
        ${WORK_FOLDER}/root)
else()
    message(FATAL_ERROR "unknown case \"${CASE}\"")
endif()
