# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Precompiled headers: those of Qt and of the standard library that most sources include, compiled
# once for each set of Qt libraries, since those change what the headers declare. They contain none
# of the project's own headers, so that changing one recompiles only the sources that include it.
#
# They save time and must not hide a missing include: clazy, in script/lint, reads every source of the
# libraries without them. CMAKE_DISABLE_PRECOMPILE_HEADERS=ON turns them off.

set(MV_HEADERS_CORE
    <QByteArray>
    <QCoreApplication>
    <QDateTime>
    <QDir>
    <QDirIterator>
    <QFile>
    <QFileInfo>
    <QJsonArray>
    <QJsonDocument>
    <QJsonObject>
    <QMap>
    <QMutexLocker>
    <QRegularExpression>
    <QSet>
    <QStringList>
    <QThread>
    <QUrl>
    <QUuid>
    <QVector>
    <algorithm>
    <array>
    <atomic>
    <chrono>
    <functional>
    <memory>
    <mutex>)
set(MV_HEADERS_WIDGETS
    <QApplication>
    <QImage>
    <QLabel>
    <QListView>
    <QMovie>
    <QPainter>
    <QPushButton>
    <QStandardItemModel>
    <QToolButton>)
set(MV_HEADERS_TEST <QElapsedTimer> <QProcess> <QSignalSpy> <QTemporaryDir> <QTest>)

# Stores in MODULES which of Qt's Widgets, Gui and Test the target is compiled with.
function(mv_qt_modules target modules)
    set(found)
    set(seen)
    get_target_property(waiting ${target} LINK_LIBRARIES)
    while(waiting)
        list(POP_FRONT waiting library)
        if(library IN_LIST seen OR NOT TARGET ${library})
            continue()
        endif()
        list(APPEND seen ${library})
        if(library MATCHES "^Qt${MV_QT}::(Widgets|Gui|Test)$")
            list(APPEND found ${CMAKE_MATCH_1})
        endif()
        get_target_property(further ${library} INTERFACE_LINK_LIBRARIES)
        if(further)
            list(APPEND waiting ${further})
        endif()
    endwhile()
    set(${modules} ${found} PARENT_SCOPE)
endfunction()

# Compiles the target with the precompiled headers of its Qt libraries; call it after linking them. What
# uses Qt Test also gets no debug information on variables, which saves a quarter of the time.
function(mv_precompile target)
    mv_qt_modules(${target} modules)
    set(name mv_precompiled)
    set(headers ${MV_HEADERS_CORE})
    set(libraries Qt${MV_QT}::Core)
    if("Widgets" IN_LIST modules)
        string(APPEND name _widgets)
        list(APPEND headers ${MV_HEADERS_WIDGETS})
        list(APPEND libraries Qt${MV_QT}::Widgets)
    elseif("Gui" IN_LIST modules AND "Test" IN_LIST modules) # Qt Test has more where there is Gui
        string(APPEND name _gui)
        list(APPEND libraries Qt${MV_QT}::Gui)
    endif()
    if("Test" IN_LIST modules)
        string(APPEND name _test)
        list(APPEND headers ${MV_HEADERS_TEST})
        list(APPEND libraries Qt${MV_QT}::Test)
    endif()
    set(debug_options)
    if("Test" IN_LIST modules AND NOT MV_DEBUG_TESTS)
        set(debug_options $<$<CONFIG:Debug>:-g1>)
    endif()
    target_compile_options(${target} PRIVATE ${debug_options})
    if(NOT TARGET ${name})
        file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "")
        add_library(${name} OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/${name}.cpp)
        set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF UNITY_BUILD OFF)
        target_link_libraries(${name} PRIVATE mv_options ${libraries})
        target_compile_options(${name} PRIVATE ${debug_options})
        target_precompile_headers(${name} PRIVATE ${headers})
    endif()
    target_precompile_headers(${target} REUSE_FROM ${name})
    # The sources that AUTOMOC writes are small and compile faster without.
    get_target_property(folder ${target} BINARY_DIR)
    set_source_files_properties(${folder}/${target}_autogen/mocs_compilation.cpp
                                PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
endfunction()
