// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "model/ResourceCatalogue.h"
#include "model/ResourceFilterModel.h"
#include "model/ResourceModel.h"

#include <QObject>
#include <qqml.h>

// The types of the QML module. The build makes from these declarations what registers the types in
// an engine and plugins.qmltypes, which describes them to tools; the classes know nothing of QML.

struct ResourceCatalogueType
{
    Q_GADGET
    QML_FOREIGN(ResourceCatalogue)
    QML_NAMED_ELEMENT(ResourceCatalogue)
};

struct ResourceFilterModelType
{
    Q_GADGET
    QML_FOREIGN(ResourceFilterModel)
    QML_NAMED_ELEMENT(ResourceFilterModel)
};

struct ResourceModelType
{
    Q_GADGET
    QML_FOREIGN(ResourceModel)
    QML_NAMED_ELEMENT(ResourceModel)
};
