// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/EUIItemRole.h"
#include "browser/FiterItemWdg.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVResourceItemDelegate.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QMargins>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QSignalSpy>
#include <QStandardItemModel>

#include <memory>

/// Tests the sizes of cells and the widgets in them.
class tst_MVResourceItemDelegate : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void sizeAndPadding_data();
    void sizeAndPadding();
    void hasNoTypeAtFirst();
    void cellClass_data();
    void cellClass();
    void defaultEditor_data();
    void defaultEditor();
    void moreCell();
    void rowKnowsItsWidget();
    void rowForgetsADeadWidget();
    void rowThatIsGoneIsNotWritten();
    void editorDiesAfterTheEvent();
    void passesOnThatAnItemWasApplied();
    void clearsNoSelection();
    void forgetsADeadSelection();

private:
    QModelIndex addRow(const QString& guid);
    QWidget* open(const QModelIndex& index);
    MVThemeItemWdg* openTheme(int number);

    std::unique_ptr<BrowserWorld> m_world;
    QStandardItemModel m_rows;
    std::unique_ptr<QWidget> m_parent;
    std::unique_ptr<MVResourceItemDelegate> m_delegate;
};

namespace {

constexpr QSize itemSize(100, 80);

} // namespace

void tst_MVResourceItemDelegate::init()
{
    m_world = std::make_unique<BrowserWorld>();
    for (int number = 1; number <= 2; ++number)
        m_world->addTheme(number, QStringLiteral("Theme %1").arg(number));
    m_world->addFilter(11, QStringLiteral("Filter"));
    m_world->addBackground(21, QStringLiteral("Background"));
    m_world->load();
    m_parent = std::make_unique<QWidget>();
    m_delegate = std::make_unique<MVResourceItemDelegate>(nullptr);
    m_delegate->setItemSize(itemSize);
    m_delegate->setUIItemType(UIItem_Themes);
}

void tst_MVResourceItemDelegate::cleanup()
{
    m_parent.reset();
    m_delegate.reset();
    m_rows.clear();
}

QModelIndex tst_MVResourceItemDelegate::addRow(const QString& guid)
{
    auto row = std::make_unique<QStandardItem>();
    row->setData(guid, UIItemRole_GUID);
    m_rows.appendRow(row.release());
    return m_rows.index(m_rows.rowCount() - 1, 0);
}

QWidget* tst_MVResourceItemDelegate::open(const QModelIndex& index)
{
    return m_delegate->createEditor(m_parent.get(), QStyleOptionViewItem(), index);
}

MVThemeItemWdg* tst_MVResourceItemDelegate::openTheme(int number)
{
    return qobject_cast<MVThemeItemWdg*>(open(addRow(CatalogueFiles::guid(number))));
}

void tst_MVResourceItemDelegate::sizeAndPadding_data()
{
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("bottom");
    QTest::addColumn<int>("left");
    QTest::addColumn<QSize>("added");
    QTest::newRow("none") << 0 << 0 << 0 << 0 << QSize(0, 0);
    QTest::newRow("four values") << 1 << 20 << 300 << 4000 << QSize(4020, 301);
    QTest::newRow("one value") << 5 << -1 << -1 << -1 << QSize(10, 10);
    QTest::newRow("two values") << 5 << 8 << -1 << -1 << QSize(16, 10);
    QTest::newRow("three values") << 5 << 8 << 20 << -1 << QSize(16, 25);
    QTest::newRow("no right") << 5 << -1 << 20 << 300 << QSize(305, 25);
    QTest::newRow("no right, no left") << 5 << -1 << 20 << -1 << QSize(10, 25);
    QTest::newRow("no bottom") << 5 << 8 << -1 << 300 << QSize(308, 10);
    QTest::newRow("zero is a value") << 5 << 0 << 0 << 0 << QSize(0, 5);
    QTest::newRow("zero left beside a right") << 5 << 8 << 0 << 0 << QSize(8, 5);
    QTest::newRow("zero top") << 0 << -1 << -1 << -1 << QSize(0, 0);
    QTest::newRow("any negative value") << 5 << -7 << -20 << -300 << QSize(10, 10);
}

