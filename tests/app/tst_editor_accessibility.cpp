// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AccessibilityBus.h"
#include "Editor.h"
#include "EditorWorld.h"
#include "support/TestMain.h"

#include <QFile>
#include <QRegularExpression>

#include <atomic>
#include <chrono>
#include <memory>

/// Tests what a screen reader reads, does and hears in the editor's window, through the
/// accessibility bus and with a client of its own.
class tst_editor_accessibility : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void readsTreeAndActions();
    void cancelsAndDownloadsByActionsAlone();

private:
    Outcome client(const QStringList& arguments) const { return m_bus->runClient(arguments); }

    void holdResource();

    std::atomic<bool> m_isHeld{false};
    std::unique_ptr<EditorWorld> m_world;
    std::unique_ptr<AccessibilityBus> m_bus;
    std::unique_ptr<Editor> m_editor;
};

namespace {

constexpr int longestMs = 60000;
const QString program = QStringLiteral("mveditor");
const QStringList themes{QStringLiteral("Alpha"), QStringLiteral("Beta")};

/// Returns the lines of the client's output that match a pattern.
QStringList matching(const Outcome& outcome, const QString& pattern)
{
    return outcome.lines().filter(QRegularExpression(pattern));
}

} // namespace

void tst_editor_accessibility::init()
{
    m_world = std::make_unique<EditorWorld>();
    m_world->publish(themes);
    m_world->fillRoot(themes); // the check finds nothing new, and so reloads nothing
    for (const QString& theme : themes)
        QVERIFY(QFile::remove(m_world->themeFile(theme)));
    m_bus = std::make_unique<AccessibilityBus>(Editor::environment(*m_world));
    QVERIFY(!m_bus->address().isEmpty());
    m_editor = std::make_unique<Editor>(*m_world);
    m_editor->setVariable(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_bus->address());
    m_editor->setVariable(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    m_editor->startBare(m_world->arguments());
    QTRY_VERIFY_WITH_TIMEOUT(m_bus->hasPrograms(), longestMs);
    QVERIFY(m_bus->launch());
    const QStringList question{QStringLiteral("has"), program, QStringLiteral("Beta")};
    QTRY_VERIFY_WITH_TIMEOUT(client(question).status == 0, longestMs);
}

/// Answers requests for the theme's resource only once it is released.
void tst_editor_accessibility::holdResource()
{
    m_isHeld = true;
    m_world->setFault([this](HttpExchange& exchange, int /*number*/) {
        while (m_isHeld && exchange.request().target.endsWith(".zip"))
            exchange.pause(std::chrono::milliseconds(5));
        return false;
    });
}

void tst_editor_accessibility::cleanup()
{
    m_isHeld = false;
    m_editor->kill();
    m_editor.reset();
    m_bus.reset();
    m_world.reset();
}

void tst_editor_accessibility::readsTreeAndActions()
{
    const Outcome tree = client({QStringLiteral("tree"), program});
    VERIFY_ENDED_WELL(tree);
    QVERIFY2(!matching(tree, QStringLiteral("\tlist\tThemes$")).isEmpty(), tree.out);
    const QString missing = QStringLiteral(
        "\tlist item\t(Alpha, festivals, not downloaded, 1|Beta, not downloaded, 2) of 2$");
    const QString items = matching(tree, QStringLiteral("\tlist item\t")).join(QLatin1Char('\n'));
    QVERIFY2(matching(tree, missing).size() == 2, qPrintable(items));

    const Outcome actions = client({QStringLiteral("actions"), program, QStringLiteral("Alpha")});
    VERIFY_ENDED_WELL(actions);
    QCOMPARE(actions.lines(),
             (QStringList{QStringLiteral("Press"), QStringLiteral("Details"),
                          QStringLiteral("SetFocus")}));
}

void tst_editor_accessibility::cancelsAndDownloadsByActionsAlone()
{
    holdResource();
    VERIFY_ENDED_WELL(client({QStringLiteral("act"), program, QStringLiteral("Beta"),
                              QStringLiteral("Press"), QStringLiteral("downloading")}));
    VERIFY_ENDED_WELL(client({QStringLiteral("act"), program, QStringLiteral("Beta"),
                              QStringLiteral("Cancel"), QStringLiteral("not downloaded")}));
    QVERIFY(!QFile::exists(m_world->themeFile(QStringLiteral("Beta"))));

    QProcess listener;
    m_bus->startClient(listener,
                       {QStringLiteral("act"), program, QStringLiteral("Beta"),
                        QStringLiteral("Press"), QStringLiteral("current")});
    QByteArray heard;
    const auto hears = [&](const char* text) {
        heard += listener.readAllStandardOutput();
        return heard.contains(text);
    };
    QTRY_VERIFY_WITH_TIMEOUT(hears("Beta, downloading, "), longestMs);
    QTRY_VERIFY_WITH_TIMEOUT(hears("accessible-value\t0\tdownloading, "), longestMs);
    m_isHeld = false;
    const Outcome end = ConsoleProgram::end(listener);
    VERIFY_ENDED_WELL(end);
    heard += end.out;
    QVERIFY2(heard.contains("accessible-name\t0\tBeta, on disk, current, 2 of 2\n"), heard);
    QVERIFY(QFile::exists(m_world->themeFile(QStringLiteral("Beta"))));
}

MV_TEST_MAIN(tst_editor_accessibility)

#include "tst_editor_accessibility.moc"
