#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// The names under which files are published, relative to the tree, and who publishes each.
/// Capitals and small letters are not told apart, since some clients' file systems do not.
class PublishedNames
{
public:
    /// Reserves a name that every tree has.
    void reserve(const QString& name, const QString& owner);
    /// A fault if somebody else publishes something under that name. `source` is the file that is
    /// published, if several items may publish the same one.
    void claim(const QString& name, const QString& owner, const QString& source);
    /// Faults that show once all names are known, and those met before.
    QStringList faults() const;

private:
    struct Claim
    {
        QString name;
        QString owner;
        QString source;
    };

    QMap<QString, Claim> m_claims; // by the name in small letters
    QStringList m_faults;
};
