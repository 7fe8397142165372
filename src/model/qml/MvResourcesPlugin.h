// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlEngineExtensionPlugin>

/// The QML module Mv.Resources 1.0: ResourceCatalogue, ResourceModel and ResourceFilterModel, as in
/// C++. The program sets HostSettings before it loads a document that imports the module. Loading
/// the plugin registers the types, with code that the build generates from ResourceTypes.h.
class MvResourcesPlugin : public QQmlEngineExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlEngineExtensionInterface_iid)
};
