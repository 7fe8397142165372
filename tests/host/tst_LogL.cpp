// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/LogL.h"
#include "support/LogCapture.h"
#include "support/TestMain.h"

#include <QCoreApplication>

#include <cstddef>
#include <cstdint>
#include <limits>

namespace {

/// Returns the log text of a line with this format and these arguments.
template <class... Arguments>
QByteArray logged(const char* format, Arguments... arguments)
{
    const LogCapture log;
    LogL("Part", 1, format, arguments...);
    return log.lines().size() == 1 ? log.texts().constFirst() : QByteArray("not one line");
}

void row(const char* name, const QByteArray& text, const QByteArray& expected)
{
    QTest::newRow(name) << text << expected;
}

} // namespace

class tst_LogL : public QObject
{
    Q_OBJECT

private slots:
    void passesCategoryAndLevel();

    void convertsIntegers_data();
    void convertsIntegers() { compareRow(); }
    void convertsEveryLength_data();
    void convertsEveryLength() { compareRow(); }
    void convertsFloatingPoint_data();
    void convertsFloatingPoint() { compareRow(); }
    void convertsTexts_data();
    void convertsTexts() { compareRow(); }
    void readsWidthAndPrecisionFromTheArguments_data();
    void readsWidthAndPrecisionFromTheArguments() { compareRow(); }
    void leavesWhatIsNotAConversion_data();
    void leavesWhatIsNotAConversion();
    void takesNoArgumentForWhatIsNotAConversion_data();
    void takesNoArgumentForWhatIsNotAConversion() { compareRow(); }
    void doesNotReadFormatsInArguments();
    void convertsAPointer();
    void writesLongTexts();
    void takesManyArgumentsInOrder();

private:
    static void addColumns();
    static void compareRow();
};

void tst_LogL::addColumns()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
}

void tst_LogL::compareRow()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(text, expected);
}

void tst_LogL::passesCategoryAndLevel()
{
    const LogCapture log;
    LogL("MVThemeMgr", 1, "first");
    LogL("CheckCfgWorker", 2, "%s", "second");
    const QVector<LogCapture::Line> expected{{"MVThemeMgr", 1, "first"},
                                             {"CheckCfgWorker", 2, "second"}};
    QCOMPARE(log.lines(), expected);
}

void tst_LogL::convertsIntegers_data()
{
    addColumns();
    row("d", logged("%d", -42), "-42");
    row("i", logged("%i", 42), "42");
    row("u", logged("%u", 4000000000U), "4000000000");
    row("o", logged("%o", 8U), "10");
    row("x", logged("%x", 0xBEEFU), "beef");
    row("X", logged("%X", 0xBEEFU), "BEEF");
    row("width", logged("[%5d]", 42), "[   42]");
    row("left", logged("[%-5d]", 42), "[42   ]");
    row("zeros", logged("[%05d]", -42), "[-0042]");
    row("plus", logged("%+d", 42), "+42");
    row("blank", logged("% d", 42), " 42");
    row("alternative", logged("%#x", 255U), "0xff");
    row("precision", logged("%.4d", 42), "0042");
    row("width and precision", logged("[%6.4d]", 42), "[  0042]");
    row("several flags", logged("[%-+6d]", 42), "[+42   ]");
    row("bool", logged("%d", true), "1");
    row("lowest", logged("%d", std::numeric_limits<int>::min()), "-2147483648");
}

void tst_LogL::convertsEveryLength_data()
{
    addColumns();
    row("hhd", logged("%hhd", 0x1FF), "-1");
    row("hhu", logged("%hhu", 0x1FF), "255");
    row("hd", logged("%hd", 0x1FFFF), "-1");
    row("hu", logged("%hu", 0x1FFFF), "65535");
    // Whatever the system's size of a long is.
    const long lowest = std::numeric_limits<long>::min();
    const unsigned long highest = std::numeric_limits<unsigned long>::max();
    row("ld", logged("%ld", lowest), QByteArray::number(qlonglong(lowest)));
    row("lu", logged("%lu", highest), QByteArray::number(qulonglong(highest)));
    row("lx", logged("%lx", highest), QByteArray::number(qulonglong(highest), 16));
    row("lld", logged("%lld", std::numeric_limits<long long>::max()), "9223372036854775807");
    row("llu", logged("%llu", 18446744073709551615ULL), "18446744073709551615");
    row("llo", logged("%llo", 8ULL), "10");
    row("zu", logged("%zu", std::size_t(5000000000)), "5000000000");
    row("zd", logged("%zd", std::ptrdiff_t(-5000000000)), "-5000000000");
    row("td", logged("%td", std::ptrdiff_t(-5000000000)), "-5000000000");
    row("tx", logged("%tx", std::ptrdiff_t(255)), "ff");
    row("jd", logged("%jd", std::intmax_t(-5000000000)), "-5000000000");
    row("ju", logged("%ju", std::uintmax_t(5000000000)), "5000000000");
    row("lf is f", logged("%lf", 0.5), "0.500000");
    row("width before length", logged("[%12lld]", 5LL), "[           5]");
}

