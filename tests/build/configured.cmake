# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Configures the project on a machine without X11, Qt Quick, libzip and cpp-httplib, or without libzip alone.
#
#   noPackages    the libraries and the editor do without, and the editor is made of nothing else
#   missingPart   what needs a package that is not there says so
#   demoAlone     the demo does without the tools, and so without libzip
#   subproject    a project that embeds this one gets the libraries and nothing else
#   platform      a platform in place of ours is built alone, and the libraries with it
cmake_minimum_required(VERSION 3.25)

set(packages ${WORK_FOLDER}/packages)
file(REMOVE_RECURSE ${WORK_FOLDER})

set(missing libzip cpp-httplib)
set(find_options -DCMAKE_DISABLE_FIND_PACKAGE_X11=ON -DCMAKE_DISABLE_FIND_PACKAGE_Qt${MV_QT}Quick=ON)
if(CASE STREQUAL "demoAlone")
    set(missing libzip)
    set(find_options)
endif()

# All packages of this machine but the missing ones.
execute_process(COMMAND ${PKG_CONFIG} --variable pc_path pkg-config OUTPUT_VARIABLE folders
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ":" ";" folders "${folders}")
file(MAKE_DIRECTORY ${packages})
foreach(folder IN LISTS folders)
    file(GLOB files ${folder}/*.pc)
    foreach(file IN LISTS files)
        cmake_path(GET file STEM LAST_ONLY name)
        if(NOT name IN_LIST missing)
            file(CREATE_LINK ${file} ${packages}/${name}.pc SYMBOLIC)
        endif()
    endforeach()
endforeach()

# configure(SOURCE OPTIONS...) sets `result` and `output`.
function(configure source)
    execute_process(
        COMMAND
            ${CMAKE_COMMAND} -E env --unset=PKG_CONFIG_PATH PKG_CONFIG_LIBDIR=${packages} ${CMAKE_COMMAND} -S
            ${source} -B ${WORK_FOLDER}/build -G Ninja -DCMAKE_CXX_COMPILER=${COMPILER} -DMV_QT=${MV_QT}
            ${find_options} ${ARGN}
        RESULT_VARIABLE result
        OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    set(result ${result} PARENT_SCOPE)
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(require_success)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "it is not configured (${result}):\n${output}")
    endif()
endfunction()

# refuses(TEXT OPTIONS...): the project cannot be configured, for the reason in TEXT.
function(refuses text)
    configure(${PROJECT_FOLDER} ${ARGN})
    if(result EQUAL 0 OR NOT output MATCHES "${text}")
        message(FATAL_ERROR "expected a refusal for \"${text}\" (${result}):\n${output}")
    endif()
endfunction()

# is_made_without(PROGRAM STRANGERS...): the program is built, and no command names one of these.
function(is_made_without program)
    execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_FOLDER}/build -- -t commands ${program}
                    OUTPUT_VARIABLE commands COMMAND_ERROR_IS_FATAL ANY)
    if(NOT commands MATCHES "-o bin/${program} ")
        message(FATAL_ERROR "${program} is not linked:\n${commands}")
    endif()
    foreach(stranger IN LISTS ARGN)
        string(FIND "${commands}" "${stranger}" place)
        if(NOT place EQUAL -1)
            message(FATAL_ERROR "${program} is built with \"${stranger}\":\n${commands}")
        endif()
    endforeach()
endfunction()

if(CASE STREQUAL "noPackages")
    configure(${PROJECT_FOLDER} -DMV_BUILD_TOOLS=OFF -DMV_BUILD_DEMO=OFF -DMV_BUILD_TESTS=OFF)
    require_success()
    set(others demo/ samples tests/ tools/)
    list(TRANSFORM others PREPEND ${PROJECT_FOLDER}/)
    is_made_without(mveditor ${others} mvserver httplib libzip -lzip Xtst)
elseif(CASE STREQUAL "demoAlone")
    configure(${PROJECT_FOLDER} -DMV_BUILD_TOOLS=OFF -DMV_BUILD_DEMO=ON -DMV_BUILD_TESTS=OFF)
    require_success()
    set(others console mvres mvpublish)
    list(TRANSFORM others PREPEND ${PROJECT_FOLDER}/tools/)
    is_made_without(mveditor-demo ${others} libzip -lzip)
elseif(CASE STREQUAL "missingPart")
    set(libraries -DMV_BUILD_APP=OFF -DMV_BUILD_TESTS=OFF)
    refuses("cpp-httplib" ${libraries} -DMV_BUILD_TOOLS=ON -DMV_BUILD_DEMO=OFF)
    refuses("Qt${MV_QT}Quick" ${libraries} -DMV_BUILD_TOOLS=OFF -DMV_BUILD_DEMO=OFF -DMV_BUILD_QML=ON)
    refuses("MV_BUILD_DEMO needs MV_BUILD_APP" ${libraries} -DMV_BUILD_TOOLS=OFF -DMV_BUILD_DEMO=ON)
elseif(CASE STREQUAL "subproject")
    configure(${CMAKE_CURRENT_LIST_DIR}/host -DMVRESOURCE=${PROJECT_FOLDER})
    require_success()
    if(NOT output MATCHES "targets: mvbrowser;mvhost;mvhostui;mvmodel;mvresource\n")
        message(FATAL_ERROR "the host gets something else:\n${output}")
    endif()
elseif(CASE STREQUAL "platform")
    set(platform ${PROJECT_FOLDER}/examples/platform)
    configure(${PROJECT_FOLDER} -DMV_HOST_PLATFORM=${platform} -DCMAKE_DISABLE_FIND_PACKAGE_CURL=ON)
    require_success()
    execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK_FOLDER}/build -- -t commands all
                    OUTPUT_VARIABLE commands COMMAND_ERROR_IS_FATAL ANY)
    foreach(part "${platform}/TransferPool.cpp" "-o lib/libmvbrowser")
        string(FIND "${commands}" "${part}" place)
        if(place EQUAL -1)
            message(FATAL_ERROR "the build lacks \"${part}\":\n${commands}")
        endif()
    endforeach()
    # The version is that of the libraries, whatever the platform.
    string(REPLACE "${PROJECT_FOLDER}/src/host/MvVersion.cpp" "" commands "${commands}")
    if(commands MATCHES "${PROJECT_FOLDER}/(src/host/[A-Za-z]+\\.cpp|app|tools|tests)|libcurl")
        message(FATAL_ERROR "the build has \"${CMAKE_MATCH_0}\":\n${commands}")
    endif()
endif()
