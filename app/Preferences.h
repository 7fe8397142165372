#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>

/// The user's preferences, kept in a JSON file from one start to the next.
/// Values that do not make sense read as the defaults. A change is stored at once and leaves alone
/// what other processes have changed. GUI thread only; needs no application object.
class Preferences
{
public:
    /// Reads the file. One that cannot be understood is renamed to "NAME.damaged-1" or the next
    /// free number, and all values are the defaults. One that cannot be read, or that is not a
    /// regular file, stays as it is, and changes are not stored.
    explicit Preferences(const QString& file);
    /// Says which of that has happened; empty: neither.
    QString problem() const { return m_problem; }

    int tab() const; ///< 0 to 3
    void setTab(int tab);
    int themeType() const; ///< see MVThemeSortFilterProxyModel
    void setThemeType(int type);
    QByteArray geometry() const;
    void setGeometry(const QByteArray& geometry);
    /// Each 0 to QWIDGETSIZE_MAX; empty: not known.
    QList<int> splitterSizes() const;
    void setSplitterSizes(const QList<int>& sizes);
    /// One of BrowserSkin::names().
    QString skin() const;
    void setSkin(const QString& skin);
    /// One of BrowserLanguage::languages(); that of the user's system at first, if it is there.
    QString language() const;
    void setLanguage(const QString& language);
    /// Per cent; 0: as the screen says. Read when the program starts.
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
