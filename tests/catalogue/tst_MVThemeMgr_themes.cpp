// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CatalogueFixture.h"

#include <QDomDocument>

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests reading a theme's own config file.
class tst_MVThemeMgr_themes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void guidAndName();
    void slotsOfAnElement();
    void elementsInOrder();
    void edgesAreReadForOneSlotOnly();
    void onlyTheFirstOfEachEdgeIsRead();
    void maskWithTextOnlyStaysEmpty();
    void onlyTheFirstSlotAndGuidCount();
    void allAttributesAreKept();
    void slotWithoutGuidElement();
    void emptyTheme();
    void rootNameIsIgnored();

    void slotsResolveAmongTheirKind_data();
    void slotsResolveAmongTheirKind();
    void guidsAreComparedExactly();
    void firstOfEqualGuidsIsTaken();
    void malformedGuidIsNotLookedUp_data();
    void malformedGuidIsNotLookedUp();
    void absentSlotLeavesTheTarget();
    void unknownDependencyTypeIsNotLookedUp();

    void successIsLogged();
    void failureLeavesTheTarget();
    void readingAgainGivesANewTheme();

private:
    SThemes_a* read(const QByteArray& content)
    {
        Files::write(path(), content);
        SThemes_a* theme = nullptr;
        mgr().read_resource_config_Themes_a(path(), theme);
        return theme;
    }
    QString path() const { return m_fixture.base() + QStringLiteral("/theme.xml"); }
    static Mgr& mgr() { return CatalogueFixture::manager(); }

    CatalogueFixture m_fixture;
};

namespace {

// One item of each kind, by its number.
enum { filter = 1, transition = 2, motion = 3, background = 4, twins = 5 };

QByteArray guidBytes(int number)
{
    return Files::guid(number).toLatin1();
}

QByteArray slot(const char* name, const QByteArray& guid, const char* attributes = "")
{
    return QByteArray("<") + name + "><GUID " + attributes + '>' + guid + "</GUID></" + name + '>';
}

bool isEmpty(const SThemes_a::SDependInfo& info)
{
    return info.m_qsGUID.isEmpty() && !info.m_pItem && info.m_mapAttr.isEmpty();
}

QByteArray notFound(int type, const QByteArray& guid)
{
    return CatalogueFixture::line(
        1, "not find, eDependType = " + QByteArray::number(type) + ", m_qsGUID = " + guid);
}

} // namespace

void tst_MVThemeMgr_themes::init()
{
    m_fixture.fresh();
    const auto group = [](const char* name, const QVector<Files::CfgItem>& items) {
        return Files::cfgGroup(QString::fromLatin1(name), items);
    };
    Files::write(
        m_fixture.configXml(),
        Files::document(group("Filter",
                              {{Files::guid(filter), QString(), {}},
                               {Files::guid(twins), QStringLiteral("/first"), {}},
                               {Files::guid(twins), QStringLiteral("/second"), {}}})
                        + group("Transition", {{Files::guid(transition), QString(), {}}})
                        + group("Motion", {{Files::guid(motion), QString(), {}}})
                        + group("BgMaterial", {{Files::guid(background), QString(), {}}})));
    mgr().read_resource_config_xml();
}

void tst_MVThemeMgr_themes::guidAndName()
{
    const SThemes_a* theme = read("<T><Item/><GUID>{g}</GUID><Name>Sea &amp; \xc3\xa9</Name>"
                                  "<GUID>{h}</GUID><Name>no</Name></T>");
    QVERIFY(theme);
    QCOMPARE(theme->m_qsGUID, QStringLiteral("{g}"));
    QCOMPARE(theme->m_qsName, QString::fromUtf8("Sea & \xc3\xa9"));
}

void tst_MVThemeMgr_themes::slotsOfAnElement()
{
    // Reversed order: elements are found by name, not by position.
    const SThemes_a* theme =
        read("<T><Item>" + slot("ImageMotion", guidBytes(motion))
             + slot("Transition", guidBytes(transition)) + slot("Element", guidBytes(twins))
             + slot("Filter", guidBytes(filter)) + slot("Text", "{text}") + "</Item></T>");
    QVERIFY(theme);
    QCOMPARE(theme->m_vecItems.size(), 1);
    const SThemes_a::SDependArray& element = theme->m_vecItems.first();
    QCOMPARE(element[0].m_qsGUID, QStringLiteral("{text}"));
    QCOMPARE(element[1].m_qsGUID, Files::guid(filter));
    QCOMPARE(element[2].m_qsGUID, Files::guid(twins));
    QCOMPARE(element[3].m_qsGUID, Files::guid(transition));
    QCOMPARE(element[4].m_qsGUID, Files::guid(motion));
    QVERIFY(!element[0].m_pItem);
    QCOMPARE(element[1].m_pItem,
             mgr().findItemByIDFromConfig(eCfgItem_Filter, Files::guid(filter)));
    QVERIFY(element[2].m_pItem && element[3].m_pItem && element[4].m_pItem);
}

