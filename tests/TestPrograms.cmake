# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# One test for each class or concern, in a source tst_NAME.cpp. The tests of a folder that link to the same
# libraries are one program, which runs the test it is told (RegisteredTest): to compile them in batches and
# to link them once takes a third of the time.

# mv_generate_moc(TARGET SOURCE)
# Runs moc on a test's own source, which includes the result. AUTOMOC would scan all sources and add one to
# compile. It stays in use where a header of the test needs moc. The target test_mocs has the results without the
# libraries: a command that two targets share waits only for what both depend on.
function(mv_generate_moc target source)
    cmake_path(GET source STEM test)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}_moc)
    qt_generate_moc(${source} ${folder}/${test}.moc TARGET ${target})
    target_sources(${target} PRIVATE ${folder}/${test}.moc)
    target_include_directories(${target} PRIVATE ${folder})
    if(NOT TARGET ${target}_mocs)
        add_custom_target(${target}_mocs)
        add_dependencies(test_mocs ${target}_mocs)
    endif()
    target_sources(${target}_mocs PRIVATE ${folder}/${test}.moc)
endfunction()

# Stores in NEEDS_AUTOMOC whether a source other than the tests' own has something for moc, in OWN the tests'
# own sources that do.
function(mv_find_objects needs_automoc own)
    set(${needs_automoc} OFF PARENT_SCOPE)
    set(found)
    foreach(source IN LISTS ARGN)
        file(STRINGS ${source} objects REGEX "^ *Q_OBJECT")
        if(objects AND source MATCHES "(^|/)tst_[^/]*\\.cpp$")
            list(APPEND found ${source})
        elseif(objects)
            set(${needs_automoc} ON PARENT_SCOPE)
        endif()
    endforeach()
    set(${own} ${found} PARENT_SCOPE)
endfunction()

# Stores in RESULT whether the test with these sources is a registered one, which needs no main function of
# its own.
function(mv_is_registered_test result)
    set(${result} OFF PARENT_SCOPE)
    foreach(source IN LISTS ARGN)
        file(STRINGS ${source} registered REGEX "^MV_(WIDGET_)?TEST_MAIN")
        if(registered)
            set(${result} ON PARENT_SCOPE)
        endif()
    endforeach()
endfunction()

# Stores in RESULT whether a test with these sources can share a program.
function(mv_can_share_program result)
    mv_find_objects(needs_automoc own ${ARGN})
    mv_is_registered_test(registered ${ARGN})
    set(sources ${ARGN})
    list(FILTER sources EXCLUDE REGEX "\\.h$")
    list(LENGTH sources count)
    if(registered AND NOT needs_automoc AND count EQUAL 1)
        set(${result} ON PARENT_SCOPE)
    else()
        set(${result} OFF PARENT_SCOPE)
    endif()
endfunction()

# Makes the program of one test.
function(mv_add_test_program name sources libraries)
    add_executable(${name} ${sources})
    mv_is_registered_test(registered ${sources})
    if(registered)
        target_link_libraries(${name} PRIVATE testmain) # before others that have a main function
    endif()
    target_link_libraries(${name} PRIVATE mv_options testsupport ${libraries})
    mv_find_objects(needs_automoc own ${sources})
    if(NOT needs_automoc)
        set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
        foreach(source IN LISTS own)
            mv_generate_moc(${name} ${source})
        endforeach()
    endif()
    mv_precompile(${name})
endfunction()

