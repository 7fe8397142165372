// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

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
    int themeType() const; ///< see MVThemeSortFilterProxyModel
    void setThemeType(int type);
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
    bool isMotionReduced() const;
    void setMotionReduced(bool reduced);

private:
    void read();
    void setAside();
    void store(const QString& key, const QJsonValue& value);

    QString m_file; // empty: changes are not stored
    QString m_problem;
    QJsonObject m_values;
};
