#include "SourceItem.h"

QStringList SourceItem::uses() const
{
    QStringList guids;
    const auto add = [&guids](const SourceSlots& part) {
        for (const SourceUse& use : part)
            guids.append(use.item);
    };
    for (const SourceSlots& scene : scenes)
        add(scene);
    for (const SourceSlots* part : {&start, &end, &mask})
        add(*part);
    return guids;
}

namespace Slots {

const QVector<QPair<EDependType, QString>>& all()
{
    static const QVector<QPair<EDependType, QString>> names{
        {eDependType_Text, QStringLiteral("Text")},
        {eDependType_Filter, QStringLiteral("Filter")},
        {eDependType_Element, QStringLiteral("Element")},
        {eDependType_Transition, QStringLiteral("Transition")},
        {eDependType_ImageMotion, QStringLiteral("ImageMotion")},
    };
    return names;
}

ECfgItemType kind(EDependType slot)
{
    switch (slot) {
    case eDependType_Transition:
        return eCfgItem_Transition;
    case eDependType_ImageMotion:
        return eCfgItem_Motion;
    case eDependType_Text:
    case eDependType_Filter:
    case eDependType_Element:
        break;
    }
    return eCfgItem_Filter;
}

} // namespace Slots
