# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Runs in cpack once a component is installed into its package's tree: adds what Debian wants of every
# package, and uses the folders that Debian's programs read.
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}/usr/share)
    string(TOUPPER ${component} upper)
    set(doc ${share}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    file(COPY ${CMAKE_CURRENT_LIST_DIR}/copyright DESTINATION ${doc})
    file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/../../CHANGELOG.md ${doc}/changelog)
    file(GLOB pages ${share}/man/man1/*.1)
    execute_process(COMMAND gzip -9nf ${doc}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
    if(EXISTS ${share}/zsh/site-functions)
        file(RENAME ${share}/zsh/site-functions ${share}/zsh/vendor-completions)
    endif()
endforeach()
