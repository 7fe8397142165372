#include "Kinds.h"

#include <algorithm>

namespace Kinds {

const QVector<Kind>& all()
{
    static const QVector<Kind> kinds{
        {eCfgItem_Filter, QStringLiteral("filter"), QStringLiteral("Filter"),
         QStringLiteral("VideoFilters"), QStringLiteral("VideoFilter"), true},
        {eCfgItem_Transition, QStringLiteral("transition"), QStringLiteral("Transition"),
         QStringLiteral("Transitions"), QStringLiteral("Transition"), true},
        {eCfgItem_Motion, QStringLiteral("motion"), QStringLiteral("Motion"),
         QStringLiteral("Motions"), QStringLiteral("Motion"), true},
        {eCfgItem_Theme, QStringLiteral("theme"), QStringLiteral("Theme"), QStringLiteral("Themes"),
         QStringLiteral("Theme"), false},
        {eCfgItem_BgMaterial, QStringLiteral("bgmaterial"), QStringLiteral("BgMaterial"),
         QStringLiteral("BgMaterial"), QStringLiteral("BgMaterial"), false},
    };
    return kinds;
}

const Kind& of(ECfgItemType type)
{
    return all().at(type);
}

const Kind* byWord(const QString& word)
{
    const auto found = std::find_if(all().cbegin(), all().cend(),
                                    [&word](const Kind& kind) { return kind.word == word; });
    return found == all().cend() ? nullptr : &*found;
}

QString words()
{
    QStringList words;
    for (const Kind& kind : all())
        words.append(kind.word);
    return words.join(QStringLiteral(", "));
}

const QStringList& themeTypes()
{
    static const QStringList types{QStringLiteral("festivals"), QStringLiteral("travel"),
                                   QStringLiteral("banquets"), otherThemes};
    return types;
}

bool needsThumbnail(ECfgItemType type)
{
    return type != eCfgItem_Transition && type != eCfgItem_Motion;
}

bool needsAnimation(ECfgItemType type)
{
    return type == eCfgItem_Theme;
}

bool hasNoneEntry(ECfgItemType type)
{
    return type == eCfgItem_Filter || type == eCfgItem_BgMaterial;
}

} // namespace Kinds
