// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/TestTexts.h"

#include <QByteArray>
#include <QJsonArray>
#include <QMetaType>
#include <QString>

#include <functional>

/// A copy of SmallSource's clean tree for a test to break, and mvpublish's findings about it.
class BrokenTree
{
public:
    /// Builds the clean trees: a server's for the editions standard, 1 and 3, without a release,
    /// which every change would make stale, and an installation that shows the theme and has the
    /// motion built in. Returns an error; empty: success.
    static QString makeClean();
    static QString cleanServer();
    /// Returns the folder "Resource".
    static QString cleanInstallation();

    explicit BrokenTree(const QString& clean);

    QString folder() const { return m_folder; }
    QString file(const QString& name) const { return m_folder + QLatin1Char('/') + name; }
    QByteArray read(const QString& name) const;
    void write(const QString& name, const QByteArray& content) const;
    void remove(const QString& name) const;
    /// Replaces a text in a file; fails if it is not there.
    void replace(const QString& name, const QString& from, const QString& to) const;
    /// Replaces a text in every display catalogue.
    void replaceShown(const QString& from, const QString& to) const;
    /// Removes an item's entry from a display catalogue.
    void removeEntry(const QString& name, const QString& guid) const;
    /// Updates the version files to the catalogues on disk.
    void announce() const;

    /// Returns lint's findings.
    static QJsonArray findings(const QString& tree);

private:
    void announce(const QString& version, const char* element, const QString& catalogue) const;

    QString m_folder;
};

using Break = std::function<void(const BrokenTree&)>;
Q_DECLARE_METATYPE(Break)

/// Names and changes for rows of broken trees.
namespace Broken {

extern const QString configFile;
extern const QString displayFile;
extern const QString displayAffFile;
extern const QString versionFile;
extern const QString noneGuid; ///< GUID of the "none" entry

QString guid(const char* item);
/// Returns the GUID as encoded in names of the config catalogue.
QString encoded(const char* item);
/// Returns an "Item" element of a catalogue.
QString entry(const QString& itemGuid, const char* more);

Break replace(const QString& file, const QString& from, const QString& to);
Break remove(const QString& file);
Break write(const QString& file, const QByteArray& content);
Break cut(const QString& file, int bytes);
/// Replaces the file by a link to a copy outside the tree.
Break linkOut(const QString& file);

/// Returns whether the running row needs a link to a file, or a name, that this system lacks.
bool isRowImpossible();

/// Adds the columns of the rows.
void columns();
/// Adds a row that expects one error: its code, its place, and the GUID of the item concerned.
void row(const char* name, const Break& change, const char* code, const QString& file,
         const QString& item = QString());
/// Breaks a clean tree as the current row says and compares the findings. Returns a description of
/// what is wrong; empty: nothing.
QString check(const QString& clean);

} // namespace Broken
