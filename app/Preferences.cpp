#include "Preferences.h"

#include "browser/BrowserLanguage.h"
#include "browser/BrowserSkin.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "host/HostSettings.h"

#include <QLocale>

namespace {

const QLatin1String tabKey("window/tab");
const QLatin1String typeKey("window/themeType");
const QLatin1String geometryKey("window/geometry");
const QLatin1String splitterKey("window/splitter");
const QLatin1String skinKey("view/skin");
const QLatin1String languageKey("view/language");
const QLatin1String scaleKey("view/scale");
const QLatin1String motionKey("view/reduceMotion");

constexpr int lastTab = 3;
constexpr int lastType = 4;
constexpr int smallestScale = 50;
constexpr int largestScale = 400;

QString systemLanguage()
{
    const QLocale system = QLocale::system();
    const QStringList languages = BrowserLanguage::languages();
    if (languages.contains(system.name()))
        return system.name();
    const QString language = system.name().section(QLatin1Char('_'), 0, 0);
    return languages.contains(language) ? language : languages.constFirst();
}

} // namespace

Preferences::Preferences(const QString& iniFile)
    : m_file(iniFile, QSettings::IniFormat)
{
}

int Preferences::tab() const
{
    return qBound(0, m_file.value(tabKey, 0).toInt(), lastTab);
}

void Preferences::setTab(int tab)
{
    m_file.setValue(tabKey, tab);
}

int Preferences::themeType() const
{
    const int all = MVThemeSortFilterProxyModel::allThemes;
    const int type = m_file.value(typeKey, all).toInt();
    return type >= 0 && type <= lastType ? type : all;
}

void Preferences::setThemeType(int type)
{
    m_file.setValue(typeKey, type);
}

QByteArray Preferences::geometry() const
{
    return m_file.value(geometryKey).toByteArray();
}

void Preferences::setGeometry(const QByteArray& geometry)
{
    m_file.setValue(geometryKey, geometry);
}

QByteArray Preferences::splitter() const
{
    return m_file.value(splitterKey).toByteArray();
}

void Preferences::setSplitter(const QByteArray& state)
{
    m_file.setValue(splitterKey, state);
}

QString Preferences::skin() const
{
    const QStringList skins = BrowserSkin::names();
    for (const QString& skin : {m_file.value(skinKey).toString(), hostSettings().currentSkin}) {
        if (skins.contains(skin))
            return skin;
    }
    return skins.constFirst();
}

void Preferences::setSkin(const QString& skin)
{
    m_file.setValue(skinKey, skin);
}

QString Preferences::language() const
{
    const QString language = m_file.value(languageKey).toString();
    return BrowserLanguage::languages().contains(language) ? language : systemLanguage();
}

void Preferences::setLanguage(const QString& language)
{
    m_file.setValue(languageKey, language);
}

int Preferences::scale() const
{
    const int scale = m_file.value(scaleKey, 0).toInt();
    return scale >= smallestScale && scale <= largestScale ? scale : 0;
}

void Preferences::setScale(int percent)
{
    m_file.setValue(scaleKey, percent);
}

bool Preferences::isMotionReduced() const
{
    return m_file.value(motionKey, false).toBool();
}

void Preferences::setMotionReduced(bool reduced)
{
    m_file.setValue(motionKey, reduced);
}
