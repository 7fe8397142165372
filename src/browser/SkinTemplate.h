#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// The style sheet that all skins share, with placeholders for what they differ in.
///
/// A placeholder is `@name@`, or `@name|value@`, which brings the value of the skins that name
/// none.
class SkinTemplate
{
public:
    SkinTemplate() = delete;

    /// Returns `text` with values in place of its placeholders. Appends to `faults` a description
    /// of each placeholder that has no value, and of each value that has no placeholder.
    static QString fill(const QString& text, const QMap<QString, QString>& values,
                        QStringList& faults);
};