void tst_MVThemeMgr_themes::elementsInOrder()
{
    const SThemes_a* theme =
        read("<T><Item>" + slot("Text", "a") + "</Item><GUID/><Item/><Other><Item>"
             + slot("Text", "no") + "</Item></Other><item>" + slot("Text", "no") + "</item><Item>"
             + slot("Filter", "c") + "</Item></T>");
    QVERIFY(theme);
    QCOMPARE(theme->m_vecItems.size(), 3);
    QCOMPARE(theme->m_vecItems.at(0)[0].m_qsGUID, QStringLiteral("a"));
    for (const SThemes_a::SDependInfo& info : theme->m_vecItems.at(1))
        QVERIFY(isEmpty(info));
    QVERIFY(isEmpty(theme->m_vecItems.at(2)[0]));
    QCOMPARE(theme->m_vecItems.at(2)[1].m_qsGUID, QStringLiteral("c"));
}

void tst_MVThemeMgr_themes::edgesAreReadForOneSlotOnly()
{
    QByteArray all;
    for (const char* name : {"Text", "Filter", "Element", "Transition", "ImageMotion"})
        all += slot(name, guidBytes(filter), "k=\"v\"");
    const SThemes_a* theme = read("<T><Item_start>" + all + "</Item_start><Item_end>" + all
                                  + "</Item_end><Item_Mask>" + all + "</Item_Mask></T>");
    QVERIFY(theme);
    QVERIFY(theme->m_vecItems.isEmpty());
    const SCfg_Item* const item =
        mgr().findItemByIDFromConfig(eCfgItem_Filter, Files::guid(filter));
    for (int i = 0; i < 5; ++i) {
        for (const SThemes_a::SDependArray* edge : {&theme->m_aStart, &theme->m_aEnd}) {
            QCOMPARE(edge->at(i).m_pItem, i == eDependType_Text ? item : nullptr);
            QCOMPARE(isEmpty(edge->at(i)), i != eDependType_Text);
        }
        QCOMPARE(theme->m_aMask.at(i).m_pItem, i == eDependType_Filter ? item : nullptr);
        QCOMPARE(isEmpty(theme->m_aMask.at(i)), i != eDependType_Filter);
    }
}

void tst_MVThemeMgr_themes::onlyTheFirstOfEachEdgeIsRead()
{
    const SThemes_a* theme =
        read("<T><Item_start/><Item_start>" + slot("Text", "a") + "</Item_start><Item_end>"
             + slot("Text", "b") + "</Item_end><Item_end>" + slot("Text", "c") + "</Item_end></T>");
    QVERIFY(theme);
    QVERIFY(isEmpty(theme->m_aStart[0]));
    QCOMPARE(theme->m_aEnd[0].m_qsGUID, QStringLiteral("b"));
}

void tst_MVThemeMgr_themes::maskWithTextOnlyStaysEmpty()
{
    const SThemes_a* theme =
        read("<T><Item_Mask>" + slot("Text", guidBytes(filter)) + "</Item_Mask></T>");
    QVERIFY(theme);
    for (const SThemes_a::SDependInfo& info : theme->m_aMask)
        QVERIFY(isEmpty(info));
}

void tst_MVThemeMgr_themes::onlyTheFirstSlotAndGuidCount()
{
    const SThemes_a* theme =
        read("<T><Item><Text><GUID a=\"1\">x</GUID><GUID b=\"2\">y</GUID></Text>"
             + slot("Text", "z") + "</Item></T>");
    QVERIFY(theme);
    const SThemes_a::SDependInfo& info = theme->m_vecItems.first()[0];
    QCOMPARE(info.m_qsGUID, QStringLiteral("x"));
    QCOMPARE(info.m_mapAttr.keys(), QStringList{QStringLiteral("a")});
}

