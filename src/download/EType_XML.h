// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// The catalogue files that a resource server publishes.
enum EType_XML : int {
    EType_XML_resource_version_xml = 0, ///< the catalogue's version and checksums
    EType_XML_resource_display_xml = 1, ///< the items that the user is shown
    EType_XML_resource_config_xml = 2,  ///< the files of each item
    EType_XML_VideoFilters_xml = 3,     ///< list of the filters' definitions
    EType_XML_Transitions_xml = 4,      ///< list of the transitions' definitions
    EType_XML_Motions_xml = 5,          ///< list of the motions' definitions
};
