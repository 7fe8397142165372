// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/CellText.h"

#include "browser/ItemBytes.h"
#include "records/SCfg_Item.h"
#include "records/ThemeTypes.h"

#include <QLocale>
#include <QStringList>

QString CellText::spoken(SCfg_Item& item, const SCellState& state)
{
    QStringList parts = {item.m_qsName};
    if (item.m_eType == eCfgItem_Theme)
        parts.append(themeType(item.m_nThemeType));
    if (state.isNew)
        parts.append(ofNew());
    if (state.isFavourite)
        parts.append(tr("favourite"));
    parts.append(ofFiles(state));
    if (state.files == SCellState::Files::Missing || state.files == SCellState::Files::Failed)
        parts.append(toFetch(item));
    if (state.isApplied)
        parts.append(tr("current"));
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

QString CellText::position(int number, int count)
{
    return tr("%1 of %2").arg(number).arg(count);
}

QString CellText::ofFiles(const SCellState& state)
{
    switch (state.files) {
    case SCellState::Files::OnDisk:
        return tr("on disk");
    case SCellState::Files::Missing:
        return tr("not downloaded");
    case SCellState::Files::Outdated:
        return tr("update available");
    case SCellState::Files::Downloading:
        return tr("downloading, %1 %").arg(state.percent);
    case SCellState::Files::Failed:
        return tr("download failed");
    }
    return {};
}

QString CellText::ofNew()
{
    return tr("new");
}

QString CellText::size(qint64 bytes)
{
    constexpr qint64 unit = 1000;
    constexpr qint64 manyUnits = 10; // from here on a decimal only takes time to listen to
    qint64 leading = bytes;
    while (leading >= unit)
        leading /= unit;
    const int decimals = leading < manyUnits ? 1 : 0;
    return QLocale().formattedDataSize(bytes, decimals, QLocale::DataSizeSIFormat);
}

/// Most themes are of no type in particular, which is not worth a word.
QString CellText::themeType(int code)
{
    const QString name = ThemeTypes::name(code);
    if (name == QLatin1String("festivals"))
        return tr("festivals");
    if (name == QLatin1String("travel"))
        return tr("travel");
    if (name == QLatin1String("banquets"))
        return tr("banquets");
    return {};
}

QString CellText::toFetch(SCfg_Item& item)
{
    const ItemBytes::Size bytes = ItemBytes().of(item);
    if (bytes.toFetch == 0)
        return {};
    return bytes.isKnown ? size(bytes.toFetch) : tr("at least %1").arg(size(bytes.toFetch));
}
