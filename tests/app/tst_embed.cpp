#include "ConsoleProgram.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QFile>
#include <QProcess>

#include <atomic>

/// The smallest host, examples/embed.
class tst_embed : public QObject
{
    Q_OBJECT

private slots:
    void wrongArguments_data();
    void wrongArguments();
    void favouritesSurviveAReload();
};

namespace {

const QString program = QStringLiteral(EMBED_PROGRAM);
const QString alpha = QStringLiteral("Alpha");

/// The editor's settings, and the server's address.
QString settingsFor(const EditorWorld& world)
{
    QString file = world.folder() + QStringLiteral("/host.ini");
    const QByteArray address =
        "[params]\nurl_themeRootDir=" + world.arguments().constLast().toUtf8();
    CatalogueFiles::write(file, CatalogueFiles::read(file).replace("[params]", address));
    return file;
}

} // namespace

void tst_embed::wrongArguments_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << QStringList();
    QTest::newRow("no such settings")
        << QStringList{QStringLiteral("/none"), QStringLiteral("/none")};
}

void tst_embed::wrongArguments()
{
    QFETCH(QStringList, arguments);
    const Outcome outcome = ConsoleProgram::run(program, arguments);
    QCOMPARE(outcome.status, 2);
    QVERIFY2(outcome.err.contains("usage: embed"), outcome.err.constData());
}

void tst_embed::favouritesSurviveAReload()
{
    std::atomic<bool> emptied{false};
    EditorWorld world;
    world.fillRoot({alpha});
    world.publish({alpha, QStringLiteral("Beta")});
    const QByteArray guid = EditorWorld::themeGuid(alpha).toUtf8();
    const QString favourites = world.data() + QStringLiteral("/ThemeCollect/ThemeCollect.json");
    CatalogueFiles::write(favourites, "{\"" + guid + "\": true}");
    // From then on the mark is only where one that the user makes would be.
    world.setFault([&](const HttpExchange&, int) {
        if (!emptied.exchange(true))
            CatalogueFiles::write(favourites, "{}");
        return false;
    });
    QProcess embed;
    embed.start(program, {settingsFor(world), world.root()});
    QTRY_VERIFY_WITH_TIMEOUT(emptied && CatalogueFiles::read(favourites).contains(guid), 20000);
    embed.kill();
    embed.waitForFinished();
}

MV_TEST_MAIN(tst_embed)
#include "tst_embed.moc"