void tst_MVResourceItemDelegate::sizeAndPadding()
{
    QFETCH(int, top);
    QFETCH(int, right);
    QFETCH(int, bottom);
    QFETCH(int, left);
    QFETCH(QSize, added);
    m_delegate->setItemPadding(QMargins(left, top, right, bottom));
    const QStyleOptionViewItem option;
    QCOMPARE(m_delegate->sizeHint(option, QModelIndex()), itemSize + added);
    QCOMPARE(m_delegate->sizeHint(option, addRow(CatalogueFiles::guid(1))), itemSize + added);
    QCOMPARE(m_delegate->sizeHint(option, addRow(QString())), itemSize + added);
}

void tst_MVResourceItemDelegate::hasNoTypeAtFirst()
{
    const MVResourceItemDelegate fresh(nullptr);
    const QModelIndex index = addRow(CatalogueFiles::guid(1));
    const std::unique_ptr<QWidget> editor(
        fresh.createEditor(m_parent.get(), QStyleOptionViewItem(), index));
    QVERIFY(editor);
    QVERIFY(!qobject_cast<MVThemeItemWdg*>(editor.get()));
    QVERIFY(!index.data(UIItemRole_Widget).isValid());
}

void tst_MVResourceItemDelegate::cellClass_data()
{
    QTest::addColumn<EUIItemType>("type");
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("className");
    QTest::newRow("themes") << UIItem_Themes << 1 << QByteArray("MVThemeItemWdg");
    QTest::newRow("filters") << UIItem_Filters << 11 << QByteArray("FiterItemWdg");
    QTest::newRow("large filters") << UIItem_FiltersLarge << 11 << QByteArray("MVThemeItemWdg");
    QTest::newRow("backgrounds") << UIItem_BgMaterial << 21 << QByteArray("FiterItemWdg");
}

void tst_MVResourceItemDelegate::cellClass()
{
    QFETCH(EUIItemType, type);
    QFETCH(int, number);
    QFETCH(QByteArray, className);
    m_delegate->setUIItemType(type);
    auto* const cell = openTheme(number);
    QVERIFY(cell);
    QCOMPARE(QByteArray(cell->metaObject()->className()), className);
    QCOMPARE(cell->parentWidget(), m_parent.get());
    QVERIFY(cell->getItem());
    QCOMPARE(cell->getItem()->m_qsGUID, CatalogueFiles::guid(number));
    QCOMPARE(pageOf(cell), QStringLiteral("pageShow"));
}

void tst_MVResourceItemDelegate::defaultEditor_data()
{
    QTest::addColumn<EUIItemType>("type");
    QTest::addColumn<QString>("guid");
    const auto row = [](const char* title, EUIItemType type, const QString& guid) {
        QTest::newRow(title) << type << guid;
    };
    const QString unknown = CatalogueFiles::guid(99);
    const QString theme = CatalogueFiles::guid(1);
    const QString filter = CatalogueFiles::guid(11);
    const QString background = CatalogueFiles::guid(21);
    row("themes, unknown", UIItem_Themes, unknown);
    row("themes, in other case", UIItem_Themes, theme.toLower());
    row("themes, a filter", UIItem_Themes, filter);
    row("filters, unknown", UIItem_Filters, unknown);
    row("filters, a background", UIItem_Filters, background);
    row("filters, no GUID", UIItem_Filters, QString());
    row("filters, not a GUID", UIItem_Filters, QStringLiteral("more"));
    row("large filters, unknown", UIItem_FiltersLarge, unknown);
    row("large filters, a theme", UIItem_FiltersLarge, theme);
    row("large filters, no GUID", UIItem_FiltersLarge, QString());
    row("backgrounds, unknown", UIItem_BgMaterial, unknown);
    row("backgrounds, a filter", UIItem_BgMaterial, filter);
    row("backgrounds, no GUID", UIItem_BgMaterial, QString());
    row("no type, a theme", UIItem_None, theme);
    row("no type, no GUID", UIItem_None, QString());
    row("another type", static_cast<EUIItemType>(5), theme);
}

