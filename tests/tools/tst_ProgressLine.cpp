// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProgressLine.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "Terminal.h"

#include <QFile>

#include <cstdio>
#include <memory>

namespace {

using Stream = std::unique_ptr<FILE, decltype(&std::fclose)>;

Stream opened(const QString& path)
{
    return {std::fopen(path.toLocal8Bit().constData(), "w"), &std::fclose};
}

QStringList linesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void showAll(ProgressLine& line)
{
    for (int percent = 0; percent <= 100; ++percent) {
        line.show(percent, text("%1 percent").arg(percent));
        line.show(percent, text("again"));
    }
}

} // namespace

/// Tests the line with which all console programs show progress.
class TestProgressLine : public QObject
{
    Q_OBJECT

private slots:
    void inAFileEachTenthIsALine();
    void nothingElsewhereIfAskedFor();
    void restartBeginsWithALine();
    void onATerminalOneLineIsDrawnAnew();
    void clearLeavesNothing();
    void finishWithoutALineWritesNothing();
    void staysWithinTheTerminal();
    void controlCharactersBecomeBlanks();
    void percentOf_data();
    void percentOf();
};

void TestProgressLine::inAFileEachTenthIsALine()
{
    const QString file = home("tenths");
    {
        const Stream stream = opened(file);
        ProgressLine line(stream.get());
        showAll(line);
        line.finish();
    }
    QStringList expected;
    for (int percent = 0; percent <= 100; percent += 10)
        expected.append(text("%1 percent").arg(percent));
    QCOMPARE(linesOf(file), expected);
}

void TestProgressLine::nothingElsewhereIfAskedFor()
{
    const QString file = home("nothing");
    {
        const Stream stream = opened(file);
        ProgressLine line(stream.get(), ProgressLine::Elsewhere::Nothing);
        showAll(line);
        line.clear();
        line.finish();
    }
    QVERIFY(QFile::exists(file));
    QCOMPARE(linesOf(file), QStringList());
}

void TestProgressLine::restartBeginsWithALine()
{
    const QString file = home("restart");
    {
        const Stream stream = opened(file);
        ProgressLine line(stream.get());
        line.show(55, text("first"));
        line.show(56, text("same tenth"));
        line.restart();
        line.show(55, text("second"));
    }
    QCOMPARE(linesOf(file), (QStringList{text("first"), text("second")}));
}

void TestProgressLine::onATerminalOneLineIsDrawnAnew()
{
    Terminal terminal(80);
    const Stream stream = opened(terminal.device());
    ProgressLine line(stream.get());
    QVERIFY(line.isTerminal());
    QCOMPARE(line.room(), 79);
    showAll(line);
    line.finish();
    const QByteArray written = terminal.read();
    QCOMPARE(written.count("\033[K"), 101);
    QCOMPARE(Terminal::screen(written), (QStringList{text("100 percent"), QString()}));
}

void TestProgressLine::clearLeavesNothing()
{
    Terminal terminal(80);
    const Stream stream = opened(terminal.device());
    ProgressLine line(stream.get());
    showAll(line);
    line.clear();
    line.finish();
    QCOMPARE(Terminal::screen(terminal.read()), QStringList{QString()});
}

void TestProgressLine::finishWithoutALineWritesNothing()
{
    Terminal terminal(80);
    const Stream stream = opened(terminal.device());
    ProgressLine line(stream.get());
    line.finish();
    line.clear();
    std::fflush(stream.get());
    QCOMPARE(terminal.read(), QByteArray());
}

void TestProgressLine::staysWithinTheTerminal()
{
    Terminal terminal(12);
    const Stream stream = opened(terminal.device());
    ProgressLine line(stream.get());
    line.show(text("a line that is longer than that"));
    const QByteArray written = terminal.read();
    QCOMPARE(written, QByteArray("\ra li...that\033[K"));
}

void TestProgressLine::controlCharactersBecomeBlanks()
{
    const QString file = home("control");
    {
        const Stream stream = opened(file);
        ProgressLine(stream.get()).show(text("a\nb\033c"));
    }
    QCOMPARE(linesOf(file), QStringList{text("a b c")});
}

void TestProgressLine::percentOf_data()
{
    QTest::addColumn<qint64>("done");
    QTest::addColumn<qint64>("total");
    QTest::addColumn<int>("percent");
    const auto row = [](const char* name, qint64 done, qint64 total, int percent) {
        QTest::newRow(name) << done << total << percent;
    };
    row("beginning", 0, 7, 0);
    row("almost", 999, 1000, 99);
    row("all", 7, 7, 100);
    row("more", 9, 7, 100);
    row("less than nothing", -1, 7, 0);
    row("nothing to do", 0, 0, 100);
    row("terabytes", Q_INT64_C(5000000000000), Q_INT64_C(10000000000000), 50);
}

void TestProgressLine::percentOf()
{
    QFETCH(qint64, done);
    QFETCH(qint64, total);
    QTEST(ProgressLine::percentOf(done, total), "percent");
}

MV_TEST_MAIN(TestProgressLine)
#include "tst_ProgressLine.moc"
