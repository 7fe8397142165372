// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/LogL.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QVector>

#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

namespace {

struct Message
{
    QtMsgType type;
    QByteArray category;
    QString text;
    bool hasPlace; // in the source
};

std::mutex messagesMutex;  // guards messages
QVector<Message> messages; // the messages received by Qt's message handler

void keepMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const std::lock_guard<std::mutex> lock(messagesMutex);
    messages.append(
        {type, context.category, text, context.file || context.line != 0 || context.function});
}

/// Redirects Qt's messages into `messages` during its lifetime.
class MessageCapture
{
public:
    MessageCapture()
        : m_previous(qInstallMessageHandler(keepMessage))
    {
        messages.clear();
    }
    ~MessageCapture() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY_MOVE(MessageCapture)

private:
    QtMessageHandler m_previous;
};

/// Installs the default sink during its lifetime.
class DefaultSink
{
public:
    DefaultSink()
        : m_previous(setLogSink(LogSink()))
    {
    }
    ~DefaultSink() { setLogSink(m_previous); }
    Q_DISABLE_COPY_MOVE(DefaultSink)

private:
    LogSink m_previous;
};

constexpr int threadCount = 6;
constexpr int linesPerThread = 300;

template <class Work>
void onSeveralThreads(Work work)
{
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int number = 0; number < threadCount; ++number)
        threads.emplace_back(work, number);
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace

Q_DECLARE_METATYPE(QtMsgType)

class tst_LogSink : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theDefaultWritesToTheCategory_data();
    void theDefaultWritesToTheCategory();
    void theDefaultKeepsTheText_data();
    void theDefaultKeepsTheText();
    void theDefaultObeysTheFilterRules_data();
    void theDefaultObeysTheFilterRules();
    void theDefaultTakesEveryCategoryName();
    void replacingReturnsWhatWasThere();
    void anEmptySinkBringsTheDefaultBack();
    void aSinkMayLog();
    void aSinkMayReplaceItself();
    void severalThreadsReachTheSink();
    void severalThreadsReachTheDefault();
    void noLineIsLostWhileTheSinkChanges();
};

void tst_LogSink::init()
{
    QLoggingCategory::setFilterRules(QStringLiteral("*=true"));
}

void tst_LogSink::cleanup()
{
    QLoggingCategory::setFilterRules(QString());
}

void tst_LogSink::theDefaultWritesToTheCategory_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QtMsgType>("type");
    QTest::newRow("below 1") << 0 << QtDebugMsg;
    QTest::newRow("far below 1") << -5 << QtDebugMsg;
    QTest::newRow("1") << 1 << QtDebugMsg;
    QTest::newRow("2") << 2 << QtInfoMsg;
    QTest::newRow("3") << 3 << QtWarningMsg;
    QTest::newRow("above 3") << 4 << QtWarningMsg;
}

void tst_LogSink::theDefaultWritesToTheCategory()
{
    QFETCH(int, level);
    QFETCH(QtMsgType, type);
    const DefaultSink sink;
    const MessageCapture capture;
    LogL("MVThemeMgr", level, "%s %d", "line", 7);
    LogL("CheckCfgWorker", level, "other");
    QCOMPARE(messages.size(), 2);
    QCOMPARE(messages[0].type, type);
    QCOMPARE(messages[0].category, QByteArray("MVThemeMgr"));
    QCOMPARE(messages[0].text, QStringLiteral("line 7"));
    QCOMPARE(messages[1].type, type);
    QCOMPARE(messages[1].category, QByteArray("CheckCfgWorker"));
}

void tst_LogSink::theDefaultKeepsTheText_data()
{
    QTest::addColumn<QByteArray>("argument");
    QTest::newRow("UTF-8") << QByteArray("\xC3\xA9\xD0\xB6\xF0\x9F\x99\x82");
    QTest::newRow("placeholder") << QByteArray("[%1]");
    QTest::newRow("conversions") << QByteArray("%s %d %n 100%");
    QTest::newRow("empty") << QByteArray("");
}

