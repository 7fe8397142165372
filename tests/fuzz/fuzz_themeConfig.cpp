// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Reads a theme's own config file with a catalogue of a filter, a transition and a motion.

#include "CatalogueWorld.h"
#include "FuzzTarget.h"
#include "Require.h"
#include "WriteGuard.h"

#include <QDebug>

namespace {

class ThemeConfigTarget : public FuzzTarget
{
public:
    ThemeConfigTarget();
    void run(const QByteArray& input) override;

private:
    static MVThemeMgr& manager() { return CatalogueWorld::manager(); }
    static QString described(const SThemes_a& theme);
    static void checkSlots(const SThemes_a::SDependArray& element);

    CatalogueWorld m_world;
};

ThemeConfigTarget::ThemeConfigTarget()
{
    const auto group = [](const char* name, int number) {
        return CatalogueFiles::cfgGroup(QString::fromLatin1(name),
                                        {{CatalogueFiles::guid(number), QString(), {}}});
    };
    CatalogueFiles::write(m_world.configXml(),
                          CatalogueFiles::document(group("Filter", 1) + group("Transition", 2)
                                                   + group("Motion", 3) + group("Theme", 4)));
}

void ThemeConfigTarget::run(const QByteArray& input)
{
    const QString file = m_world.base() + QStringLiteral("/theme.xml");
    CatalogueFiles::write(file, input);
    const WriteGuard guard({m_world.data()});
    manager().load(true); // also discards the themes parsed from the previous input
    SThemes_a former;
    SThemes_a* first = &former;
    SThemes_a* second = &former;
    manager().read_resource_config_Themes_a(file, first);
    manager().read_resource_config_Themes_a(file, second);
    require((first == &former) == (second == &former), "a file is accepted every time or never");
    if (first == &former)
        return;
    require(described(*first) == described(*second), "a theme reads the same every time");
    for (const SThemes_a::SDependArray& element : qAsConst(first->m_vecItems))
        checkSlots(element);
    checkSlots(first->m_aStart);
    checkSlots(first->m_aEnd);
    checkSlots(first->m_aMask);
}

QString ThemeConfigTarget::described(const SThemes_a& theme)
{
    QString text;
    QDebug out(&text);
    out << theme;
    for (const SThemes_a::SDependArray& element : theme.m_vecItems) {
        for (const SThemes_a::SDependInfo& slot : element)
            out << slot.m_mapAttr << slot.m_pItem;
    }
    return text;
}

void ThemeConfigTarget::checkSlots(const SThemes_a::SDependArray& element)
{
    for (const SThemes_a::SDependInfo& slot : element) {
        const SCfg_Item* const item = slot.m_pItem;
        require(!item || item->m_qsGUID == slot.m_qsGUID, "a slot holds the item that it names");
        require(!item || item->m_eType != eCfgItem_Theme, "no theme uses a theme");
    }
}

} // namespace

MV_FUZZ_TARGET(ThemeConfigTarget, QCoreApplication)
