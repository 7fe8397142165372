#pragma once

#include <QString>

/// A publisher's source of many items, and the place of the tree that is built from it.
class SourceWorld
{
public:
    explicit SourceWorld(const QString& folder);

    /// Writes the source: of ten items two are themes, each of which uses seven others.
    void write(int items) const;

    QString source() const { return m_folder + QStringLiteral("/source"); }
    QString tree() const { return m_folder + QStringLiteral("/tree"); }

private:
    QString m_folder;
};
