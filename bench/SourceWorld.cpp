// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SourceWorld.h"

#include "Manifest.h"
#include "records/KindTable.h"
#include "Source.h"
#include "support/CatalogueFiles.h"

#include <QBuffer>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QByteArray thumbnail()
{
    QImage image(160, 90, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return bytes;
}

/// Every ten items are four filters, two transitions, a motion, a background and two themes.
ECfgItemType kindOf(int number)
{
    static const ECfgItemType kinds[] = {eCfgItem_Filter, eCfgItem_Filter,     eCfgItem_Filter,
                                         eCfgItem_Filter, eCfgItem_Transition, eCfgItem_Transition,
                                         eCfgItem_Motion, eCfgItem_BgMaterial, eCfgItem_Theme,
                                         eCfgItem_Theme};
    return kinds[number % 10];
}

QString pathOf(int number)
{
    return QStringLiteral("%1/item%2").arg(number / 100).arg(number);
}

QJsonObject use(int number)
{
    return {{QStringLiteral("item"), pathOf(number)},
            {QStringLiteral("attributes"),
             QJsonObject{{QStringLiteral("Duration"), QStringLiteral("1.5")}}}};
}

/// Adds a theme that uses items of its own group of ten.
void addTheme(QJsonObject& item, int number)
{
    const int first = number / 10 * 10;
    const auto scene = [first](int filter, int transition) {
        return QJsonObject{{QStringLiteral("Filter"), use(first + filter)},
                           {QStringLiteral("Transition"), use(first + transition)},
                           {QStringLiteral("ImageMotion"), use(first + 6)}};
    };
    item.insert(QStringLiteral("type"), QStringLiteral("travel"));
    item.insert(QStringLiteral("animation"), QStringLiteral("%1.gif").arg(number));
    item.insert(QStringLiteral("scenes"), QJsonArray{scene(0, 4), scene(1, 5), scene(2, 4)});
    item.insert(QStringLiteral("start"), QJsonObject{{QStringLiteral("Text"), use(first + 3)}});
}

} // namespace

SourceWorld::SourceWorld(const QString& folder)
    : m_folder(folder)
{
}

void SourceWorld::write(int items) const
{
    const QByteArray picture = thumbnail();
    // Lint would warn about the unchanged placeholder.
    const QByteArray animation =
        CatalogueFiles::read(QStringLiteral(":/placeholders/animation.gif")) + '\0';
    CatalogueFiles::write(source() + QLatin1Char('/') + Source::manifestName(),
                          "{\"version\": \"1.0.0\"}");
    for (int i = 0; i < items; ++i) {
        const QString folder = source() + QLatin1Char('/') + pathOf(i) + QLatin1Char('/');
        QJsonObject item{{QStringLiteral("guid"), CatalogueFiles::guid(i + 1)},
                         {QStringLiteral("kind"), KindTable::of(kindOf(i)).word()},
                         {QStringLiteral("name"), QStringLiteral("Item %1").arg(i)},
                         {QStringLiteral("thumbnail"), QStringLiteral("%1.png").arg(i)},
                         {QStringLiteral("files"), QJsonArray{QStringLiteral("data.bin")}}};
        if (kindOf(i) == eCfgItem_Theme) {
            addTheme(item, i);
            CatalogueFiles::write(folder + QStringLiteral("%1.gif").arg(i), animation);
        }
        CatalogueFiles::write(folder + QStringLiteral("%1.png").arg(i), picture);
        CatalogueFiles::write(folder + QStringLiteral("data.bin"),
                              QByteArray::number(i).leftJustified(2000, 'd')); // no two are equal
        CatalogueFiles::write(folder + Manifest::fileName(), QJsonDocument(item).toJson());
    }
}
