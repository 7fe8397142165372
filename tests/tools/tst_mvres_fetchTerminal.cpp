// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "Routes.h"
#include "SmallCatalogue.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "Terminal.h"

#include <QRegularExpression>

#include <csignal>
#include <memory>

namespace tst_mvres_fetchTerminal {

namespace {

constexpr int longestMs = 20000;

int widthOf(const QString& line)
{
    int width = 0;
    for (const QChar& character : line)
        width += character.unicode() > 0x2e80 ? 2 : 1; // enough for the names used here
    return width;
}

} // namespace

/// Tests the progress bar of mvres fetch on a terminal.
class TestMvresFetchTerminal : public QObject
{
    Q_OBJECT

private slots:
    void drawsABar();
    void staysWithinTheTerminal_data();
    void staysWithinTheTerminal();
    void followsTheTransfer();
    void interruptLeavesTheLine();
    void jsonDrawsNothing();

private:
    void prepare(const QString& name, const FaultServer::Handler& config,
                 const FaultServer::Handler& archive);
    void start(QProcess& process, const Terminal& terminal, const QStringList& options = {}) const;
    static QString barLine(const QByteArray& written);

    Mvres m_mvres;
    std::unique_ptr<FaultServer> m_server;
};

/// Publishes a theme of that name with a config file and an archive.
void TestMvresFetchTerminal::prepare(const QString& name, const FaultServer::Handler& config,
                                     const FaultServer::Handler& archive)
{
    m_mvres = Mvres();
    SmallCatalogue catalogue;
    catalogue.addTheme(1, name, text("/Themes/a theme with a long file name.xml"),
                       {text("/Themes/theme.zip")});
    catalogue.writeTo(m_mvres.installed());
    m_server = std::make_unique<FaultServer>([config, archive](HttpExchange& exchange) {
        (exchange.request().target.endsWith(".zip") ? archive : config)(exchange);
    });
    m_mvres.setServer(m_server->url(text("/")));
}

void TestMvresFetchTerminal::start(QProcess& process, const Terminal& terminal,
                                   const QStringList& options) const
{
    process.setProcessEnvironment(ConsoleProgram::utf8Environment());
    process.setStandardOutputFile(terminal.device());
    m_mvres.start(process, QStringList{text("fetch"), CatalogueFiles::guid(1)} + options);
}

/// Returns the current line with the bar.
QString TestMvresFetchTerminal::barLine(const QByteArray& written)
{
    return Terminal::screen(written).constFirst();
}

void TestMvresFetchTerminal::drawsABar()
{
    prepare(text("One"), Routes::body(SmallCatalogue::themeConfig({})), Routes::archive());
    Terminal terminal(200);
    QProcess process;
    start(process, terminal);
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);

    const QStringList screen = Terminal::screen(terminal.read());
    const QString full = text("One [") + QString(40, QLatin1Char('#')) + text("] 100% theme.zip");
    QCOMPARE(screen.constFirst(), full);
    // The bar is followed by the same lines as plain output.
    QVERIFY(screen.at(1).endsWith(text("/thumb.jpg")));
    QVERIFY(screen.at(screen.size() - 2).contains(text("complete, 4 files")));
    QCOMPARE(screen.constLast(), QString());
}

void TestMvresFetchTerminal::staysWithinTheTerminal_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("name");
    const QString longName =
        text("A theme with a name that is longer than most lines are wide, and "
             "then it goes on for a while");
    const QString chinese = QString(30, QChar(0x6625));
    for (const int columns : {200, 80, 60, 40, 20}) {
        QTest::addRow("%d, short name", columns) << columns << text("One");
        QTest::addRow("%d, long name", columns) << columns << longName;
    }
    QTest::newRow("80, wide characters") << 80 << chinese;
    QTest::newRow("41, wide characters") << 41 << chinese;
}

void TestMvresFetchTerminal::staysWithinTheTerminal()
{
    QFETCH(int, columns);
    QFETCH(QString, name);
    prepare(name, Routes::body(SmallCatalogue::themeConfig({})), Routes::stall());
    Terminal terminal(columns);
    QProcess process;
    start(process, terminal);
    QByteArray written;
    QTRY_VERIFY_WITH_TIMEOUT(barLine(written += terminal.read()).contains(text(".zip"))
                                 || m_server->requestCount() == 2,
                             longestMs);
    ConsoleProgram::signal(process, SIGINT);
    QCOMPARE(ConsoleProgram::end(process).status, 14);
    written += terminal.read();

    const QByteArray bars = written.left(written.indexOf('\n'));
    const QRegularExpression form(text("^.*\\[#* *\\] [ \\d]{3}% .*$"));
    const QByteArrayList parts = bars.split('\r').mid(1);
    QVERIFY(!parts.isEmpty());
    for (QByteArray part : parts) {
        if (part.isEmpty()) // the terminal's own, at the end
            continue;
        QVERIFY(part.endsWith("\033[K"));
        part.chop(3);
        const QString line = QString::fromUtf8(part);
        QVERIFY2(form.match(line).hasMatch(), part.constData());
        QVERIFY2(widthOf(line) < columns, part.constData());
    }
}

void TestMvresFetchTerminal::followsTheTransfer()
{
    Gate gate;
    prepare(text("One"), gate.body(SmallCatalogue::themeConfig({})),
            gate.body(Routes::archiveBytes(10)));
    Terminal terminal(200);
    QProcess process;
    start(process, terminal);
    QByteArray written;
    const auto shows = [&](int hashes, const char* rest) {
        const QString bar = QString(hashes, QLatin1Char('#')).leftJustified(40);
        return barLine(written += terminal.read()) == text("One [%1] %2").arg(bar, text(rest));
    };
    // Each answer is held halfway. The config file is worth 10 percent, the archive the rest.
    QTRY_VERIFY_WITH_TIMEOUT(shows(2, "  5% a theme with a long file name.xml"), longestMs);
    gate.open();
    QTRY_VERIFY_WITH_TIMEOUT(shows(22, " 55% theme.zip"), longestMs);
    gate.open();
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.status, 0);
    QVERIFY(shows(40, "100% theme.zip"));
}

/// Later output must not continue the bar's line.
void TestMvresFetchTerminal::interruptLeavesTheLine()
{
    prepare(text("One"), Routes::stall(), Routes::archive());
    Terminal terminal(80);
    QProcess process;
    start(process, terminal);
    QByteArray written;
    QTRY_VERIFY_WITH_TIMEOUT((written += terminal.read()).contains(".xml"), longestMs);
    ConsoleProgram::signal(process, SIGINT);
    QCOMPARE(ConsoleProgram::end(process).status, 14);
    const QStringList screen = Terminal::screen(written += terminal.read());
    QVERIFY2(screen.constFirst().startsWith(text("One [")), written.constData());
    QVERIFY(screen.at(screen.size() - 2).startsWith(CatalogueFiles::guid(1)));
}

void TestMvresFetchTerminal::jsonDrawsNothing()
{
    prepare(text("One"), Routes::body(SmallCatalogue::themeConfig({})), Routes::archive());
    Terminal terminal(80);
    QProcess process;
    start(process, terminal, {text("--json")});
    QCOMPARE(ConsoleProgram::end(process).status, 0);
    const QByteArray written = terminal.read();
    QVERIFY2(written.startsWith("[\r\n"), written.constData());
    QVERIFY(!written.contains('\033'));
}

MV_TEST_MAIN(TestMvresFetchTerminal)

} // namespace tst_mvres_fetchTerminal

#include "tst_mvres_fetchTerminal.moc"
