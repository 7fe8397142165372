// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QQmlExtensionPlugin>

/// The QML module Mv.Resources 1.0: ResourceCatalogue, ResourceModel and ResourceFilterModel, as in
/// C++. The program sets HostSettings before it loads a document that imports the module.
class MvResourcesPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    void registerTypes(const char* uri) override;
};
