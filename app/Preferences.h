// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/SListFilter.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>

/// The user's preferences, kept in a JSON file between starts. Invalid values read as the defaults.
/// A change is stored at once and preserves the changes of other processes. GUI thread only; needs
/// no application object.
class Preferences
{
public:
    /// Reads the file. A malformed file is renamed to "NAME.damaged-1" or the next free number, and
    /// all values are the defaults. A file that is unreadable or not a regular file is left alone,
    /// and changes are not stored.
    explicit Preferences(const QString& file);
    /// Returns a message if either has happened; empty otherwise.
    QString problem() const { return m_problem; }

    int tab() const; ///< 0 to 3
    void setTab(int tab);
    /// Returns a type of MVThemeSortFilterProxyModel; never that of the favourites, which would
    /// hide everything else at the next start.
    int themeType() const;
    void setThemeType(int type);
    EListOrder order() const;
    void setOrder(EListOrder order);
    QByteArray geometry() const;
    void setGeometry(const QByteArray& geometry);
    /// Each is 0 to QWIDGETSIZE_MAX; empty if unknown.
    QList<int> splitterSizes() const;
    void setSplitterSizes(const QList<int>& sizes);
    /// Returns one of BrowserSkin::names().
    QString skin() const;
    void setSkin(const QString& skin);
    /// Returns one of BrowserLanguage::languages(); by default the system's, if available.
    QString language() const;
    void setLanguage(const QString& language);
    /// Returns the percentage; 0: the screen's own. Read when the program starts.
    int scale() const;
    void setScale(int percent);
    /// Unless the user has decided, the desktop's setting applies, see DesktopMotion.
    enum class Motion { AsDesktop, Reduced, Full };
    Motion motion() const;
    void setMotion(Motion motion);
    /// Returns whether there shall be less motion, by the preference or the desktop's setting.
    bool isMotionReduced() const;
    /// Returns the address of the resource server, which ends in "/"; empty: none chosen.
    QString server() const;
    void setServer(const QString& address);
    /// Returns the absolute path of the folder for downloads; empty: none chosen.
    QString downloadFolder() const;
    void setDownloadFolder(const QString& folder);
    /// Returns the number of files fetched at a time; 0: none chosen.
    int connections() const;
    void setConnections(int count);
    /// Returns whether a click applies an item; otherwise it only selects it.
    bool isAppliedByClick() const;
    void setAppliedByClick(bool applied);

    /// Returns whether the details are shown beside the lists.
    bool areDetailsUnfolded() const;
    void setDetailsUnfolded(bool areUnfolded);

    /// Returns the percentages offered as scales.
    static QList<int> offeredScales() { return {100, 125, 150, 175, 200}; }
    /// Returns why the last change could not be stored; empty if it was.
    QString storeError() const { return m_storeError; }

private:
    void read();
    void setAside();
    void store(const QString& key, const QJsonValue& value);
    QString writeToDisk(const QString& key, const QJsonValue& value) const;

    QString m_file; // empty: changes are not stored
    QString m_problem;
    QString m_storeError;
    QJsonObject m_values;
};
