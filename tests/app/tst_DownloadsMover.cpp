// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadsMover.h"

#include "MoveJournal.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <functional>
#include <memory>

/// Tests the question before a move of the downloads, its window, and its end.
class tst_DownloadsMover : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void oneFolderIsNotAskedAbout();
    void questionIsAskedAgainIfADownloadHasBegun();
    void cancelBlocksTheWindowUntilTheEnd();
    void moveEndsWithTheOriginals();
    void unusableFolderIsEmptiedAgain();

private:
    QString from() const { return m_folder->path() + QStringLiteral("/old"); }
    QString to() const { return m_folder->path() + QStringLiteral("/new"); }
    QStringList filesOf(const QString& root) const
    {
        QStringList files = CatalogueFiles::filesBelow(root + QStringLiteral("/Themes"));
        files.removeAll(MoveJournal::fileName());
        return files;
    }
    void answer(const char* button, bool canMove = true);
    QProgressDialog* dialog() const { return m_window->findChild<QProgressDialog*>(); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QStringList m_files;
    std::unique_ptr<QWidget> m_window;
    std::unique_ptr<DownloadsMover> m_mover;
};

namespace {

const std::function<bool()> idle = [] { return false; };

QtMessageHandler handlerOfTests = nullptr;

/// Passes all messages on except one, with which the offscreen platform greets every dialog.
void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.contains(QLatin1String("propagateSizeHints")))
        handlerOfTests(type, context, text);
}

} // namespace

void tst_DownloadsMover::initTestCase()
{
    handlerOfTests = qInstallMessageHandler(handle);
}

void tst_DownloadsMover::init()
{
    m_mover.reset();
    m_window = std::make_unique<QWidget>();
    m_window->show();
    m_folder = std::make_unique<QTemporaryDir>();
    for (const char* name : {"a.xml", "b.zip", "c.png"})
        CatalogueFiles::write(from() + QStringLiteral("/Themes/") + QLatin1String(name), name);
    m_files = filesOf(from());
    m_mover = std::make_unique<DownloadsMover>(m_window.get());
}

/// Presses a button of the question once it is asked.
void tst_DownloadsMover::answer(const char* button, bool canMove)
{
    QTimer::singleShot(0, m_window.get(), [=] {
        auto* const box = m_window->findChild<QMessageBox*>();
        QVERIFY(box && box->isVisible());
        QCOMPARE(box->findChild<QPushButton*>(QStringLiteral("moveDownloads"))->isEnabled(),
                 canMove);
        box->findChild<QPushButton*>(QLatin1String(button))->click();
    });
}

void tst_DownloadsMover::oneFolderIsNotAskedAbout()
{
    MV_LINK(from(), to());
    QSignalSpy stayed(m_mover.get(), &DownloadsMover::stayed);
    m_mover->offer(from(), to(), idle);
    QCOMPARE(stayed.size(), 1);
    QVERIFY(!m_mover->isMoving());
}

void tst_DownloadsMover::questionIsAskedAgainIfADownloadHasBegun()
{
    QSignalSpy declined(m_mover.get(), &DownloadsMover::declined);
    int asked = 0;
    answer("moveDownloads");
    m_mover->offer(from(), to(), [&] {
        if (++asked == 2) // the first question has been answered
            answer("leaveDownloads", false);
        return asked > 1;
    });
    QCOMPARE(declined.size(), 1);
    QVERIFY(!m_mover->isMoving());
    QCOMPARE(filesOf(from()), m_files);
}

/// Also if all files have been moved by then.
void tst_DownloadsMover::cancelBlocksTheWindowUntilTheEnd()
{
    QSignalSpy brought(m_mover.get(), &DownloadsMover::brought);
    QSignalSpy failed(m_mover.get(), &DownloadsMover::failed);
    answer("moveDownloads");
    m_mover->offer(from(), to(), idle);
    QVERIFY(dialog()->isVisible());
    while (filesOf(to()) != m_files)
        QThread::yieldCurrentThread(); // without events, so that the end is not noticed
    dialog()->findChild<QPushButton*>(QStringLiteral("cancelMove"))->click();
    QVERIFY(dialog()->isVisible());
    QCOMPARE(dialog()->labelText(), QStringLiteral("Cancelling…"));
    QVERIFY(!dialog()->close());
    QVERIFY(dialog()->isVisible());
    QVERIFY(m_mover->isMoving());
    QVERIFY(failed.wait());
    QCOMPARE(failed.first().first().toString(), QString());
    QVERIFY(brought.isEmpty());
    QVERIFY(!m_mover->isMoving());
    QTRY_VERIFY(!dialog());
    QCOMPARE(filesOf(from()), m_files);
    QVERIFY(!QFile::exists(to()));
}

void tst_DownloadsMover::moveEndsWithTheOriginals()
{
    QSignalSpy brought(m_mover.get(), &DownloadsMover::brought);
    QSignalSpy declined(m_mover.get(), &DownloadsMover::declined);
    QSignalSpy moved(m_mover.get(), &DownloadsMover::moved);
    answer("moveDownloads");
    m_mover->offer(from(), to(), idle);
    QVERIFY(brought.wait());
    QVERIFY(dialog()->isVisible());
    answer("leaveDownloads", false); // a second move has to wait
    m_mover->offer(from(), to(), idle);
    QCOMPARE(declined.size(), 1);
    m_mover->finish();
    QVERIFY(moved.wait());
    QCOMPARE(moved.first().first().toInt(), 0);
    QVERIFY(!m_mover->isMoving());
    QTRY_VERIFY(!dialog());
    QCOMPARE(filesOf(to()), m_files);
    QVERIFY(!QFile::exists(from() + QStringLiteral("/Themes")));
}

void tst_DownloadsMover::unusableFolderIsEmptiedAgain()
{
    QSignalSpy brought(m_mover.get(), &DownloadsMover::brought);
    QSignalSpy failed(m_mover.get(), &DownloadsMover::failed);
    answer("moveDownloads");
    m_mover->offer(from(), to(), idle);
    QVERIFY(brought.wait());
    m_mover->giveUp(QStringLiteral("not stored"));
    QVERIFY(failed.wait());
    QCOMPARE(failed.first().first().toString(), QStringLiteral("not stored"));
    QCOMPARE(filesOf(from()), m_files);
    QVERIFY(!QFile::exists(to()));
}

MV_WIDGET_TEST_MAIN(tst_DownloadsMover)
#include "tst_DownloadsMover.moc"
