// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Reads the editor's preferences, changes each one, and reads them again.

#include "browser/BrowserLanguage.h"
#include "browser/BrowserSkin.h"
#include "FuzzTarget.h"
#include "Preferences.h"
#include "Require.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "WriteGuard.h"

#include <QDebug>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QWidget>

#include <algorithm>

namespace {

class PreferencesTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override;

private:
    static QString described(const Preferences& preferences);
    static void checkRanges(const Preferences& preferences);
    void checkKept(const QByteArray& input, const Preferences& preferences) const;
    void checkChanges(Preferences& preferences, const QByteArray& input) const;

    const QString m_folder = TestHome::path() + QStringLiteral("/preferences");
    const QString m_file = m_folder + QStringLiteral("/preferences.json");
};

void PreferencesTarget::run(const QByteArray& input)
{
    QDir(m_folder).removeRecursively();
    CatalogueFiles::write(m_file, input);
    const WriteGuard guard({m_folder});
    Preferences preferences(m_file);
    checkKept(input, preferences);
    checkRanges(preferences);
    require(described(Preferences(m_file)) == described(preferences),
            "preferences read the same every time");
    checkChanges(preferences, input);
}

QString PreferencesTarget::described(const Preferences& preferences)
{
    QString text;
    QDebug(&text) << preferences.tab() << preferences.themeType() << preferences.geometry()
                  << preferences.splitterSizes() << preferences.skin() << preferences.language()
                  << preferences.scale() << preferences.isMotionReduced();
    return text;
}

void PreferencesTarget::checkRanges(const Preferences& preferences)
{
    constexpr int maxTab = 3;
    require(preferences.tab() >= 0 && preferences.tab() <= maxTab, "the tab exists");
    const QList<int> sizes = preferences.splitterSizes();
    require(std::all_of(sizes.cbegin(), sizes.cend(),
                        [](int size) { return size >= 0 && size <= QWIDGETSIZE_MAX; }),
            "sizes are those of widgets");
    require(BrowserSkin::names().contains(preferences.skin()), "the skin exists");
    require(BrowserLanguage::languages().contains(preferences.language()), "the language exists");
    const int scale = preferences.scale();
    require(scale == 0 || (scale >= 50 && scale <= 400), "the scale is in its range");
}

/// Requires an unreadable file to be kept aside unchanged, and nothing else.
void PreferencesTarget::checkKept(const QByteArray& input, const Preferences& preferences) const
{
    const QString kept = m_file + QStringLiteral(".damaged-1");
    const bool isDamaged = !input.isEmpty() && !QJsonDocument::fromJson(input).isObject();
    require(QFile::exists(kept) == isDamaged, "a file is kept aside if it is damaged");
    require(preferences.problem().isEmpty() != isDamaged, "a damaged file is a problem");
    if (isDamaged)
        require(CatalogueFiles::read(kept) == input, "what is kept aside is what was there");
}

void PreferencesTarget::checkChanges(Preferences& preferences, const QByteArray& input) const
{
    preferences.setTab(2);
    preferences.setThemeType(3);
    preferences.setGeometry("geometry");
    preferences.setSplitterSizes({1, 2});
    preferences.setSkin(BrowserSkin::names().constLast());
    preferences.setLanguage(QStringLiteral("ja"));
    preferences.setScale(150);
    preferences.setMotion(Preferences::Motion::Reduced);
    const Preferences stored(m_file);
    require(stored.problem().isEmpty(), "what was stored can be read", stored.problem());
    require(described(stored) == described(preferences), "changes are stored");
    require(stored.tab() == 2 && stored.themeType() == 3 && stored.geometry() == "geometry"
                && stored.splitterSizes() == QList<int>({1, 2}) && stored.scale() == 150
                && stored.isMotionReduced(),
            "a change reads as it was made", described(stored));

    const QStringList before = QJsonDocument::fromJson(input).object().keys();
    const QJsonObject after = QJsonDocument::fromJson(CatalogueFiles::read(m_file)).object();
    for (const QString& key : before)
        require(after.contains(key), "a change leaves the other values alone", key);
}

} // namespace

MV_FUZZ_TARGET(PreferencesTarget, QCoreApplication)