void tst_LogSink::theDefaultKeepsTheText()
{
    QFETCH(QByteArray, argument);
    const DefaultSink sink;
    const MessageCapture capture;
    LogL("MVThemeMgr", 1, "%s", argument.constData());
    LogL("MVThemeMgr", 2, "%s", argument.constData());
    LogL("MVThemeMgr", 3, "%s", argument.constData());
    QCOMPARE(messages.size(), 3);
    for (const Message& message : qAsConst(messages)) {
        QCOMPARE(message.text, QString::fromUtf8(argument));
        QVERIFY(!message.hasPlace); // it would be that of the log, not of the caller
    }
}

void tst_LogSink::theDefaultObeysTheFilterRules_data()
{
    QTest::addColumn<QString>("rules");
    QTest::addColumn<QString>("seen");
    const auto row = [](const char* rules, const char* seen) {
        QTest::newRow(rules) << QString::fromLatin1(rules) << QString::fromLatin1(seen);
    };
    row("", "One.3 Two.3");
    row("One.debug=true", "One.1 One.3 Two.3");
    row("One.info=true", "One.2 One.3 Two.3");
    row("One=true", "One.1 One.2 One.3 Two.3");
    row("*.info=true", "One.2 One.3 Two.2 Two.3");
    row("*=true", "One.1 One.2 One.3 Two.1 Two.2 Two.3");
    row("One=false", "Two.3");
    row("One.warning=false\nOne.debug=true", "One.1 Two.3");
}

void tst_LogSink::theDefaultObeysTheFilterRules()
{
    QFETCH(QString, rules);
    QFETCH(QString, seen);
    const DefaultSink sink;
    // The rules apply both to an existing category and to one created later.
    QLoggingCategory::setFilterRules(QString());
    const QByteArray later = QByteArray("Two in ") + QTest::currentDataTag();
    LogL("One", 1, "before");
    const MessageCapture capture;
    QLoggingCategory::setFilterRules(rules);
    for (int level = 1; level <= 3; ++level)
        LogL("One", level, "One.%d", level);
    for (int level = 1; level <= 3; ++level)
        LogL(later.constData(), level, "Two.%d", level);
    QStringList texts;
    for (const Message& message : qAsConst(messages))
        texts << message.text;
    QCOMPARE(texts.join(QLatin1Char(' ')), seen);
}

void tst_LogSink::theDefaultTakesEveryCategoryName()
{
    const DefaultSink sink;
    const MessageCapture capture;
    {
        // The name is copied: a caller's buffer may be destroyed.
        QByteArray name("Fleeting");
        LogL(name.constData(), 1, "first");
        name.fill('x');
    }
    LogL("Fleeting", 1, "second");
    LogL("", 1, "third");
    QCOMPARE(messages.size(), 3);
    QCOMPARE(messages[0].category, QByteArray("Fleeting"));
    QCOMPARE(messages[1].category, QByteArray("Fleeting"));
    QCOMPARE(messages[2].category, QByteArray(""));
}

void tst_LogSink::replacingReturnsWhatWasThere()
{
    const DefaultSink sink;
    QByteArrayList first;
    QByteArrayList second;
    QVERIFY(!setLogSink([&](const QByteArray&, int, const QByteArray& text) { first << text; }));
    LogL("Part", 1, "a");
    const LogSink previous =
        setLogSink([&](const QByteArray&, int, const QByteArray& text) { second << text; });
    LogL("Part", 1, "b");
    QVERIFY(previous);
    previous("Part", 1, "c");
    QVERIFY(setLogSink(previous));
    LogL("Part", 1, "d");
    QCOMPARE(first, (QByteArrayList{"a", "c", "d"}));
    QCOMPARE(second, (QByteArrayList{"b"}));
    setLogSink(LogSink());
}

