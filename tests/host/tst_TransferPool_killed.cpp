// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "NamedParts.h"
#include "PoolRun.h"

#include <QProcess>

#include <algorithm>

namespace {

/// With this argument the program is the child, which downloads one address into six files.
const char* const childArgument = "--download";
constexpr int number = 6;

int downloadAsChild(const QString& url, const QString& folder)
{
    TransferPool pool(number);
    const QStringList names = numbered(QStringLiteral("/f"), number);
    for (const QString& name : names) {
        TransferPool::Job job;
        job.url = url;
        job.file = folder + name;
        pool.start(job);
    }
    while (pool.isBusy())
        pool.step();
    return 0;
}

/// Returns the temporary files that have received the first half.
QStringList halves(const PoolRun& run)
{
    QStringList parts = run.files().filter(QStringLiteral(".part"));
    const auto isShort = [&](const QString& part) { return QFile(run.path(part)).size() != 1000; };
    parts.erase(std::remove_if(parts.begin(), parts.end(), isShort), parts.end());
    return parts;
}

} // namespace

/// Tests what a process leaves that is killed while transfers run side by side into files with
/// temporary names.
class TestTransferPoolKilled : public QObject
{
    Q_OBJECT

private slots:
    void killLeavesPartsThatALaterPoolRemoves();
    void partsOfALivingPoolAreLeftAlone();
};

void TestTransferPoolKilled::killLeavesPartsThatALaterPoolRemoves()
{
    std::atomic<bool> isKilled{false};
    FaultServer server([&](HttpExchange& exchange) {
        if (isKilled)
            exchange.answer(HttpAnswer(200).body(pattern(2000)));
        else
            sendHalfAndStall(exchange);
    });
    const QString url = server.url(QStringLiteral("/file"));
    PoolRun run(number);
    CatalogueFiles::write(run.path(QStringLiteral("f1")), "older");
    QProcess child;
    child.setProcessEnvironment(withNamedParts());
    child.start(QCoreApplication::applicationFilePath(),
                {QString::fromLatin1(childArgument), url, run.folder().folder()});
    QVERIFY(QTest::qWaitFor([&] { return halves(run).size() == number; }, 30000));
    child.kill();
    QVERIFY(child.waitForFinished());
    isKilled = true;

    QCOMPARE(halves(run).size(), number);
    QCOMPARE(run.files().size(), number + 1);
    QCOMPARE(run.content(QStringLiteral("f1")), QByteArray("older"));

    const QStringList names = numbered(QStringLiteral("f"), number);
    for (const QString& name : names)
        run.start(url, name);
    QVERIFY(run.finish());
    QCOMPARE(run.files(), names);
    for (const QString& name : names)
        QCOMPARE(run.content(name), pattern(2000));
}

void TestTransferPoolKilled::partsOfALivingPoolAreLeftAlone()
{
    std::atomic<bool> isReleased{false};
    FaultServer server([&](HttpExchange& exchange) {
        if (exchange.request().target == "/quick") {
            exchange.answer(HttpAnswer(200).body("quick"));
            return;
        }
        exchange.answer(HttpAnswer(200).field("Content-Length", "2000").bareBody(pattern(1000)));
        holdUntil(exchange, [&] { return isReleased.load(); });
        exchange.send(pattern(2000).mid(1000));
    });
    PoolRun run(number);
    QProcess child;
    child.setProcessEnvironment(withNamedParts());
    child.start(QCoreApplication::applicationFilePath(),
                {QString::fromLatin1(childArgument), server.url(QStringLiteral("/file")),
                 run.folder().folder()});
    QVERIFY(QTest::qWaitFor([&] { return halves(run).size() == number; }, 30000));
    run.start(server.url(QStringLiteral("/quick")), QStringLiteral("quick"));
    QVERIFY(run.finish());
    QCOMPARE(halves(run).size(), number);
    isReleased = true;
    QVERIFY(child.waitForFinished());
    QCOMPARE(run.files(), numbered(QStringLiteral("f"), number) << QStringLiteral("quick"));
}

int main(int argc, char** argv)
{
    if (argc == 4 && qstrcmp(argv[1], childArgument) == 0)
        return downloadAsChild(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    const TestHome home;
    TestApplication<QCoreApplication> application(argc, argv);
    TestTransferPoolKilled test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_TransferPool_killed.moc"
