// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// The style sheet shared by all skins, with placeholders for their differences.
///
/// A placeholder is `@name@`, or `@name|value@`, which provides the default value.
class SkinTemplate
{
public:
    SkinTemplate() = delete;

    /// Returns `text` with its placeholders replaced by values. Appends to `faults` a description
    /// of each placeholder without a value, and of each value without a placeholder.
    static QString fill(const QString& text, const QMap<QString, QString>& values,
                        QStringList& faults);
};