void tst_MVResourceItemDelegate::defaultEditor()
{
    QFETCH(EUIItemType, type);
    QFETCH(QString, guid);
    m_delegate->setUIItemType(type);
    const QModelIndex index = addRow(guid);
    QWidget* const editor = open(index);
    QVERIFY(editor);
    QVERIFY(!qobject_cast<MVThemeItemWdg*>(editor));
    QVERIFY(!index.data(UIItemRole_Widget).isValid());
    const QPointer<QWidget> alive(editor);
    m_delegate->destroyEditor(editor, index);
    QTRY_VERIFY(!alive);
}

void tst_MVResourceItemDelegate::moreCell()
{
    for (const QString& guid : {QString(), QStringLiteral("more"), QUuid().toString()}) {
        const QModelIndex index = addRow(guid);
        auto* const cell = qobject_cast<MVThemeItemWdg*>(open(index));
        QVERIFY(cell);
        QCOMPARE(QByteArray(cell->metaObject()->className()), QByteArray("MVThemeItemWdg"));
        QVERIFY(!cell->getItem());
        QCOMPARE(pageOf(cell), QStringLiteral("pageMore"));
        QCOMPARE(index.data(UIItemRole_Widget).value<QObject*>(), cell);
    }
}

void tst_MVResourceItemDelegate::rowKnowsItsWidget()
{
    const QModelIndex index = addRow(CatalogueFiles::guid(1));
    QWidget* const editor = open(index);
    const QVariant widget = index.data(UIItemRole_Widget);
    QCOMPARE(static_cast<int>(UIItemRole_Widget), 261);
    QCOMPARE(widget.userType(), qMetaTypeId<QObject*>());
    QCOMPARE(widget.value<QObject*>(), editor);
}

void tst_MVResourceItemDelegate::rowForgetsADeadWidget()
{
    const QModelIndex index = addRow(CatalogueFiles::guid(1));
    delete open(index);
    QVERIFY(!index.data(UIItemRole_Widget).value<QObject*>());
}

void tst_MVResourceItemDelegate::rowThatIsGoneIsNotWritten()
{
    const QModelIndex index = addRow(CatalogueFiles::guid(1));
    addRow(CatalogueFiles::guid(2));
    QWidget* const first = open(index);
    m_rows.removeRow(0);
    delete first;
    QVERIFY(!m_rows.index(0, 0).data(UIItemRole_Widget).isValid());
}

void tst_MVResourceItemDelegate::editorDiesAfterTheEvent()
{
    const QModelIndex index = addRow(CatalogueFiles::guid(1));
    const QPointer<QWidget> editor(open(index));
    m_delegate->destroyEditor(editor, index);
    QVERIFY(editor);
    QTRY_VERIFY(!editor);
    QVERIFY(!index.data(UIItemRole_Widget).value<QObject*>());
}

void tst_MVResourceItemDelegate::passesOnThatAnItemWasApplied()
{
    const QSignalSpy applied(m_delegate.get(), &MVResourceItemDelegate::sigThemeItemClicked);
    MVThemeItemWdg* const cell = openTheme(2);
    m_parent->show();
    cell->doApplyTheme();
    QCOMPARE(applied.size(), 1);
    QCOMPARE(applied.first().first().value<SCfg_Item*>(), BrowserWorld::theme(2));
}

void tst_MVResourceItemDelegate::clearsNoSelection()
{
    const MVThemeItemWdg* const cell = openTheme(1);
    m_delegate->onClearSelect();
    QVERIFY(!isMarked(cell));
}

void tst_MVResourceItemDelegate::forgetsADeadSelection()
{
    MVThemeItemWdg* const first = openTheme(1);
    MVThemeItemWdg* const second = openTheme(2);
    first->setSel(first);
    QVERIFY(isMarked(first));
    delete first;
    m_delegate->onClearSelect();
    second->setSel(second);
    QVERIFY(isMarked(second));
    m_delegate->onClearSelect();
    QVERIFY(!isMarked(second));
}

MV_WIDGET_TEST_MAIN(tst_MVResourceItemDelegate)

#include "tst_MVResourceItemDelegate.moc"