void tst_LogSink::anEmptySinkBringsTheDefaultBack()
{
    const DefaultSink sink;
    const MessageCapture capture;
    int lines = 0;
    setLogSink([&](const QByteArray&, int, const QByteArray&) { ++lines; });
    LogL("Part", 1, "to the sink");
    QVERIFY(setLogSink(nullptr));
    QVERIFY(!setLogSink(LogSink()));
    LogL("Part", 1, "to Qt");
    QCOMPARE(lines, 1);
    QCOMPARE(messages.size(), 1);
    QCOMPARE(messages[0].text, QStringLiteral("to Qt"));
}

void tst_LogSink::aSinkMayLog()
{
    const DefaultSink sink;
    QByteArrayList texts;
    setLogSink([&](const QByteArray& category, int, const QByteArray& text) {
        texts << text;
        if (category == "Outer")
            LogL("Inner", 1, "from %s", text.constData());
    });
    LogL("Outer", 1, "x");
    QCOMPARE(texts, (QByteArrayList{"x", "from x"}));
}

void tst_LogSink::aSinkMayReplaceItself()
{
    const DefaultSink sink;
    QByteArrayList first;
    QByteArrayList second;
    setLogSink([&](const QByteArray&, int, const QByteArray& text) {
        setLogSink([&](const QByteArray&, int, const QByteArray& later) { second << later; });
        first << text; // the running sink is still intact
    });
    LogL("Part", 1, "a");
    LogL("Part", 1, "b");
    QCOMPARE(first, (QByteArrayList{"a"}));
    QCOMPARE(second, (QByteArrayList{"b"}));
}

void tst_LogSink::severalThreadsReachTheSink()
{
    const DefaultSink sink;
    std::mutex mutex;
    QVector<QByteArrayList> perThread(threadCount);
    setLogSink([&](const QByteArray& category, int level, const QByteArray& text) {
        const std::lock_guard<std::mutex> lock(mutex);
        perThread[level] << category + ": " + text;
    });
    onSeveralThreads([](int number) {
        const QByteArray category = "Part" + QByteArray::number(number);
        for (int line = 0; line < linesPerThread; ++line)
            LogL(category.constData(), number, "%d of %s", line, category.constData());
    });
    for (int number = 0; number < threadCount; ++number) {
        const QByteArray category = "Part" + QByteArray::number(number);
        QByteArrayList expected;
        for (int line = 0; line < linesPerThread; ++line)
            expected << category + ": " + QByteArray::number(line) + " of " + category;
        QCOMPARE(perThread[number], expected);
    }
}

void tst_LogSink::severalThreadsReachTheDefault()
{
    const DefaultSink sink;
    const MessageCapture capture;
    // All threads use every category for the first time together, so they race to create it.
    onSeveralThreads([](int) {
        for (int line = 0; line < linesPerThread; ++line)
            LogL(("New" + QByteArray::number(line)).constData(), 2, "%d", line);
    });
    QMap<QByteArray, int> counts;
    for (const Message& message : qAsConst(messages))
        ++counts[message.category + '=' + message.text.toLatin1()];
    QCOMPARE(counts.size(), linesPerThread);
    for (int line = 0; line < linesPerThread; ++line) {
        const QByteArray number = QByteArray::number(line);
        QCOMPARE(counts.value("New" + number + '=' + number), threadCount);
    }
}

void tst_LogSink::noLineIsLostWhileTheSinkChanges()
{
    const DefaultSink sink;
    std::atomic<int> lines{0};
    const auto count = [&](const QByteArray&, int, const QByteArray&) { ++lines; };
    setLogSink(count);
    std::atomic<bool> done{false};
    std::thread changer([&] {
        while (!done)
            setLogSink(count);
    });
    onSeveralThreads([](int) {
        for (int line = 0; line < linesPerThread; ++line)
            LogL("Part", 1, "%d", line);
    });
    done = true;
    changer.join();
    QCOMPARE(lines.load(), threadCount * linesPerThread);
    setLogSink(LogSink());
}

MV_TEST_MAIN(tst_LogSink)
#include "tst_LogSink.moc"
