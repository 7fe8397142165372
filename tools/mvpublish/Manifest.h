#pragma once

#include "SourceItem.h"

class JsonFields;

/// Reads the manifest of an item, "item.json" in the item's folder.
class Manifest
{
public:
    Manifest() = delete;

    static QString fileName() { return QStringLiteral("item.json"); }

    /// `item` brings its folder and path. Faults say file and field.
    static void read(SourceItem& item, QStringList& faults);

    /// Complains of names for nobody: keys that are no audience.
    static void checkAudiences(JsonFields& fields, const char* key,
                               const QMap<QString, QString>& names);
    /// Complains of names that users cannot read, or that are too long. `what` begins the fault.
    static void checkShown(JsonFields& fields, const QString& what, const QStringList& names);
};
