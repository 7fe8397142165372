# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Installs the documents with the examples, and the samples.

set(MV_INSTALL_DOCDIR ${CMAKE_INSTALL_DATADIR}/doc/mvresource)
set(MV_INSTALL_SAMPLESDIR ${CMAKE_INSTALL_DATADIR}/mvresource/samples)

# The demo finds the samples relative to itself, in the build tree as in an installed one.
file(RELATIVE_PATH MV_SAMPLES_FROM_BIN ${CMAKE_INSTALL_FULL_BINDIR}
     ${CMAKE_INSTALL_PREFIX}/${MV_INSTALL_SAMPLESDIR})

function(mv_install_documents)
    install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
                  ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${MV_INSTALL_DOCDIR} COMPONENT doc)
    install(
        DIRECTORY ${PROJECT_SOURCE_DIR}/docs/
        DESTINATION ${MV_INSTALL_DOCDIR}/docs
        COMPONENT doc
        FILES_MATCHING
        PATTERN "*.md"
        PATTERN "*.png")
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${MV_INSTALL_DOCDIR} COMPONENT doc
            PATTERN examples/CMakeLists.txt EXCLUDE)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/deploy/ DESTINATION ${MV_INSTALL_DOCDIR}/examples/nginx
            COMPONENT doc)
endfunction()

function(mv_install_samples)
    foreach(folder installed server source testoutput)
        install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples/${folder} DESTINATION ${MV_INSTALL_SAMPLESDIR}
                COMPONENT samples)
    endforeach()
    install(FILES ${PROJECT_SOURCE_DIR}/samples/README.md ${PROJECT_SOURCE_DIR}/samples/settings.ini
            DESTINATION ${MV_INSTALL_SAMPLESDIR} COMPONENT samples)
endfunction()
