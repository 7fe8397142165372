// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/TreeServer.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QProcess>

/// Tests examples/console, the host without windows and callbacks, and that the guide quotes it.
class tst_consoleExample : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void checksListsAndFetches();
    void unknownThemeEndsInAFailure();
    void unreachableServerEndsInAFailure();
    void wrongArgumentsAreRefused();
    void guideQuotesTheProgram();

private:
    struct Outcome
    {
        int status;
        QByteArray out;
    };
    Outcome run(const QStringList& arguments);
    QString settingsFor(const QString& server);

    TreeServer m_server;
};

namespace {

const QString theme = QStringLiteral("{C03E1D76-2CEA-5E2A-8517-C805C9A0C695}");
const char nameOfTheme[] = "White Christmas\n";

} // namespace

void tst_consoleExample::initTestCase()
{
    QVERIFY2(m_server.start(QStringLiteral(MV_SAMPLES "/server")),
             qPrintable(m_server.errorText()));
}

QString tst_consoleExample::settingsFor(const QString& server)
{
    QString path = home("settings.ini");
    CatalogueFiles::write(path,
                          "[paths]\nresources=" MV_SAMPLES
                          "/installed\n[params]\nhasMV=1\nurl_themeRootDir="
                              + server.toUtf8() + '\n');
    return path;
}

tst_consoleExample::Outcome tst_consoleExample::run(const QStringList& arguments)
{
    QProcess console;
    console.setProcessChannelMode(QProcess::MergedChannels);
    console.start(QStringLiteral(CONSOLE_PROGRAM), arguments);
    const bool hasEnded =
        console.waitForFinished(60000) && console.exitStatus() == QProcess::NormalExit;
    return {hasEnded ? console.exitCode() : -1, console.readAll().replace("\r\n", "\n")};
}

void tst_consoleExample::checksListsAndFetches()
{
    const Outcome outcome = run({settingsFor(m_server.url()), home("root"), theme});
    QVERIFY2(outcome.status == 0, outcome.out.constData());
    QVERIFY2(outcome.out.contains(nameOfTheme), outcome.out.constData());
    QVERIFY2(outcome.out.endsWith(theme.toUtf8() + '\n'), outcome.out.constData());
    QVERIFY(!CatalogueFiles::filesBelow(home("root")).filter(theme).isEmpty());
}

void tst_consoleExample::unknownThemeEndsInAFailure()
{
    const Outcome outcome = run({settingsFor(m_server.url()), home("root"), text("{none}")});
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.out.contains(nameOfTheme), outcome.out.constData());
}

void tst_consoleExample::unreachableServerEndsInAFailure()
{
    const Outcome outcome = run({settingsFor(text("http://127.0.0.1:1/")), home("other"), theme});
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.out.contains("check: "), outcome.out.constData());
}

void tst_consoleExample::wrongArgumentsAreRefused()
{
    const Outcome outcome = run({home("none.ini"), home("root"), theme});
    QCOMPARE(outcome.status, 2);
    QVERIFY2(outcome.out.contains("usage: console"), outcome.out.constData());
}

void tst_consoleExample::guideQuotesTheProgram()
{
    const QByteArray guide = CatalogueFiles::read(QStringLiteral(MV_DOCS "/host-guide.md"));
    const QByteArray program = CatalogueFiles::read(QStringLiteral(MV_CONSOLE_EXAMPLE));
    const int first = guide.indexOf("    ResourceCatalogue catalogue;\n");
    QVERIFY(first > 0);
    const QByteArray quoted = guide.mid(first, guide.indexOf("```", first) - first);
    QVERIFY2(program.contains(quoted), quoted.constData());
}

MV_TEST_MAIN(tst_consoleExample)
#include "tst_consoleExample.moc"