void tst_LogL::convertsFloatingPoint_data()
{
    addColumns();
    row("f", logged("%f", 1.5), "1.500000");
    row("F", logged("%F", std::numeric_limits<double>::infinity()), "INF");
    row("e", logged("%e", 12345.678), "1.234568e+04");
    row("E", logged("%E", 0.5), "5.000000E-01");
    row("g", logged("%g", 0.0001), "0.0001");
    row("G", logged("%G", 1e-10), "1E-10");
    row("precision", logged("%.2f", 99.999), "100.00");
    row("no digits", logged("%.0f", 2.6), "3");
    row("point alone", logged("%.f", 2.6), "3");
    row("width", logged("[%8.3f]", 3.14159), "[   3.142]");
    row("not a number", logged("%f", std::numeric_limits<double>::quiet_NaN()), "nan");
}

void tst_LogL::convertsTexts_data()
{
    addColumns();
    row("s", logged("%s", "text"), "text");
    row("empty", logged("[%s]", ""), "[]");
    row("null", logged("%s", static_cast<const char*>(nullptr)), "(null)");
    row("UTF-8", logged("%s", "\xC3\xA9\xF0\x9F\x99\x82"), "\xC3\xA9\xF0\x9F\x99\x82");
    row("width", logged("[%6s]", "abc"), "[   abc]");
    row("left", logged("[%-6s]", "abc"), "[abc   ]");
    row("precision", logged("[%.2s]", "abc"), "[ab]");
    row("width and precision", logged("[%4.1s]", "abc"), "[   a]");
    row("null with a width", logged("[%8s]", static_cast<const char*>(nullptr)), "[  (null)]");
    row("null with a precision", logged("%.3s", static_cast<const char*>(nullptr)), "(nu");
    row("c", logged("%c%c", 'o', 'k'), "ok");
    row("c with a width", logged("[%3c]", 'x'), "[  x]");
    row("zero character", logged("a%cb", '\0'), QByteArray("a\0b", 3));
    row("percent sign", logged("100%%"), "100%");
    row("percent sign and text", logged("%%s"), "%s");
}

void tst_LogL::readsWidthAndPrecisionFromTheArguments_data()
{
    addColumns();
    row("width", logged("[%*d]", 5, 42), "[   42]");
    row("negative width", logged("[%*d]", -5, 42), "[42   ]");
    row("precision", logged("[%.*f]", 1, 2.25), "[2.2]");
    row("negative precision", logged("[%.*f]", -1, 2.25), "[2.250000]");
    row("both", logged("[%*.*f]", 7, 2, 2.25), "[   2.25]");
    row("of a text", logged("[%.*s]", 2, "abc"), "[ab]");
    row("then another", logged("[%*d|%s]", 3, 7, "x"), "[  7|x]");
}

void tst_LogL::leavesWhatIsNotAConversion_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const char* format :
         {"",
          "plain",
          "%",
          "a % ",
          "100%",
          "%1",
          "[%1]",
          "%1]",
          "%12",
          "%1 of %2",
          "%1%2",
          "%1%",
          "parseJson file[%1] error!",
          "thread id = [%1], index = [%2], download file = [%3], start Download!",
          "%-",
          "%05",
          "%.",
          "%1.2",
          "%l",
          "%ll",
          "%hh",
          "%lll",
          "%llld",
          "%hhhd",
          "%zzd",
          "%ls",
          "%lc",
          "%lp",
          "%hs",
          "%n",
          "%ln",
          "%a",
          "%k",
          "%Lf",
          "%S",
          "%C",
          "%m",
          "%\xC3\xA9",
          "%$d",
          "%1$d",
          "%'d",
          "%*",
          "%.*",
          "%*k",
          "%-%",
          "%l%",
          "% %"})
        QTest::addRow("\"%s\"", format) << QByteArray(format);
}

void tst_LogL::leavesWhatIsNotAConversion()
{
    QFETCH(QByteArray, format);
    QCOMPARE(logged(format.constData()), format);
}

void tst_LogL::takesNoArgumentForWhatIsNotAConversion_data()
{
    addColumns();
    row("placeholder", logged("[%1] %s", "file"), "[%1] file");
    row("placeholders that follow each other", logged("%1%2%d", 7), "%1%27");
    row("lone percent sign", logged("50%, %d", 7), "50%, 7");
    row("unknown conversion", logged("%k %d", 7), "%k 7");
    row("unknown with a star", logged("%*k %d", 7), "%*k 7");
    row("wide text", logged("%ls %d", 7), "%ls 7");
    row("percent sign for percent sign", logged("%% %d", 7), "% 7");
    row("in between", logged("%s [%1] %s", "a", "b"), "a [%1] b");
    row("an argument too many", logged("[%1]", "unused"), "[%1]");
}

void tst_LogL::doesNotReadFormatsInArguments()
{
    QCOMPARE(logged("%s", "%s %d %1 %n 100%"), QByteArray("%s %d %1 %n 100%"));
}

void tst_LogL::convertsAPointer()
{
    const int here = 0;
    const QByteArray expected = "0x" + QByteArray::number(reinterpret_cast<quintptr>(&here), 16);
    QCOMPARE(logged("%p", static_cast<const void*>(&here)), expected);
}

void tst_LogL::writesLongTexts()
{
    const QByteArray text(100000, 'x');
    QCOMPARE(logged("<%s>", text.constData()), '<' + text + '>');
    QCOMPARE(logged(text.constData()), text);
}

void tst_LogL::takesManyArgumentsInOrder()
{
    QCOMPARE(logged("%d %s %f %lld %c %u %zu %s %g %d", 1, "two", 3.0, 4LL, '5', 6U, std::size_t(7),
                    "eight", 9.0, 10),
             QByteArray("1 two 3.000000 4 5 6 7 eight 9 10"));
}

MV_TEST_MAIN(tst_LogL)
#include "tst_LogL.moc"
