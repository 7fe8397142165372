// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "SourceItem.h"

class JsonFields;

/// Reads the manifest of an item, "item.json" in the item's folder.
class Manifest
{
public:
    Manifest() = delete;

    static QString fileName() { return QStringLiteral("item.json"); }

    /// Reads a manifest; `item` provides its folder and path. Faults name file and field.
    static void read(SourceItem& item, QStringList& faults);

    /// Adds a fault for every key that is not an audience.
    static void checkAudiences(JsonFields& fields, const char* key,
                               const QMap<QString, QString>& names);
    /// Adds faults for names that users cannot read, or that are too long. `what` begins the fault.
    static void checkShown(JsonFields& fields, const QString& what, const QStringList& names);
};
