# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Sets skinResource: the template of the style sheets, the skins' files and all icons. Style sheets
# take pictures from files only, so each skin gets copies of the tinted icons in its colours.
file(GLOB skins CONFIGURE_DEPENDS skins/*.json)
file(GLOB icons CONFIGURE_DEPENDS skins/icons/*.svg)
file(GLOB tintedIcons CONFIGURE_DEPENDS skins/icons/tinted/*.svg)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${skins})

set(skinFiles)
macro(add_skin_file file alias)
    string(APPEND skinFiles "  <file alias=\"${alias}\">${file}</file>\n")
endmacro()

foreach(icon IN LISTS icons)
    cmake_path(GET icon FILENAME name)
    add_skin_file(${icon} icons/${name})
endforeach()
foreach(skinFile IN LISTS skins)
    cmake_path(GET skinFile STEM skin)
    add_skin_file(${skinFile} ${skin}.json)
    file(READ ${skinFile} content)
    foreach(icon IN LISTS tintedIcons)
        cmake_path(GET icon STEM name)
        string(JSON color GET "${content}" icons ${name}) # a skin without one does not configure
        set(tinted ${CMAKE_CURRENT_BINARY_DIR}/icons/${skin}/${name}.svg)
        configure_file(${icon} ${tinted} @ONLY)
        add_skin_file(${tinted} icons/${skin}/${name}.svg)
    endforeach()
endforeach()
configure_file(skins/skins.qrc.in mvbrowser_skins.qrc @ONLY)
qt_add_resources(skinResource ${CMAKE_CURRENT_BINARY_DIR}/mvbrowser_skins.qrc)
set_source_files_properties(${skinResource} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