# Adds a test to the program of its folder and libraries, whose name it stores in PROGRAM.
function(mv_share_test_program program source libraries)
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE
               folder)
    string(JOIN _ shared ${folder} ${libraries})
    string(MAKE_C_IDENTIFIER ${shared} shared)
    if(NOT TARGET ${shared})
        add_executable(${shared})
        target_link_libraries(${shared} PRIVATE mv_options testmain testsupport ${libraries})
        set_target_properties(${shared} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
        mv_precompile(${shared})
    endif()
    target_sources(${shared} PRIVATE ${source})
    mv_generate_moc(${shared} ${source})
    set(${program} ${shared} PARENT_SCOPE)
endfunction()

# mv_add_test(NAME [ALONE] [THREADS] [TIMEOUT SECONDS] SOURCES ... [LIBRARIES ...] [ARGUMENTS ...])
# ALONE: the test has a program of its own, of its name: it starts itself, or later commands change its
# target. So does a test with further sources or a main function of its own.
# THREADS: the test uses several threads and also runs under ThreadSanitizer.
function(mv_add_test name)
    cmake_parse_arguments(ARG "ALONE;THREADS" "TIMEOUT" "SOURCES;LIBRARIES;ARGUMENTS" ${ARGN})
    if(MV_SANITIZE STREQUAL "thread" AND NOT ARG_THREADS)
        return()
    endif()
    get_property(left_out GLOBAL PROPERTY MV_LEFT_OUT)
    mv_can_share_program(shares ${ARG_SOURCES})
    if(shares AND NOT ARG_ALONE)
        if(name IN_LIST left_out)
            return()
        endif()
        set(source ${ARG_SOURCES})
        list(FILTER source INCLUDE REGEX "\\.cpp$")
        mv_share_test_program(program ${source} "${ARG_LIBRARIES}")
        cmake_path(GET source STEM test)
        set(command ${program} ${test})
    else()
        set(program ${name})
        set(command ${name})
        mv_add_test_program(${name} "${ARG_SOURCES}" "${ARG_LIBRARIES}")
        if(name IN_LIST left_out)
            set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL ON)
            return()
        endif()
    endif()
    mv_add_test_run(${name} ${program} "${command};${ARG_ARGUMENTS}" "${ARG_TIMEOUT}")
endfunction()

# Adds the run of a test's program.
function(mv_add_test_run name program command timeout)
    set_property(GLOBAL PROPERTY MV_COMMAND_OF_${name} ${command})
    add_test(NAME ${name} COMMAND ${command})
    if(NOT timeout)
        set(timeout 100)
    endif()
    if(WIN32) # wine starts a program in a second, and opens files slowly
        math(EXPR timeout "3 * ${timeout}")
    endif()
    set_tests_properties(
        ${name} PROPERTIES
        TIMEOUT ${timeout} COST ${timeout} # the longest begin first
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${MV_TEST_ENVIRONMENT}"
        # A warning that the test has not announced with QTest::ignoreMessage is a failure.
        FAIL_REGULAR_EXPRESSION "QWARN;QCRITICAL;QSYSTEM;WARNING: ThreadSanitizer")
    if(MV_SANITIZE STREQUAL "thread")
        mv_watch_threads(${name} ${program})
    endif()
endfunction()

# mv_run_again(NAME SUFFIX VARIABLES...)
# Runs a test a second time, as NAME_SUFFIX, with these environment variables.
function(mv_run_again name suffix)
    if(NOT TEST ${name})
        return() # not part of this preset
    endif()
    get_property(command GLOBAL PROPERTY MV_COMMAND_OF_${name})
    add_test(NAME ${name}_${suffix} COMMAND ${command})
    get_test_property(${name} TIMEOUT timeout)
    get_test_property(${name} ENVIRONMENT environment)
    get_test_property(${name} FAIL_REGULAR_EXPRESSION failure)
    set_tests_properties(${name}_${suffix} PROPERTIES TIMEOUT ${timeout} ENVIRONMENT "${environment};${ARGN}"
                         FAIL_REGULAR_EXPRESSION "${failure}")
endfunction()

# mv_run_side_by_side(NAME): runs a test a second time, with several transfers at a time and no pauses.
function(mv_run_side_by_side name)
    mv_run_again(${name} sideBySide MV_TEST_TRANSFERS=6)
endfunction()
