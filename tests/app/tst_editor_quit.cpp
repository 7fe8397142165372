// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QFile>

#include <functional>

/// Tests that quitting cancels running work and takes at most two seconds.
class tst_editor_quit : public QObject
{
    Q_OBJECT

private slots:
    void whileATransferStalls_data();
    void whileATransferStalls();
    void whileManyPreviewsStall();
    void whileTheSecondCatalogueFileStalls();

private:
    static void quitIsShort(EditorWorld& world, const QString& before,
                            const std::function<bool()>& reached);
};

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int longestMs = 8000; // the leak check takes time
#else
constexpr int longestMs = 2000;
#endif

} // namespace

void tst_editor_quit::whileATransferStalls_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QString>("before");
    QTest::newRow("download") << QByteArray("beta/theme.zip")
                              << QStringLiteral("wait shown 3\n"
                                                "wait quiet\n"
                                                "click cell Beta\n"
                                                "wait downloading Beta\n");
    QTest::newRow("download behind a filter") << QByteArray("beta/theme.zip")
                                              << QStringLiteral("wait shown 3\n"
                                                                "wait quiet\n"
                                                                "click cell Beta\n"
                                                                "wait downloading Beta\n"
                                                                "press Ctrl+F\n"
                                                                "type alpha\n"
                                                                // Qt fades in its clear button.
                                                                "hover away\n"
                                                                "hover cell Alpha\n"
                                                                "wait shown 1\n");
    QTest::newRow("version") << QByteArray("version") << QStringLiteral("wait phase catalogue\n");
    QTest::newRow("catalogue") << QByteArray("resource_config")
                               << QStringLiteral("wait phase catalogue\n");
    QTest::newRow("preview") << QByteArray("beta.gif") << QStringLiteral("wait phase previews\n");
}

void tst_editor_quit::whileATransferStalls()
{
    QFETCH(QByteArray, target);
    QFETCH(QString, before);
    EditorWorld world;
    world.install({QStringLiteral("Alpha")});
    world.publish({QStringLiteral("Alpha"), QStringLiteral("Beta")});
    auto stalled = std::make_shared<std::atomic<bool>>(false);
    world.setFault([target, stalled](HttpExchange& exchange, int) {
        if (!exchange.request().target.contains(target))
            return false;
        exchange.send("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\nbeginning");
        *stalled = true;
        exchange.stall();
        return true;
    });
    quitIsShort(world, before, [stalled] { return stalled->load(); });
    QVERIFY(!QFile::exists(world.themeFile(QStringLiteral("Beta"))));
}

/// Runs the script `before`, waits for a request to the server, quits and measures the time.
void tst_editor_quit::quitIsShort(EditorWorld& world, const QString& before,
                                  const std::function<bool()>& reached)
{
    Editor editor(world);
    const QString go = world.folder() + QStringLiteral("/go");
    const QString going = world.folder() + QStringLiteral("/going");
    const bool isAsked = before.contains(QStringLiteral("downloading"));
    const QString steps = isAsked ? QStringLiteral("awaitfile %1\n"
                                                   "press Ctrl+Q\n"
                                                   "hover widget confirmQuit\n"
                                                   "touch %2\n"
                                                   "click widget confirmQuit\n")
                                  : QStringLiteral("awaitfile %1\ntouch %2\npress Ctrl+Q\n");
    editor.start(before + steps.arg(go, going));
    QTRY_VERIFY_WITH_TIMEOUT(reached(), 20000);
    CatalogueFiles::write(go, QByteArray());
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(going), 20000);
    QElapsedTimer time;
    time.start();
    VERIFY_ENDED_WELL(editor.outcome());
    QVERIFY2(time.elapsed() < longestMs, QByteArray::number(time.elapsed()).constData());
}

void tst_editor_quit::whileManyPreviewsStall()
{
    EditorWorld world;
    QStringList themes;
    for (int number = 0; number < 100; ++number)
        themes.append(QStringLiteral("Theme %1").arg(number));
    world.publish(themes);
    auto stalled = std::make_shared<std::atomic<bool>>(false);
    world.setFault([stalled](HttpExchange& exchange, int) {
        if (!exchange.request().target.contains("display/Themes"))
            return false;
        *stalled = true;
        exchange.stall();
        return true;
    });
    quitIsShort(world, QStringLiteral("wait phase previews\n"),
                [stalled] { return stalled->load(); });
}

/// The first file has failed, so previews are fetched at the same time.
void tst_editor_quit::whileTheSecondCatalogueFileStalls()
{
    EditorWorld world;
    world.install({QStringLiteral("Alpha")});
    world.publish({QStringLiteral("Alpha"), QStringLiteral("Beta")});
    auto stalled = std::make_shared<std::atomic<bool>>(false);
    world.setFault([stalled](HttpExchange& exchange, int number) {
        // The first two ask for the release and the version file.
        if (number == 3)
            exchange.answer(HttpAnswer(500).body("out of order"));
        if (number != 4)
            return number == 3;
        *stalled = true;
        exchange.stall();
        return true;
    });
    quitIsShort(world, QStringLiteral("wait phase catalogue\n"),
                [stalled] { return stalled->load(); });
}

MV_TEST_MAIN(tst_editor_quit)
#include "tst_editor_quit.moc"
