// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "catalogue/MVThemeMgr.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QSignalSpy>
#include <QToolButton>

#include <functional>
#include <memory>

using Callback = std::function<void(ListWindow&)>;

/// Tests host callbacks that destroy their caller.
class tst_hostCallbacks : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void clickedCallback_data() { addReactions(); }
    void clickedCallback();
    void clickedCallbackAfterADownload_data() { addReactions(); }
    void clickedCallbackAfterADownload();
    void downloadedCallback_data() { addReactions(); }
    void downloadedCallback();
    void receiverOfTheSignal_data() { addReactions(); }
    void receiverOfTheSignal();
    void downloadCallback_data() { addReactions(); }
    void downloadCallback();
    void collectCallback_data() { addReactions(); }
    void collectCallback();
    void callbackThatReplacesItself();
    void callbackOfANewListIsCalledOnce();
    void noCallbacks();
    void callbacksAreShared();

private:
    static void addReactions();
    MVThemeItemWdg* cell(const char* name) const { return m_list->cell(QString::fromLatin1(name)); }
    MVThemeItemWdg::ItemCallback react(const Callback& reaction);

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
    QStringList m_told;
};

void tst_hostCallbacks::init()
{
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("Ready"));
    m_world->addTheme(2, QStringLiteral("Missing"), BrowserWorld::OnServer);
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
    m_told.clear();
}

void tst_hostCallbacks::cleanup()
{
    m_list.reset();
}

void tst_hostCallbacks::addReactions()
{
    QTest::addColumn<Callback>("reaction");
    const auto row = [](const char* title, const Callback& reaction) {
        QTest::newRow(title) << reaction;
    };
    row("clears the list", [](ListWindow& list) { list.view()->clear(); });
    row("clears the list and reloads the catalogue", [](ListWindow& list) {
        list.view()->clear();
        MVThemeMgr::init()->load(true);
    });
    row("refills the list", [](ListWindow& list) {
        list.view()->clear();
        MVThemeMgr::init()->load(true);
        list.view()->initData(QUuid(), false);
    });
    row("filters the list",
        [](ListWindow& list) { list.view()->reapplyFilter(999, QStringLiteral("nothing")); });
    row("clears the selection", [](ListWindow& list) { list.view()->onClearSelect(); });
    row("destroys the view", [](ListWindow& list) { delete list.view(); });
    row("destroys the view later", [](ListWindow& list) { list.view()->deleteLater(); });
    row("removes the callbacks", [](ListWindow&) {
        MVThemeItemWdg::setCbItemClicked(nullptr);
        MVThemeItemWdg::setCbItemDownloaded(nullptr);
        MVThemeItemSubwdgt_Preview::setCbBtnCollect(nullptr);
        MVThemeItemSubwdgt_Preview::setCbBtnDownload(nullptr);
    });
}

MVThemeItemWdg::ItemCallback tst_hostCallbacks::react(const Callback& reaction)
{
    return [this, reaction](SCfg_Item* item) {
        m_told.append(item->m_qsName);
        reaction(*m_list);
    };
}

void tst_hostCallbacks::clickedCallback()
{
    QFETCH(Callback, reaction);
    MVThemeItemWdg::setCbItemClicked(react(reaction));
    m_list->click(frameOf(cell("Ready")));
    QCOMPARE(m_told, QStringList{QStringLiteral("Ready")});
}

void tst_hostCallbacks::clickedCallbackAfterADownload()
{
    QFETCH(Callback, reaction);
    MVThemeItemWdg::setCbItemClicked(react(reaction));
    m_list->click(frameOf(cell("Missing")));
    QTRY_COMPARE(m_told, QStringList{QStringLiteral("Missing")});
}

void tst_hostCallbacks::downloadedCallback()
{
    QFETCH(Callback, reaction);
    MVThemeItemWdg::setCbItemDownloaded(react(reaction));
    m_list->click(frameOf(cell("Missing")));
    QTRY_COMPARE(m_told, QStringList{QStringLiteral("Missing")});
}

void tst_hostCallbacks::receiverOfTheSignal()
{
    QFETCH(Callback, reaction);
    connect(m_list->view(), &mvThemelistview::sigThemeItemClicked, this, react(reaction));
    m_list->click(frameOf(cell("Ready")));
    QCOMPARE(m_told, QStringList{QStringLiteral("Ready")});
}

void tst_hostCallbacks::downloadCallback()
{
    QFETCH(Callback, reaction);
    m_world->hold(QStringLiteral("/config/Themes/2.zip"));
    MVThemeItemSubwdgt_Preview::setCbBtnDownload(react(reaction));
    m_list->click(frameOf(cell("Missing")));
    QCOMPARE(m_told, QStringList{QStringLiteral("Missing")});
    m_world->release();
    m_list.reset();
}

void tst_hostCallbacks::collectCallback()
{
    QFETCH(Callback, reaction);
    MVThemeItemSubwdgt_Preview::setCbBtnCollect(react(reaction));
    m_list->moveTo(frameOf(cell("Ready")));
    m_list->click(buttonOf(cell("Ready"), "btnCollect_No"));
    QCOMPARE(m_told, QStringList{QStringLiteral("Ready")});
}

void tst_hostCallbacks::callbackThatReplacesItself()
{
    const auto padding = std::make_shared<QByteArray>(1000, 'x');
    MVThemeItemWdg::setCbItemClicked([this, padding](SCfg_Item*) {
        MVThemeItemWdg::setCbItemClicked(
            [this](SCfg_Item*) { m_told.append(QStringLiteral("second")); });
        m_told.append(QStringLiteral("first %1").arg(padding->size()));
    });
    m_list->click(frameOf(cell("Ready")));
    QCOMPARE(m_told, QStringList{QStringLiteral("first 1000")});
    m_list->click(frameOf(cell("Ready")));
    QCOMPARE(m_told.last(), QStringLiteral("second"));
    QCOMPARE(m_told.size(), 2);
}

/// The clicked callback destroys the old list; the end of the download is still reported once.
void tst_hostCallbacks::callbackOfANewListIsCalledOnce()
{
    const HostTrace trace;
    int clicked = 0;
    MVThemeItemWdg::setCbItemClicked([&](SCfg_Item*) {
        ++clicked;
        m_list->view()->clear();
        m_list->view()->initData(QUuid(), false);
    });
    m_list->click(frameOf(cell("Missing")));
    QTRY_COMPARE(trace.entries(), QStringList{QStringLiteral("downloaded Missing")});
    QCOMPARE(clicked, 1);
    QTRY_COMPARE(m_list->cellCount(), 2);
    QVERIFY(!isMarked(cell("Missing")));
}

void tst_hostCallbacks::noCallbacks()
{
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    m_list->click(frameOf(cell("Ready")));
    QCOMPARE(applied.size(), 1);
    m_list->click(frameOf(cell("Missing")));
    QTRY_COMPARE(applied.size(), 2);
    QVERIFY(isMarked(cell("Missing")));
}

void tst_hostCallbacks::callbacksAreShared()
{
    const HostTrace trace;
    ListWindow other(UIItem_Themes);
    other.fill();
    other.click(frameOf(other.cell(0)));
    m_list->click(frameOf(cell("Ready")));
    QCOMPARE(trace.count(QStringLiteral("clicked Ready")), 2);
}

MV_WIDGET_TEST_MAIN(tst_hostCallbacks)

#include "tst_hostCallbacks.moc"