void tst_MVThemeMgr_themes::allAttributesAreKept()
{
    const SThemes_a* theme = read("<T><Item><Filter no=\"1\">"
                                  "<GUID start=\"0.5\" Name=\"a &lt;b&gt; \xc3\xa9\" empty=\"\" "
                                  "x:y='z' xmlns=\"urn\">g</GUID>"
                                  "</Filter></Item></T>");
    QVERIFY(theme);
    const QMap<QString, QString> expected{
        {QStringLiteral("start"), QStringLiteral("0.5")},
        {QStringLiteral("Name"), QString::fromUtf8("a <b> \xc3\xa9")},
        {QStringLiteral("empty"), QString::fromLatin1("")},
        {QStringLiteral("x:y"), QStringLiteral("z")},
        {QStringLiteral("xmlns"), QStringLiteral("urn")}};
    QCOMPARE(theme->m_vecItems.first()[1].m_mapAttr, expected);
}

void tst_MVThemeMgr_themes::slotWithoutGuidElement()
{
    const LogCapture log;
    const SThemes_a* theme = read("<T><Item><Text/><Filter>text</Filter></Item></T>");
    QVERIFY(theme);
    QVERIFY(isEmpty(theme->m_vecItems.first()[0]));
    QVERIFY(isEmpty(theme->m_vecItems.first()[1]));
    QCOMPARE(log.countContaining("not find"), 0);
}

void tst_MVThemeMgr_themes::emptyTheme()
{
    const SThemes_a* theme = read("<T/>");
    QVERIFY(theme);
    QCOMPARE(theme->m_qsGUID, QString());
    QCOMPARE(theme->m_qsName, QString());
    QVERIFY(theme->m_vecItems.isEmpty());
}

void tst_MVThemeMgr_themes::rootNameIsIgnored()
{
    const SThemes_a* theme = read("<Item><Item>" + slot("Text", "a") + "</Item></Item>");
    QVERIFY(theme);
    QCOMPARE(theme->m_vecItems.size(), 1);
}

void tst_MVThemeMgr_themes::slotsResolveAmongTheirKind_data()
{
    QTest::addColumn<int>("slotIndex");
    QTest::addColumn<int>("target");
    QTest::addColumn<bool>("found");
    const int targets[] = {filter, filter, filter, transition, motion};
    const char* const names[] = {"Text", "Filter", "Element", "Transition", "ImageMotion"};
    for (int index = 0; index < 5; ++index) {
        for (const int target : {filter, transition, motion, background})
            QTest::addRow("%s names item %d", names[index], target)
                << index << target << (targets[index] == target);
    }
}

void tst_MVThemeMgr_themes::slotsResolveAmongTheirKind()
{
    QFETCH(int, slotIndex);
    QFETCH(int, target);
    QFETCH(bool, found);
    const char* const names[] = {"Text", "Filter", "Element", "Transition", "ImageMotion"};
    const LogCapture log;
    const SThemes_a* theme =
        read("<T><Item>" + slot(names[slotIndex], guidBytes(target), "a=\"1\"") + "</Item></T>");
    QVERIFY(theme);
    const SThemes_a::SDependInfo& info = theme->m_vecItems.first().at(std::size_t(slotIndex));
    QCOMPARE(info.m_qsGUID, Files::guid(target));
    QCOMPARE(info.m_mapAttr.size(), 1);
    QCOMPARE(info.m_pItem != nullptr, found);
    if (found)
        QCOMPARE(info.m_pItem->m_qsGUID, Files::guid(target));
    QByteArrayList expected{m_fixture.checked(path(), 1)};
    if (!found)
        expected.append(notFound(slotIndex, guidBytes(target)));
    expected.append(m_fixture.line(1, "read [" + path().toUtf8() + "] is ok!"));
    QCOMPARE(m_fixture.described(log), expected);
}

void tst_MVThemeMgr_themes::guidsAreComparedExactly()
{
    for (const QByteArray& other :
         {guidBytes(filter).toLower(), guidBytes(filter).mid(1, 36), ' ' + guidBytes(filter)}) {
        const SThemes_a* theme = read("<T><Item>" + slot("Filter", other) + "</Item></T>");
        QVERIFY(theme);
        QVERIFY2(!theme->m_vecItems.first()[1].m_pItem, other.constData());
    }
}

void tst_MVThemeMgr_themes::firstOfEqualGuidsIsTaken()
{
    const SThemes_a* theme = read("<T><Item>" + slot("Filter", guidBytes(twins)) + "</Item></T>");
    QVERIFY(theme);
    QCOMPARE(theme->m_vecItems.first()[1].m_pItem->m_info_CfgXML.m_qsUrl, QStringLiteral("/first"));
}

