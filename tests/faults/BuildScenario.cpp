// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BuildScenario.h"

#include "support/CatalogueFiles.h"
#include "tools/Mvpublish.h"
#include "tools/SmallSource.h"

#include <QDir>
#include <QFile>

namespace {

const QString tree = QStringLiteral("trees/tree");
const QString aside = QStringLiteral("trees/.tree.new.old");

} // namespace

BuildScenario::BuildScenario(Place place, const QString& world)
    : Scenario(world)
    , m_place(place)
{
}

/// Writes two items only, which saves a thousand operations.
QString BuildScenario::prepare()
{
    const SmallSource all(source());
    for (const char* item : {"film", "text", "fade", "zoom"})
        QDir(all.file(QString::fromLatin1(item))).removeRecursively();
    QDir().mkpath(world() + QLatin1Char('/') + tree);
    // Every run must write the same release.
    qputenv("SOURCE_DATE_EPOCH", "4000000000");
    if (m_place == Place::Foreign) {
        CatalogueFiles::write(out() + QStringLiteral("/letter.txt"), "dear");
        return {};
    }
    if (m_place == Place::Link && !QFile::link(QStringLiteral("trees/tree"), out()))
        return QStringLiteral("no link");
    QString trouble = Mvpublish::build(source(), out());
    all.set(QStringLiteral("look"), "name", QStringLiteral("Other look"));
    CatalogueFiles::write(all.file(QStringLiteral("look/pack/a.txt")), "other content");
    return trouble;
}

QString BuildScenario::program() const
{
    return Mvpublish::program();
}

bool BuildScenario::isSuccess(int status) const
{
    constexpr int refused = 2;
    return status == (m_place == Place::Foreign ? refused : 0);
}

QStringList BuildScenario::arguments() const
{
    return {QStringLiteral("build"), source(), out()};
}

QString BuildScenario::out() const
{
    return world() + QLatin1Char('/') + (m_place == Place::Link ? QStringLiteral("live") : tree);
}

/// A tree must be replaced as a whole.
QString BuildScenario::brokenState(const States& states) const
{
    const WorldState now = states.now.below(tree);
    const WorldState before = states.before.below(tree);
    const WorldState after = states.after.below(tree);
    const bool isAside = !canExchange() && states.mayHaveLeftovers && now.entries().isEmpty()
        && states.now.below(aside).differenceFrom(before).isEmpty();
    if (!isAside && !now.differenceFrom(before).isEmpty() && !now.differenceFrom(after).isEmpty())
        return QStringLiteral("the tree is neither old nor new: ") + now.differenceFrom(before)
            + QStringLiteral("; ") + now.differenceFrom(after);
    const WorldState beside = states.now.without({QStringLiteral("trees/tree")});
    for (auto it = beside.entries().cbegin(); it != beside.entries().cend(); ++it) {
        const bool isLeft = it.key().startsWith(QLatin1String("trees/.tree."));
        if (it.key() != QLatin1String("trees") && !(isLeft && states.mayHaveLeftovers))
            return it.key() + QStringLiteral(" is left");
    }
    return {};
}
