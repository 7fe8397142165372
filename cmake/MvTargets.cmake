# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Settings shared by all targets of this project.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_AUTOUIC ON)
# The input of moc, rcc and uic is never generated, so they need not wait for other targets.
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF)
# A library that keeps its interface need not be linked again to each of the test programs.
set(CMAKE_LINK_DEPENDS_NO_SHARED ON)
# One folder for all programs and one for all libraries, so that programs run from the build tree.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

# Shared libraries by default, also in a project that embeds this one and says nothing.
set(MV_IS_STATIC OFF)
set(MV_LIBRARY_TYPE SHARED)
if(DEFINED BUILD_SHARED_LIBS AND NOT BUILD_SHARED_LIBS)
    set(MV_IS_STATIC ON)
    set(MV_LIBRARY_TYPE STATIC)
endif()

add_library(mv_options INTERFACE)
target_compile_options(
    mv_options
    INTERFACE
        -Wall
        -Wextra
        -Wpedantic
        # Standard C++20, and what Qt's own macros expect.
        $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
        -Wshadow
        -Wnon-virtual-dtor
        -Woverloaded-virtual
        -Wold-style-cast
        -Wcast-align
        -Wunused
        -Wimplicit-fallthrough
        $<$<BOOL:${MV_WARNINGS_AS_ERRORS}>:-Werror>)
# Conversions to QString are explicit, and the compiler checks connections.
target_compile_definitions(
    mv_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
                         QT_DEPRECATED_WARNINGS QT_STRICT_ITERATORS)

if(WIN32)
    target_compile_definitions(mv_options INTERFACE UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0A00)
    add_library(mv_manifest OBJECT ${PROJECT_SOURCE_DIR}/cmake/windows/program.rc)
    set_target_properties(mv_manifest PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF LINKER_LANGUAGE CXX)
    target_sources(mv_options
                   INTERFACE $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:$<TARGET_OBJECTS:mv_manifest>>)
endif()

if(MV_SANITIZE)
    # Reports need line numbers but no variables, which take most of the compile time.
    add_compile_options(-fsanitize=${MV_SANITIZE} -fno-omit-frame-pointer -Og -g1)
    add_link_options(-fsanitize=${MV_SANITIZE})
    if(MV_SANITIZE MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=all)
        # AddressSanitizer reports a null pointer when it is used. These two checks take a third of the time to
        # compile, and their relocations a good part of each process's start; only the fuzzers keep them, which
        # are few and run for long.
        if(NOT MV_FUZZ)
            add_compile_options(-fno-sanitize=null,alignment)
        endif()
    endif()
    # The tables of the sanitizers consist of addresses, which a program at a fixed place need not relocate.
    add_link_options($<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-no-pie>)
    # GCC's sanitizer instrumentation hides facts that this warning needs.
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()
if(MV_FUZZ)
    # Instruments the libraries, too, for the coverage that guides the fuzzers.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# mv_add_library(NAME EXPORT_DEFINE INSTALL_FOLDER <dir> SOURCES ... HEADERS ...)
# Adds a library, shared unless BUILD_SHARED_LIBS is off, whose public headers are installed under their
# include paths. Headers that are generated are below the project's binary folder as the others are below
# its source folder.
function(mv_add_library name export_define)
    cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;LIBRARIES;PRIVATE_LIBRARIES" ${ARGN})
    add_library(${name} ${MV_LIBRARY_TYPE} ${ARG_SOURCES} ${ARG_HEADERS})
    add_library(Mv::${name} ALIAS ${name})
    if(MV_IS_STATIC)
        target_compile_definitions(${name} PUBLIC MV_STATIC)
    else()
        target_compile_definitions(${name} PRIVATE ${export_define})
    endif()
    target_link_libraries(${name} PUBLIC ${ARG_LIBRARIES} PRIVATE $<BUILD_INTERFACE:mv_options>
                                                                  ${ARG_PRIVATE_LIBRARIES})
    mv_precompile(${name})
    if(NOT MV_SANITIZE) # a sanitizer's own symbols come with the program
        target_link_options(${name} PRIVATE -Wl,--no-undefined)
    endif()
    target_include_directories(
        ${name}
        PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src> $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/src>
               $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/mvresource>)
    mv_install_library(${name} ${ARG_HEADERS})
endfunction()
