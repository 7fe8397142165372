// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ChosenItems.h"

#include "catalogue/SearchWords.h"
#include "Console.h"
#include "ExitStatus.h"
#include "Items.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <functional>

namespace {

/// Returns the shown items whose name has a property, each GUID once.
QVector<SCfg_Item*> itemsWhere(const std::function<bool(const QString& name)>& isWanted)
{
    QVector<SCfg_Item*> found;
    const QVector<SCfg_Item*> all = Items::displayed();
    for (SCfg_Item* const item : all) {
        const bool isKnown =
            std::any_of(found.cbegin(), found.cend(), [item](const SCfg_Item* other) {
                return other->m_qsGUID == item->m_qsGUID && other->m_eType == item->m_eType;
            });
        if (!isKnown && isWanted(item->m_qsName))
            found.append(item);
    }
    return found;
}

/// Returns the items that `text` may name, by the closest kind of match that has any.
QVector<SCfg_Item*> candidatesFor(const QString& text)
{
    const SearchWords words(text);
    if (words.isEmpty())
        return {};
    const QString folded = SearchWords::folded(text).simplified();
    const std::function<bool(const QString&)> matches[] = {
        [&](const QString& name) { return name == text; },
        [&](const QString& name) { return SearchWords::folded(name).simplified() == folded; },
        [&](const QString& name) { return words.matches(name); },
    };
    for (const auto& isMatch : matches) {
        QVector<SCfg_Item*> found = itemsWhere(isMatch);
        if (!found.isEmpty())
            return found;
    }
    return {};
}

} // namespace

ChosenItems::ChosenItems(ItemIndex& index)
    : m_index(index)
{
}

bool ChosenItems::choose(const QStringList& texts)
{
    for (const QString& text : texts) {
        SCfg_Item* const item = find(text);
        if (!item) {
            m_items.clear();
            return false;
        }
        if (!m_items.contains(item))
            m_items.append(item);
    }
    return true;
}

SCfg_Item* ChosenItems::find(const QString& text)
{
    if (SCfg_Item* const item = m_index.find(text))
        return item;
    const bool isGuid = text.startsWith(QLatin1Char('{')) || ItemIndex::isGuid(text);
    m_candidates = isGuid ? QVector<SCfg_Item*>() : candidatesFor(text);
    if (m_candidates.size() == 1)
        return m_candidates.constFirst();
    refuse(text);
    return nullptr;
}

void ChosenItems::refuse(const QString& text)
{
    if (!m_candidates.isEmpty())
        m_error = QStringLiteral("\"%1\" is the name of %2; give the GUID of one")
                      .arg(text, Console::counted(m_candidates.size(), QStringLiteral("item")));
    else if (text.startsWith(QLatin1Char('{')) || ItemIndex::isGuid(text))
        m_error = QStringLiteral("unknown GUID %1").arg(text);
    else
        m_error = QStringLiteral("no item is called \"%1\"").arg(text);
}

int ChosenItems::fail() const
{
    constexpr int maxLines = 20;
    QJsonArray candidates;
    for (const SCfg_Item* const item : m_candidates) {
        candidates.append(QJsonObject{{QStringLiteral("guid"), item->m_qsGUID},
                                      {QStringLiteral("kind"), Items::kindName(item->m_eType)},
                                      {QStringLiteral("name"), item->m_qsName}});
    }
    const int status = Console::fail(ExitStatus::failure, m_error,
                                     m_candidates.isEmpty()
                                         ? QJsonObject()
                                         : QJsonObject{{QStringLiteral("candidates"), candidates}});
    const auto count = m_candidates.size();
    for (int number = 0; number < std::min<int>(static_cast<int>(count), maxLines); ++number) {
        const SCfg_Item* const item = m_candidates.at(number);
        Console::note(QStringLiteral("%1  %2  %3")
                          .arg(item->m_qsGUID, Items::kindName(item->m_eType), item->m_qsName));
    }
    if (count > maxLines)
        Console::note(QStringLiteral("and %1 more").arg(count - maxLines));
    return status;
}
