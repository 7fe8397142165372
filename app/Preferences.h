#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>

/// What the program remembers of its user from one start to the next, in an INI file of its own.
/// Values that do not make sense read as the defaults. GUI thread only.
class Preferences
{
public:
    explicit Preferences(const QString& iniFile);

    int tab() const; ///< 0 to 3
    void setTab(int tab);
    int themeType() const; ///< see MVThemeSortFilterProxyModel
    void setThemeType(int type);
    QByteArray geometry() const;
    void setGeometry(const QByteArray& geometry);
    QByteArray splitter() const;
    void setSplitter(const QByteArray& state);
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
    QSettings m_file;
};
