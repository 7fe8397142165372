// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "Routes.h"
#include "SmallCatalogue.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "Terminal.h"

#include <QCryptographicHash>

#include <csignal>
#include <memory>

namespace tst_mvres_checkTerminal {

namespace {

constexpr int longestMs = 20000;

const QByteArray picture = "\xff\xd8\xff\xe0 picture";
const QByteArray first = "/display/VideoFilters/a.jpg";
const QByteArray second = "/display/VideoFilters/b.jpg";

QByteArray md5(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

} // namespace

/// Tests the number of previews that mvres check shows on a terminal.
class TestMvresCheckTerminal : public QObject
{
    Q_OBJECT

private slots:
    void countsPreviews();
    void staysWithinTheTerminal();
    void interruptLeavesTheLine();
    void jsonDrawsNothing();

private:
    void prepare(const FaultServer::Handler& answerToSecond);
    void start(QProcess& process, const Terminal& terminal, const QStringList& options = {}) const;

    Mvres m_mvres;
    std::unique_ptr<FaultServer> m_server;
};

/// Publishes a new catalogue of two filters, each with a thumbnail and no preview, which counts as
/// done.
void TestMvresCheckTerminal::prepare(const FaultServer::Handler& answerToSecond)
{
    m_mvres = Mvres();
    m_mvres.set("paths/appData", m_mvres.base() + text("/appdata"));
    m_mvres.set("network/downloadRetries", text("0"));
    SmallCatalogue catalogue;
    catalogue.addFilter(1, text("Filter"), QString());
    catalogue.writeTo(m_mvres.installed());
    const QString filter = text("Filter");
    const QString one = CatalogueFiles::guid(1);
    const QString two = CatalogueFiles::guid(2);
    const QByteArray config =
        CatalogueFiles::document(CatalogueFiles::cfgGroup(filter, {{one, {}, {}}, {two, {}, {}}}));
    const QByteArray display = CatalogueFiles::document(CatalogueFiles::displayCategory(
        filter, {{one, text("a"), text("a.jpg")}, {two, text("b"), text("b.jpg")}}));
    const QByteArray version = "<ResourceVersion value=\"1.0.2\"><dislplay value=\"" + md5(display)
        + "\"/><config value=\"" + md5(config) + "\"/></ResourceVersion>";
    CatalogueFiles::write(m_mvres.installed()
                              + text("/Resource/ResourceConfig/resource_version.xml"),
                          "<ResourceVersion value=\"1.0.2\"/>");
    m_server = std::make_unique<FaultServer>(
        Routes::by({{"//ResourceConfig/resource_version_v3.xml", Routes::body(version)},
                    {"//ResourceConfig/resource_display.xml", Routes::body(display)},
                    {"//ResourceConfig/resource_config.xml", Routes::body(config)},
                    {first, Routes::body(picture)},
                    {second, answerToSecond}}));
    m_mvres.setServer(m_server->url(text("/")));
}

void TestMvresCheckTerminal::start(QProcess& process, const Terminal& terminal,
                                   const QStringList& options) const
{
    process.setProcessEnvironment(ConsoleProgram::utf8Environment());
    process.setStandardOutputFile(terminal.device());
    m_mvres.start(process, QStringList{text("check")} + options);
}

void TestMvresCheckTerminal::countsPreviews()
{
    Gate gate;
    prepare(gate.body(picture));
    Terminal terminal(80);
    QProcess process;
    start(process, terminal);
    QByteArray written;
    const auto shows = [&](const char* line) {
        return Terminal::screen(written += terminal.read()).contains(text(line));
    };
    QTRY_VERIFY_WITH_TIMEOUT(shows("previews: 3 of 4"), longestMs);
    gate.open();
    gate.open();
    QCOMPARE(ConsoleProgram::end(process).status, 20);
    const QStringList screen = Terminal::screen(written += terminal.read());
    // The other lines are those of plain output.
    QCOMPARE(screen.mid(1),
             (QStringList{text("the catalogue has been checked"), text("fetching previews"),
                          text("previews: 4 of 4"), text("all previews have been checked"),
                          text("catalogue: changed, the new one has been fetched"),
                          text("previews: 2 fetched, 0 present, 0 failed"), QString()}));
}

void TestMvresCheckTerminal::staysWithinTheTerminal()
{
    prepare(Routes::body(picture));
    Terminal terminal(10);
    QProcess process;
    start(process, terminal);
    QCOMPARE(ConsoleProgram::end(process).status, 20);
    const QByteArray written = terminal.read();
    const QByteArrayList parts = written.split('\r');
    int drawn = 0;
    for (QByteArray part : parts) {
        if (!part.endsWith("\033[K"))
            continue;
        part.chop(3);
        QVERIFY2(part.size() < 10, part.constData());
        ++drawn;
    }
    QVERIFY2(drawn > 0, written.constData());
}

/// Later output must not continue the line with the numbers.
void TestMvresCheckTerminal::interruptLeavesTheLine()
{
    prepare(Routes::stall());
    Terminal terminal(80);
    QProcess process;
    start(process, terminal);
    QByteArray written;
    QTRY_VERIFY_WITH_TIMEOUT((written += terminal.read()).contains("previews: 3 of 4"), longestMs);
    ConsoleProgram::signal(process, SIGINT);
    QCOMPARE(ConsoleProgram::end(process).status, 25);
    const QStringList screen = Terminal::screen(written += terminal.read());
    QCOMPARE(screen.mid(3, 2), (QStringList{text("previews: 3 of 4"), text("cancelling")}));
    QCOMPARE(screen.filter(text(" of 4")).size(), 1);
}

void TestMvresCheckTerminal::jsonDrawsNothing()
{
    prepare(Routes::body(picture));
    Terminal terminal(80);
    QProcess process;
    start(process, terminal, {text("--json")});
    QCOMPARE(ConsoleProgram::end(process).status, 20);
    const QByteArray written = terminal.read();
    QVERIFY2(written.startsWith("{\r\n"), written.constData());
    QVERIFY(!written.contains('\033'));
}

MV_TEST_MAIN(TestMvresCheckTerminal)

} // namespace tst_mvres_checkTerminal

#include "tst_mvres_checkTerminal.moc"
