// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "MvResourcesPlugin.h"

#include "model/ResourceCatalogue.h"
#include "model/ResourceFilterModel.h"
#include "model/ResourceModel.h"

#include <qqml.h>

void MvResourcesPlugin::registerTypes(const char* uri)
{
    constexpr int major = 1;
    constexpr int minor = 0;
    qmlRegisterType<ResourceCatalogue>(uri, major, minor, "ResourceCatalogue");
    qmlRegisterType<ResourceModel>(uri, major, minor, "ResourceModel");
    qmlRegisterType<ResourceFilterModel>(uri, major, minor, "ResourceFilterModel");
}
