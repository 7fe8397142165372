# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Installs the build into a folder of its own, builds the consumer against it and runs that.
cmake_minimum_required(VERSION 3.25)

set(prefix ${WORK_FOLDER}/installed)
set(consumer ${WORK_FOLDER}/consumer)
file(REMOVE_RECURSE ${WORK_FOLDER})

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "failed (${result}): ${command}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# Moved afterwards: the installed tree must be relocatable.
run(${CMAKE_COMMAND} --install ${BUILD_FOLDER} --prefix ${WORK_FOLDER}/staged)
file(RENAME ${WORK_FOLDER}/staged ${prefix})

# Exactly the public headers are installed.
file(READ ${HEADER_LIST} expected)
file(GLOB_RECURSE installed RELATIVE ${prefix}/${INCLUDE_FOLDER} ${prefix}/${INCLUDE_FOLDER}/*)
list(SORT expected)
list(SORT installed)
if(NOT installed STREQUAL expected)
    message(FATAL_ERROR "installed headers:\n${installed}\nexpected:\n${expected}")
endif()

set(options
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DCMAKE_CXX_COMPILER=${COMPILER}
    -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -DPACKAGE_VERSION=${PACKAGE_VERSION} -DSANITIZE=${SANITIZE})
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/consumer -B ${consumer} -G ${GENERATOR} ${options})
run(${CMAKE_COMMAND} --build ${consumer})

# The build tree must not provide what the installed one lacks.
file(READ ${consumer}/CMakeCache.txt cache)
if(NOT cache MATCHES "MvResource_DIR:PATH=${prefix}/")
    message(FATAL_ERROR "the package was not found below ${prefix}")
endif()

file(MAKE_DIRECTORY ${WORK_FOLDER}/home)
run(${CMAKE_COMMAND} -E env HOME=${WORK_FOLDER}/home XDG_DATA_HOME=${WORK_FOLDER}/home ${consumer}/consumer
    ${WORK_FOLDER}/root)
if(NOT output MATCHES "config catalogue: ${WORK_FOLDER}/root/")
    message(FATAL_ERROR "the consumer printed:\n${output}")
endif()
