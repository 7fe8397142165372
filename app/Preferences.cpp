// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Preferences.h"

#include "browser/BrowserLanguage.h"
#include "browser/BrowserSkin.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "DesktopMotion.h"
#include "host/FileLock.h"
#include "host/HostSettings.h"
#include "ServerAddress.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QSaveFile>
#include <QWidget>

#include <algorithm>
#include <chrono>

namespace {

const QLatin1String tabKey("tab");
const QLatin1String typeKey("themeType");
const QLatin1String orderKey("order");
const QLatin1String geometryKey("geometry");
const QLatin1String splitterSizesKey("splitterSizes");
const QLatin1String skinKey("skin");
const QLatin1String languageKey("language");
const QLatin1String scaleKey("scale");
const QLatin1String motionKey("reduceMotion");
const QLatin1String serverKey("server");
const QLatin1String folderKey("downloadFolder");
const QLatin1String connectionsKey("connections");
const QLatin1String clickKey("applyByClick");
const QLatin1String detailsKey("details");

constexpr int lastTab = 3;
constexpr int lastType = 4;
constexpr int minScale = 50;
constexpr int maxScale = 400;
constexpr qint64 maxPreferencesBytes = 1024 * 1024;
constexpr std::chrono::seconds maxLockWait(1);

QString systemLanguage()
{
    const QLocale system = QLocale::system();
    const QStringList languages = BrowserLanguage::languages();
    if (languages.contains(system.name()))
        return system.name();
    const QString language = system.name().section(QLatin1Char('_'), 0, 0);
    return languages.contains(language) ? language : languages.constFirst();
}

/// Returns false for anything except an object. An empty file counts as an empty object.
bool parse(const QByteArray& content, QJsonObject& values)
{
    const QJsonDocument document = QJsonDocument::fromJson(content);
    if (content.size() > maxPreferencesBytes || !(content.isEmpty() || document.isObject()))
        return false;
    values = document.object();
    return true;
}

} // namespace

Preferences::Preferences(const QString& file)
    : m_file(file)
{
    if (QFileInfo::exists(file))
        read();
}

void Preferences::read()
{
    QFile file(m_file);
    const bool isRegular = QFileInfo(m_file).isFile(); // opening a pipe would block
    if (!isRegular || !file.open(QIODevice::ReadOnly)) {
        m_problem =
            QStringLiteral("preferences are not stored: %1: %2")
                .arg(m_file, isRegular ? file.errorString() : QStringLiteral("not a regular file"));
        m_file.clear();
        return;
    }
    if (parse(file.read(maxPreferencesBytes + 1), m_values))
        return;
    file.close();
    setAside();
}

void Preferences::setAside()
{
    QString kept;
    int number = 0;
    do {
        ++number;
        kept = QStringLiteral("%1.damaged-%2").arg(m_file, QString::number(number));
    } while (QFileInfo::exists(kept));
    if (QFile::rename(m_file, kept)) {
        m_problem =
            QStringLiteral("the preferences were damaged and start anew; they are kept in %1")
                .arg(kept);
        return;
    }
    m_problem = QStringLiteral("preferences are not stored: %1 is damaged and cannot be renamed")
                    .arg(m_file);
    m_file.clear();
}

void Preferences::store(const QString& key, const QJsonValue& value)
{
    m_values.insert(key, value);
    m_storeError = m_file.isEmpty() ? m_problem : writeToDisk(key, value);
}

/// Changes one value in the file. Returns why that failed; empty after a success.
QString Preferences::writeToDisk(const QString& key, const QJsonValue& value) const
{
    QDir().mkpath(QFileInfo(m_file).path());
    FileLock lock(m_file + QStringLiteral(".lock"));
    if (lock.lock(maxLockWait) != FileLock::Result::Locked)
        return QStringLiteral("%1.lock cannot be locked").arg(m_file);
    // Another process may have stored changes meanwhile.
    QJsonObject all = m_values;
    QFile present(m_file);
    if (present.open(QIODevice::ReadOnly) && parse(present.read(maxPreferencesBytes + 1), all))
        all.insert(key, value); // an undefined value removes it
    present.close();            // Windows replaces no open file
    QSaveFile file(m_file);
    const QByteArray text = QJsonDocument(all).toJson();
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
    return isWritten ? QString() : QStringLiteral("%1: %2").arg(m_file, file.errorString());
}

int Preferences::tab() const
{
    return qBound(0, m_values.value(tabKey).toInt(), lastTab);
}