void tst_MVThemeMgr_themes::malformedGuidIsNotLookedUp_data()
{
    QTest::addColumn<QByteArray>("guid");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("zero") << QByteArray("{00000000-0000-0000-0000-000000000000}");
    QTest::newRow("text") << QByteArray("nothing of the kind");
    QTest::newRow("cut") << guidBytes(filter).left(30);
}

void tst_MVThemeMgr_themes::malformedGuidIsNotLookedUp()
{
    QFETCH(QByteArray, guid);
    const LogCapture log;
    const SThemes_a* theme = read("<T><Item>" + slot("Filter", guid, "a=\"1\"") + "</Item></T>");
    QVERIFY(theme);
    const SThemes_a::SDependInfo& info = theme->m_vecItems.first()[1];
    QCOMPARE(info.m_qsGUID, QString::fromLatin1(guid));
    QCOMPARE(info.m_mapAttr.size(), 1);
    QVERIFY(!info.m_pItem);
    QCOMPARE(log.lines().size(), 2);
    QCOMPARE(log.countContaining("not find"), 0);
}

void tst_MVThemeMgr_themes::absentSlotLeavesTheTarget()
{
    QDomDocument doc;
    QVERIFY(doc.setContent("<Item>" + slot("Text", "x") + "</Item>"));
    SThemes_a::SDependInfo info;
    info.m_qsGUID = QStringLiteral("kept");
    mgr().read_resource_config_Themes_a_Sub(doc.documentElement(), QStringLiteral("Filter"),
                                            eDependType_Filter, info);
    QCOMPARE(info.m_qsGUID, QStringLiteral("kept"));
    mgr().read_resource_config_Themes_a_Sub(QDomElement(), QStringLiteral("Filter"),
                                            eDependType_Filter, info);
    QCOMPARE(info.m_qsGUID, QStringLiteral("kept"));
}

void tst_MVThemeMgr_themes::unknownDependencyTypeIsNotLookedUp()
{
    QDomDocument doc;
    QVERIFY(doc.setContent("<Item>" + slot("Text", guidBytes(filter), "a=\"1\"") + "</Item>"));
    const LogCapture log;
    SThemes_a::SDependInfo info;
    mgr().read_resource_config_Themes_a_Sub(doc.documentElement(), QStringLiteral("Text"),
                                            EDependType(5), info);
    QCOMPARE(info.m_qsGUID, Files::guid(filter));
    QCOMPARE(info.m_mapAttr.size(), 1);
    QVERIFY(!info.m_pItem);
    QVERIFY(log.lines().isEmpty());
}

void tst_MVThemeMgr_themes::successIsLogged()
{
    const LogCapture log;
    QVERIFY(read("<T/>"));
    QCOMPARE(m_fixture.described(log),
             (QByteArrayList{m_fixture.checked(path(), 1),
                             m_fixture.line(1, "read [" + path().toUtf8() + "] is ok!")}));
}

void tst_MVThemeMgr_themes::failureLeavesTheTarget()
{
    SThemes_a own;
    for (const char* content : {"", "<T>", "<!DOCTYPE T [<!ENTITY a \"b\">]><T>&a;</T>"}) {
        Files::write(path(), content);
        SThemes_a* theme = &own;
        const LogCapture log;
        mgr().read_resource_config_Themes_a(path(), theme);
        QCOMPARE(theme, &own);
        // The line before them names the reason for refusing entities.
        QCOMPARE(m_fixture.described(log).mid(log.lines().size() - 2),
                 (QByteArrayList{m_fixture.checked(path(), 0),
                                 m_fixture.line(1, "read [" + path().toUtf8() + "] is error!")}));
    }
}

void tst_MVThemeMgr_themes::readingAgainGivesANewTheme()
{
    SThemes_a* theme = read("<T><Name>one</Name></T>");
    SThemes_a* const first = theme;
    Files::write(path(), "<T><Name>two</Name></T>");
    mgr().read_resource_config_Themes_a(path(), theme);
    QVERIFY(theme != first);
    QCOMPARE(theme->m_qsName, QStringLiteral("two"));
    QCOMPARE(first->m_qsName, QStringLiteral("one"));
}

MV_TEST_MAIN(tst_MVThemeMgr_themes)
#include "tst_MVThemeMgr_themes.moc"
