// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/TestMain.h"

#include <QImage>

/// Tests that skin, language, scale and motion apply at once to open cells and persist.
class tst_editor_view : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void languageChangesOpenCellsAndStays();
    void skinChangesOpenCellsAndStays();
    void scaleAppliesAtTheNextStart();
    void reducedMotionPlaysOnlyOnDemand();
    void tabAndTypeStay();

private:
    std::unique_ptr<EditorWorld> m_world;
};

void tst_editor_view::init()
{
    m_world = std::make_unique<EditorWorld>();
    m_world->fillRoot({QStringLiteral("Alpha"), QStringLiteral("Beta")});
}

void tst_editor_view::languageChangesOpenCellsAndStays()
{
    VERIFY_ENDED_WELL(Editor(*m_world).run(QStringLiteral(R"(
        click cell Alpha
        wait applied Alpha
        wait text lblCur Current
        click action view
        click action language
        click action language.de
        wait text lblCur Aktuell
        wait text showFolder "Dateien im Ordner zeigen"
        wait text appliedKind "Feste"
        click action view
        click action language
        click action language.ja
        wait text lblMore "もっと見る"
        click action view
        click action language
        click action language.de
        wait text check "Jetzt prüfen"
    )"),
                                           false));
    VERIFY_ENDED_WELL(Editor(*m_world).run(
        QStringLiteral("wait text check \"Jetzt prüfen\"\n"
                       "wait status \"Offline: der Server ist nicht erreichbar; Katalog\"\n"),
        false));
}

void tst_editor_view::skinChangesOpenCellsAndStays()
{
    VERIFY_ENDED_WELL(Editor(*m_world).run(QStringLiteral(R"(
        click cell Alpha
        wait applied Alpha
        hover away
        wait quiet
        screenshot classical
        click action view
        click action skin
        click action skin.Elegance
        hover away
        wait quiet
        screenshot elegance
        click cell Beta
        wait applied Beta
    )"),
                                           false));
    const QString pictures = m_world->folder() + QStringLiteral("/pictures/");
    const QImage before(pictures + QStringLiteral("classical.png"));
    const QImage after(pictures + QStringLiteral("elegance.png"));
    QVERIFY(!before.isNull());
    const QPoint emptyPlace(before.width() / 3, before.height() * 3 / 4);
    QVERIFY(before.pixelColor(emptyPlace).lightness() > 200);
    QVERIFY(after.pixelColor(emptyPlace).lightness() < 60);

    VERIFY_ENDED_WELL(
        Editor(*m_world).run(QStringLiteral("wait quiet\nscreenshot again\n"), false));
    const QImage again(pictures + QStringLiteral("again.png"));
    QVERIFY(again.pixelColor(emptyPlace).lightness() < 60);
}

void tst_editor_view::scaleAppliesAtTheNextStart()
{
    VERIFY_ENDED_WELL(Editor(*m_world).run(QStringLiteral(R"(
        wait quiet
        screenshot before
        click action view
        click action scale
        click action scale.125
        wait message "next start"
    )"),
                                           false));
    VERIFY_ENDED_WELL(
        Editor(*m_world).run(QStringLiteral("wait quiet\nscreenshot after\n"), false));
    const QString pictures = m_world->folder() + QStringLiteral("/pictures/");
    const QImage before(pictures + QStringLiteral("before.png"));
    const QImage after(pictures + QStringLiteral("after.png"));
    QCOMPARE(before.devicePixelRatio(), 1.0);
    // The window keeps its size in scaled units, as far as the screen allows.
    QVERIFY2(after.height() > before.height() * 5 / 4 - 10,
             qPrintable(QString::number(after.height())));
}

void tst_editor_view::reducedMotionPlaysOnlyOnDemand()
{
    VERIFY_ENDED_WELL(Editor(*m_world).run(QStringLiteral(R"(
        click action view
        click action reduceMotion
        hover cell Alpha
        wait still Alpha
        click cell Alpha
        wait applied Alpha
        wait still Alpha
        press Space
        wait playing Alpha
        press Space
        wait still Alpha
    )"),
                                           false));
    VERIFY_ENDED_WELL(Editor(*m_world).run(QStringLiteral(R"(
        hover cell Alpha
        wait quiet
        wait still Alpha
        click action view
        click action reduceMotion
        hover cell Alpha
        wait playing Alpha
    )"),
                                           false));
}

void tst_editor_view::tabAndTypeStay()
{
    // Alpha belongs to the festivals.
    VERIFY_ENDED_WELL(Editor(*m_world).run(QStringLiteral(R"(
        wait shown 3
        click widget themeType
        press Down
        press Down
        press Enter
        wait shown 1
        click tab 2
        wait shown 1
        wait gone themeType
    )"),
                                           false));
    VERIFY_ENDED_WELL(Editor(*m_world).run(QStringLiteral(R"(
        wait gone themeType
        click cell Blue
        click tab 0
        wait shown 1
        click cell Alpha
    )"),
                                           false));
}

MV_TEST_MAIN(tst_editor_view)
#include "tst_editor_view.moc"
