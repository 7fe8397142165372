// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QSignalSpy>

#include <memory>

/// Tests that the host is told why a download failed.
class tst_MVThemeItemWdg_failed : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void toldBeforeTheEnd();
    void successIsNotReportedAsFailure();
    void cancellationIsNotReportedAsFailure();
    void heartComesBackUnderTheMouse();

private:
    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
    QStringList m_failures;
};

void tst_MVThemeItemWdg_failed::init()
{
    m_list.reset();
    m_failures.clear();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("One"), BrowserWorld::OnServer);
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
}

void tst_MVThemeItemWdg_failed::cleanup()
{
    MVThemeItemWdg::setCbItemFailed({});
}

void tst_MVThemeItemWdg_failed::toldBeforeTheEnd()
{
    HostTrace trace;
    MVThemeItemWdg::setCbItemFailed([&](SCfg_Item* item, const QString& errorText) {
        trace.note(QStringLiteral("failed ") + item->m_qsName);
        m_failures.append(errorText);
    });
    m_world->route(QStringLiteral("/config/Themes/1.zip"), [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(404).body("no such file"));
    });
    m_list->click(m_list->cell(0));
    QTRY_COMPARE(trace.entries(),
                 (QStringList{QStringLiteral("failed One"), QStringLiteral("downloaded One")}));
    QCOMPARE(m_failures.size(), 1);
    QVERIFY2(m_failures.constFirst().contains(QLatin1String("/config/Themes/1.zip")),
             qPrintable(m_failures.constFirst()));
    QVERIFY2(m_failures.constFirst().contains(QLatin1String("404")),
             qPrintable(m_failures.constFirst()));
}

void tst_MVThemeItemWdg_failed::successIsNotReportedAsFailure()
{
    const HostTrace trace;
    MVThemeItemWdg::setCbItemFailed(
        [this](SCfg_Item*, const QString& errorText) { m_failures.append(errorText); });
    m_list->click(m_list->cell(0));
    QTRY_COMPARE(trace.count(QStringLiteral("downloaded One")), 1);
    QCOMPARE(m_failures, QStringList());
}

void tst_MVThemeItemWdg_failed::cancellationIsNotReportedAsFailure()
{
    const HostTrace trace;
    MVThemeItemWdg::setCbItemFailed(
        [this](SCfg_Item*, const QString& errorText) { m_failures.append(errorText); });
    m_world->stall(QStringLiteral("/config/Themes/1.zip"));
    m_list->click(m_list->cell(0));
    QTRY_COMPARE(m_world->requests(QStringLiteral("/config/Themes/1.zip")), 1);
    m_list->cell(0)->cancelDownload();
    QTRY_COMPARE(trace.count(QStringLiteral("downloaded One")), 1);
    QCOMPARE(m_failures, QStringList());
}

void tst_MVThemeItemWdg_failed::heartComesBackUnderTheMouse()
{
    const HostTrace trace;
    m_list->moveTo(m_list->cell(0));
    m_list->click(m_list->cell(0));
    QTRY_COMPARE(trace.count(QStringLiteral("downloaded One")), 1);
    QVERIFY(m_list->cell(0)->findChild<QWidget*>(QStringLiteral("btnCollect_No"))->isVisible());
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemWdg_failed)
#include "tst_MVThemeItemWdg_failed.moc"
