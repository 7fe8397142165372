// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "StorageScenario.h"

namespace {

const QString definition = QStringLiteral("root/Themes/config/PQD/Download/Themes/1.xml");
const QString ownFiles = QStringLiteral("root/Themes/config");

QString catalogueFile(const char* name)
{
    return QStringLiteral("root/Themes/ResourceConfig/") + QString::fromLatin1(name);
}

} // namespace

QString StorageScenario::prepare()
{
    m_shop.fresh(mvres());
    if (m_command == Command::Update)
        return prepareUpdate();
    if (!m_shop.fetch({1, 2}))
        return QStringLiteral("the themes cannot be fetched");
    if (m_command == Command::Clean) {
        CatalogueFiles::write(m_shop.file("Themes/old/old.zip"), "old");
        CatalogueFiles::write(m_shop.file("VideoFilters/old.xml"), "old");
    }
    return {};
}

QString StorageScenario::prepareUpdate()
{
    if (!m_shop.fetch({1}))
        return QStringLiteral("the theme cannot be fetched");
    const QByteArray changed = "PK\x03\x04" + QByteArray(100000, 'z'); // read in several pieces
    StorageWorld& world = m_shop.world();
    world.change("Themes/1.xml", StorageWorld::themeConfig({11, 12, 13}));
    world.change("VideoFilters/12.zip", changed);
    m_shop.change("Themes/1.zip", changed + '!');
    return {};
}

QStringList StorageScenario::command() const
{
    switch (m_command) {
    case Command::Update:
        return {QStringLiteral("update")};
    case Command::Remove:
        return {QStringLiteral("remove"), CatalogueFiles::guid(1)};
    case Command::Clean:
        return {QStringLiteral("clean")};
    }
    return {};
}

/// The ledger has the times of files, and what arrives or is removed has no lasting place.
QStringList StorageScenario::temporaryPlaces() const
{
    return {catalogueFile("ledger.txt"), catalogueFile("updates"), catalogueFile("updates.lock"),
            catalogueFile("removed")};
}

QString StorageScenario::brokenState(const States& states) const
{
    QString broken = MvresScenario::brokenState(states);
    if (!broken.isEmpty())
        return broken;
    if (m_command == Command::Clean)
        return CatalogueFiles::read(world() + QLatin1Char('/') + catalogueFile("ledger.txt"))
                   .isEmpty()
            ? QStringLiteral("the ledger is lost")
            : QString();
    const bool isNew = states.now.isSameAt(definition, states.after);
    const QStringList own{ownFiles};
    if (m_command == Command::Update && isNew)
        return states.now.within(own).differenceFrom(states.after.within(own));
    if (m_command == Command::Remove && !isNew)
        return states.now.within(own).differenceFrom(states.before.within(own));
    return {};
}
