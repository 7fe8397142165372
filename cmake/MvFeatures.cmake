# SPDX-FileCopyrightText: The mvresource contributors
# SPDX-License-Identifier: MIT

# Says at the end of the configuration what is built, and by which option one may change that. Include it
# after all parts.

include(FeatureSummary)

mv_built_components(built)
foreach(component IN LISTS MV_COMPONENTS)
    if(component IN_LIST built)
        set(MV_HAS_${component} ON)
    else()
        set(MV_HAS_${component} OFF)
    endif()
    add_feature_info("component ${component}" MV_HAS_${component} "${MV_COMPONENT_${component}_TEXT}")
endforeach()
add_feature_info(MV_BUILD_APP MV_BUILD_APP "mveditor, the reference host, and the examples")
add_feature_info(MV_BUILD_QML MV_BUILD_QML "the QML module Mv.Resources and its example")
add_feature_info(MV_BUILD_TOOLS MV_BUILD_TOOLS "mvres, mvpublish and mvserve")
add_feature_info(MV_BUILD_DEMO MV_BUILD_DEMO "mveditor-demo, the editor on the samples")
add_feature_info(MV_BUILD_TESTS MV_BUILD_TESTS "the test suite")
add_feature_info(MV_BUILD_BENCHMARKS MV_BUILD_BENCHMARKS "the benchmarks")
add_feature_info(MV_OPENSSL_DIGEST MV_OPENSSL_DIGEST "digests with the processor's own instructions")

message(STATUS "mvresource ${PROJECT_VERSION} with Qt ${MV_QT}, ${CMAKE_BUILD_TYPE}")
feature_summary(WHAT ENABLED_FEATURES DESCRIPTION "Built:")
feature_summary(WHAT DISABLED_FEATURES DESCRIPTION "Left out:" QUIET_ON_EMPTY)
