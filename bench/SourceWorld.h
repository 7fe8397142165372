// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// A publisher's source of many items, and the location of the tree built from it.
class SourceWorld
{
public:
    explicit SourceWorld(const QString& folder);

    /// Writes the source: two of every ten items are themes, each of which uses seven others.
    void write(int items) const;

    QString source() const { return m_folder + QStringLiteral("/source"); }
    QString tree() const { return m_folder + QStringLiteral("/tree"); }

private:
    QString m_folder;
};
