# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# mv_add_manual(PROGRAM TABLE)
# Writes the manual page of a program and its completions for bash, zsh and fish while building, below
# share/ in the build folder, and installs them. The source TABLE defines programTable().
function(mv_add_manual program table)
    if(WIN32 OR (CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR))
        return() # nobody reads them there, or the writer would not run here
    endif()
    set(writer ${program}_manual)
    add_executable(${writer} ${table})
    set_target_properties(${writer} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
    target_link_libraries(${writer} PRIVATE mv_options mvmanual mvresource)
    mv_precompile(${writer})
    set(share ${PROJECT_BINARY_DIR}/share)
    set(page ${share}/man/man1/${program}.1)
    set(bash ${share}/bash-completion/completions/${program})
    set(zsh ${share}/zsh/site-functions/_${program})
    set(fish ${share}/fish/vendor_completions.d/${program}.fish)
    add_custom_command(
        OUTPUT ${page} ${bash} ${zsh} ${fish}
        COMMAND ${writer} ${share}
        DEPENDS ${writer}
        COMMENT "Writing the manual page and completions of ${program}"
        VERBATIM)
    add_custom_target(${program}_pages ALL DEPENDS ${page} ${bash} ${zsh} ${fish})
    install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES ${bash} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
    install(FILES ${zsh} DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
    install(FILES ${fish} DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
endfunction()
