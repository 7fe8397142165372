// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QFile>

/// Tests a server that fails once, at each of its requests in turn.
class tst_editor_faults : public QObject
{
    Q_OBJECT

private slots:
    void theNextStartMakesUpForIt_data();
    void theNextStartMakesUpForIt();
    void aFailedDownloadIsTriedAgain_data();
    void aFailedDownloadIsTriedAgain();
    void tryingAgainFindsWhatAFilterHides();
    void tryingAgainStaysInTheListThatIsShown();
};

namespace {

const QString publishedTheme = QStringLiteral("Alpha");

/// Makes one request fail, with an error status or a dropped connection.
EditorWorld::Fault failing(int request)
{
    return [request](HttpExchange& exchange, int number) {
        if (number != request)
            return false;
        if (request % 2 == 0)
            exchange.reset();
        else
            exchange.answer(HttpAnswer(500).body("out of order"));
        return true;
    };
}

} // namespace

void tst_editor_faults::theNextStartMakesUpForIt_data()
{
    QTest::addColumn<int>("request");
    const char* const requests[] = {
        "release",   "version",  "first catalogue file", "second catalogue file",
        "thumbnail", "animation"};
    int number = 0;
    for (const char* request : requests)
        QTest::newRow(request) << ++number;
}

void tst_editor_faults::theNextStartMakesUpForIt()
{
    QFETCH(int, request);
    EditorWorld world;
    world.publish({publishedTheme});
    world.setFault(failing(request));
    Editor editor(world);
    VERIFY_ENDED_WELL(editor.run(QStringLiteral("wait quiet\nclick tab 1\nclick cell Sepia\n")));
    QVERIFY(world.server().requestCount() >= request);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("click tab 0\nwait shown 2\n"
                                                       "wait quiet\n"
                                                       "click cell Alpha\n"
                                                       "wait applied Alpha\n")));
    const QString shown =
        world.root() + QStringLiteral("/Themes/display/PQD/Download/Themes/alpha");
    for (const char* preview : {".png", ".gif"})
        QVERIFY2(QFile::exists(shown + QLatin1String(preview)), preview);
}

void tst_editor_faults::aFailedDownloadIsTriedAgain_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::newRow("config file") << QByteArray("/config/Themes/alpha.xml");
    QTest::newRow("resource") << QByteArray("/config/Themes/alpha/theme.zip");
    QTest::newRow("what it uses") << QByteArray("/config/VideoFilters/sepia.xml");
}

void tst_editor_faults::aFailedDownloadIsTriedAgain()
{
    QFETCH(QByteArray, target);
    EditorWorld world;
    world.install({publishedTheme});
    world.publish({publishedTheme});
    auto failed = std::make_shared<std::atomic<bool>>(false);
    world.setFault([target, failed](HttpExchange& exchange, int) {
        if (exchange.request().target != target || failed->exchange(true))
            return false;
        exchange.answer(HttpAnswer(500).body("out of order"));
        return true;
    });
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait failed Alpha
        wait text failureTitle "the server reports an error"
        click widget failureDetails
        wait text failureText "%1"
        wait text failureText 500
        wait text failureText "%2"
        screenshot failed
        click widget failureRetry
        wait applied Alpha
        wait gone failureTitle
    )")
                                            .arg(QString::fromLatin1(target), world.root())));
}

namespace {

/// Makes the first request for a file fail.
EditorWorld::Fault failingOnce(const QByteArray& target)
{
    auto failed = std::make_shared<std::atomic<bool>>(false);
    return [target, failed](HttpExchange& exchange, int) {
        if (!exchange.request().target.contains(target) || failed->exchange(true))
            return false;
        exchange.answer(HttpAnswer(500).body("out of order"));
        return true;
    };
}

} // namespace

void tst_editor_faults::tryingAgainFindsWhatAFilterHides()
{
    EditorWorld world;
    const QStringList themes{publishedTheme, QStringLiteral("Beta")};
    world.install(themes);
    world.publish(themes);
    world.setFault(failingOnce("alpha/theme.zip"));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click cell Alpha
        wait failed Alpha
        press Ctrl+F
        type beta
        wait shown 1
        click tab 1
        click widget failureRetry
        wait shown 3
        wait applied Alpha
        wait gone failureTitle
    )")));
}

/// The item has a cell in both filter lists.
void tst_editor_faults::tryingAgainStaysInTheListThatIsShown()
{
    EditorWorld world;
    world.install({});
    world.publish({});
    world.setFault(failingOnce("sepia.xml"));
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral(R"(
        wait quiet
        click tab 1
        click widget largeCells
        click cell Sepia
        wait failed Sepia
        click widget failureRetry
        wait applied Sepia
    )")));
}

MV_TEST_MAIN(tst_editor_faults)
#include "tst_editor_faults.moc"
