# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Refuses a choice of MV_BUILD_ options that leaves out a part which another one needs.

# mv_needs(OPTION NEEDED...): stops unless the others are on wherever OPTION is.
function(mv_needs option)
    foreach(needed IN LISTS ARGN)
        if(${option} AND NOT ${needed})
            message(FATAL_ERROR "${option} needs ${needed}: turn that on, or ${option} off")
        endif()
    endforeach()
endfunction()

mv_needs(MV_BUILD_DEMO MV_BUILD_APP)
mv_needs(MV_BUILD_TESTS MV_BUILD_APP MV_BUILD_TOOLS)
if(NOT WIN32) # where the demo's X11 is missing, and the tests with it
    mv_needs(MV_BUILD_TESTS MV_BUILD_DEMO)
endif()
mv_needs(MV_BUILD_BENCHMARKS MV_BUILD_TOOLS)