void Preferences::setTab(int tab)
{
    store(tabKey, tab);
}

int Preferences::themeType() const
{
    const int all = MVThemeSortFilterProxyModel::allThemes;
    const int type = m_values.value(typeKey).toInt(all);
    const bool isType =
        type >= 0 && type <= lastType && type != MVThemeSortFilterProxyModel::favouriteThemes;
    return isType ? type : all;
}

void Preferences::setThemeType(int type)
{
    store(typeKey, type);
}

EListOrder Preferences::order() const
{
    const int order = m_values.value(orderKey).toInt();
    return order >= 0 && order <= static_cast<int>(EListOrder::Size)
        ? static_cast<EListOrder>(order)
        : EListOrder::Published;
}

void Preferences::setOrder(EListOrder order)
{
    store(orderKey, static_cast<int>(order));
}

QByteArray Preferences::geometry() const
{
    return QByteArray::fromBase64(m_values.value(geometryKey).toString().toLatin1());
}

void Preferences::setGeometry(const QByteArray& geometry)
{
    store(geometryKey, QString::fromLatin1(geometry.toBase64()));
}

QList<int> Preferences::splitterSizes() const
{
    QList<int> sizes;
    const QJsonArray stored = m_values.value(splitterSizesKey).toArray();
    for (const QJsonValue& size : stored)
        sizes.append(size.toInt(-1));
    const bool isSound = std::all_of(sizes.cbegin(), sizes.cend(),
                                     [](int size) { return size >= 0 && size <= QWIDGETSIZE_MAX; });
    return isSound ? sizes : QList<int>();
}

void Preferences::setSplitterSizes(const QList<int>& sizes)
{
    QJsonArray stored;
    for (const int size : sizes)
        stored.append(size);
    store(splitterSizesKey, stored);
}

QString Preferences::skin() const
{
    const QStringList skins = BrowserSkin::names();
    for (const QString& skin : {m_values.value(skinKey).toString(), hostSettings().currentSkin}) {
        if (skins.contains(skin))
            return skin;
    }
    return skins.constFirst();
}

void Preferences::setSkin(const QString& skin)
{
    store(skinKey, skin);
}

QString Preferences::language() const
{
    const QString language = m_values.value(languageKey).toString();
    return BrowserLanguage::languages().contains(language) ? language : systemLanguage();
}

void Preferences::setLanguage(const QString& language)
{
    store(languageKey, language);
}

int Preferences::scale() const
{
    const int scale = m_values.value(scaleKey).toInt();
    return scale >= minScale && scale <= maxScale ? scale : 0;
}

void Preferences::setScale(int percent)
{
    store(scaleKey, percent);
}

Preferences::Motion Preferences::motion() const
{
    const QJsonValue value = m_values.value(motionKey);
    if (!value.isBool())
        return Motion::AsDesktop;
    return value.toBool() ? Motion::Reduced : Motion::Full;
}

void Preferences::setMotion(Motion motion)
{
    if (motion == Motion::AsDesktop)
        store(motionKey, QJsonValue(QJsonValue::Undefined));
    else
        store(motionKey, motion == Motion::Reduced);
}

bool Preferences::isMotionReduced() const
{
    return motion() == Motion::AsDesktop ? DesktopMotion::isReduced() : motion() == Motion::Reduced;
}

QString Preferences::server() const
{
    return ServerAddress::normalized(m_values.value(serverKey).toString());
}

void Preferences::setServer(const QString& address)
{
    store(serverKey, address);
}

QString Preferences::downloadFolder() const
{
    const QString folder = m_values.value(folderKey).toString();
    return QDir::isAbsolutePath(folder) ? QDir::cleanPath(folder) : QString();
}

void Preferences::setDownloadFolder(const QString& folder)
{
    store(folderKey, folder);
}

int Preferences::connections() const
{
    const int count = m_values.value(connectionsKey).toInt();
    return count >= 1 && count <= HostSettings::maxTransfersSideBySide ? count : 0;
}

void Preferences::setConnections(int count)
{
    store(connectionsKey, count);
}

bool Preferences::isAppliedByClick() const
{
    return m_values.value(clickKey).toBool(true);
}

void Preferences::setAppliedByClick(bool applied)
{
    store(clickKey, applied);
}

bool Preferences::areDetailsUnfolded() const
{
    return m_values.value(detailsKey).toBool(true);
}

void Preferences::setDetailsUnfolded(bool areUnfolded)
{
    store(detailsKey, areUnfolded);
}
