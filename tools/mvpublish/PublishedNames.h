// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// The names under which files are published, relative to the tree, and the publisher of each.
/// Names are compared without regard to case, since the file systems of some clients ignore it.
class PublishedNames
{
public:
    /// Reserves a name that every tree contains.
    void reserve(const QString& name, const QString& owner);
    /// Claims a name; it is a fault if another owner has claimed it. `source` is the published
    /// file, if several items may publish it.
    void claim(const QString& name, const QString& owner, const QString& source);
    /// Returns all faults, including those that show only once all names are known.
    QStringList faults() const;

private:
    struct Claim
    {
        QString name;
        QString owner;
        QString source;
    };

    QMap<QString, Claim> m_claims; // by lower-case name
    QStringList m_faults;
};
