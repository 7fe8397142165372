# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Builds the libraries statically and tests that their installed tree serves the same programs as the shared
# ones', see installed_package.cmake. Nobody debugs them, so debug information is left out.
cmake_minimum_required(VERSION 3.25)

set(BUILD_FOLDER ${WORK_FOLDER}/build)
set(folder ${WORK_FOLDER})
set(off APP TOOLS DEMO TESTS)
list(TRANSFORM off REPLACE "(.+)" "-DMV_BUILD_\\1=OFF")

file(REMOVE_RECURSE ${BUILD_FOLDER})
execute_process(
    COMMAND
        ${CMAKE_COMMAND} -S ${PROJECT_FOLDER} -B ${BUILD_FOLDER} -G ${GENERATOR} -DBUILD_SHARED_LIBS=OFF
        ${off} -DMV_QT=${QT} -DMV_OPENSSL_DIGEST=${OPENSSL_DIGEST} -DMV_UNITY_BUILD=${UNITY_BUILD}
        -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DCMAKE_CXX_FLAGS_DEBUG=-g0 -DCMAKE_CXX_COMPILER=${COMPILER}
        -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}
    OUTPUT_VARIABLE output
    ERROR_VARIABLE output
    RESULT_VARIABLE result)
if(result EQUAL 0)
    execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD_FOLDER} OUTPUT_VARIABLE output
                    ERROR_VARIABLE output RESULT_VARIABLE result)
endif()
if(NOT result EQUAL 0)
    message(FATAL_ERROR "the static libraries cannot be built (${result}):\n${output}")
endif()
file(GLOB_RECURSE shared ${BUILD_FOLDER}/*.so)
if(shared)
    message(FATAL_ERROR "shared libraries were built: ${shared}")
endif()
foreach(CASE everything pkgConfig)
    set(WORK_FOLDER ${folder}/${CASE})
    include(${CMAKE_CURRENT_LIST_DIR}/installed_package.cmake)
endforeach()
