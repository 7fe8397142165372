# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# The components of the installed package: what find_package(MvResource COMPONENTS ...) and pkg-config
# offer, and which libraries, other components and Qt modules make up each. A component exists if its
# libraries are built.

# In an order in which each needs only those before it.
set(MV_COMPONENTS Core Model Browser)

set(MV_COMPONENT_Core_LIBRARIES mvresource mvhost)
set(MV_COMPONENT_Core_QT Core Xml)
set(MV_COMPONENT_Core_PRIVATE libcurl libsodium) # by their names for pkg-config
set(MV_COMPONENT_Core_TEXT "the catalogue, downloads and releases, without a window system")

set(MV_COMPONENT_Model_LIBRARIES mvmodel)
set(MV_COMPONENT_Model_NEEDS Core)
set(MV_COMPONENT_Model_QT Core)
set(MV_COMPONENT_Model_TEXT "the catalogue as an item model, without widgets")

set(MV_COMPONENT_Browser_LIBRARIES mvbrowser mvhostui)
set(MV_COMPONENT_Browser_NEEDS Core)
set(MV_COMPONENT_Browser_QT Core Gui Widgets)
set(MV_COMPONENT_Browser_TEXT "the lists of items as widgets")

# Stores in COMPONENT the component that the library belongs to.
function(mv_component_of library component)
    foreach(candidate IN LISTS MV_COMPONENTS)
        if(library IN_LIST MV_COMPONENT_${candidate}_LIBRARIES)
            set(${component} ${candidate} PARENT_SCOPE)
            return()
        endif()
    endforeach()
    message(FATAL_ERROR "cmake/MvComponents.cmake names no component for the library ${library}")
endfunction()

# Stores in BUILT the components whose libraries are built.
function(mv_built_components built)
    set(found)
    foreach(component IN LISTS MV_COMPONENTS)
        list(GET MV_COMPONENT_${component}_LIBRARIES 0 library)
        if(TARGET ${library})
            list(APPEND found ${component})
        endif()
    endforeach()
    set(${built} ${found} PARENT_SCOPE)
endfunction()
