# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Chooses the major version of Qt. Targets are named Qt${MV_QT}::Core and so on, since the installed package
# names them, too; commands without a version (qt_add_resources) are those of that version.

set(MV_QT_MINIMUM_5 5.15)
set(MV_QT_MINIMUM_6 6.4)

set(MV_QT "" CACHE STRING "Major version of Qt: 5 or 6; empty: that of the embedding project, or the newest")
set_property(CACHE MV_QT PROPERTY STRINGS "" 5 6)
if(MV_QT STREQUAL "")
    if(TARGET Qt5::Core)
        set(MV_QT 5)
    else()
        find_package(QT NAMES Qt6 Qt5 REQUIRED COMPONENTS Core)
        set(MV_QT ${QT_VERSION_MAJOR})
    endif()
endif()
if(NOT DEFINED MV_QT_MINIMUM_${MV_QT})
    message(FATAL_ERROR "MV_QT is \"${MV_QT}\": it can be 5 or 6")
endif()
set(MV_QT_MINIMUM ${MV_QT_MINIMUM_${MV_QT}})
set(QT_DEFAULT_MAJOR_VERSION ${MV_QT})
message(STATUS "Qt ${MV_QT}")
