// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "faults/FaultyRun.h"
#include "host/STransferFailure.h"
#include "host/Utils.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>

#include <cstdio>

#include <unistd.h>

using Files = CatalogueFiles;

/// What survives a power cut, and is told of a disk that fails: the file operations of writing and
/// copying, in their order. The program runs itself with the library that counts them.
class tst_UtilsDurable : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void operations_data();
    void operations();
    void failingDiskIsTold_data();
    void failingDiskIsTold();
    void halfOfTheBytesAreNoFailure_data();
    void halfOfTheBytesAreNoFailure();
    void folderThatCannotBeFlushedIsLeftAtThat_data();
    void folderThatCannotBeFlushedIsLeftAtThat();
    void missingFolderIsTold();
    void folderThatFoundNoRoomIsTold();

private:
    QString world() const { return TestHome::path() + QStringLiteral("/world"); }
    QString folder() const { return world() + QStringLiteral("/folder"); }
    QString target() const { return folder() + QStringLiteral("/target"); }
    QStringList arguments(const char* action) const
    {
        return {QString::fromLatin1(action), target(), folder() + QStringLiteral("/source")};
    }
    QStringList traced(const char* action) const;
    int numberOf(const char* action, const QString& operation) const;

    FaultyRun m_runner{world(), TestHome::path() + QStringLiteral("/report")};
};

namespace {

const QByteArray oldContent = "old";
const QByteArray newContent = "new";
constexpr const char* writing = "--write";
constexpr const char* writingWithoutInput = "--write-without-input";
constexpr const char* copying = "--copy";

/// Action of a process of its own, which says what failed.
int act(const QByteArray& action, const QString& target, const QString& source)
{
    if (action == copying)
        return Utils::copyFileToPath(source, target, true) ? 0 : 1;
    if (action == writingWithoutInput)
        ::close(STDIN_FILENO); // so that the file gets the number 0
    STransferFailure failure;
    if (Utils::writeFile(target, newContent, &failure))
        return 0;
    std::printf("%d %s\n", int(failure.m_eCause), qPrintable(failure.m_qsDetails));
    return 1;
}

} // namespace

void tst_UtilsDurable::init()
{
    QDir(world()).removeRecursively();
    Files::write(target(), oldContent);
    Files::write(folder() + QStringLiteral("/source"), newContent);
}

/// The operations from the creation of the temporary file on, without those on the source.
QStringList tst_UtilsDurable::traced(const char* action) const
{
    QStringList texts =
        m_runner.trace(QCoreApplication::applicationFilePath(), arguments(action)).operationTexts();
    texts.removeAll(QStringLiteral("read source"));
    return texts.mid(texts.indexOf(QStringLiteral("create PART")));
}

int tst_UtilsDurable::numberOf(const char* action, const QString& operation) const
{
    return m_runner.trace(QCoreApplication::applicationFilePath(), arguments(action))
        .numberOf(operation);
}

void tst_UtilsDurable::operations_data()
{
    QTest::addColumn<QStringList>("expected");
    const QStringList durable{QStringLiteral("create PART"),       QStringLiteral("write PART"),
                              QStringLiteral("flush PART"),        QStringLiteral("rename target"),
                              QStringLiteral("openfolder folder"), QStringLiteral("flush folder")};
    QTest::newRow(writing) << durable;
    QTest::newRow(writingWithoutInput) << durable;
    QTest::newRow(copying) << QStringList{
        QStringLiteral("create PART"), QStringLiteral("write PART"), QStringLiteral("close PART"),
        QStringLiteral("rename target")};
}

/// Data is on the disk before it gets the name, and the name before anybody is told.
void tst_UtilsDurable::operations()
{
    QFETCH(QStringList, expected);
    QCOMPARE(traced(QTest::currentDataTag()), expected);
    QCOMPARE(Files::read(target()), newContent);
}

void tst_UtilsDurable::failingDiskIsTold_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<int>("cause");
    const auto row = [](const char* action, const char* operation, FaultKind kind, int cause) {
        QTest::addRow("%s, %s, %s", action, operation, faultNames[static_cast<std::size_t>(kind)])
            << QByteArray(action) << QString::fromLatin1(operation) << Fault{kind, 0, false}
            << cause;
    };
    for (const char* action : {writing, writingWithoutInput}) {
        for (const char* operation : {"create PART", "write PART", "flush PART", "rename target"}) {
            row(action, operation, FaultKind::DiskFull, eFailure_DiskFull);
            row(action, operation, FaultKind::Broken, eFailure_LocalFile);
        }
        for (const char* operation : {"create PART", "rename target"})
            row(action, operation, FaultKind::Refused, eFailure_NoPermission);
    }
    for (const char* operation : {"create PART", "write PART", "close PART", "rename target"})
        row(copying, operation, FaultKind::DiskFull, eFailure_None);
    row(copying, "read source", FaultKind::Broken, eFailure_None);
}

/// The old file stays, and nothing else.
void tst_UtilsDurable::failingDiskIsTold()
{
    QFETCH(QByteArray, action);
    QFETCH(QString, operation);
    QFETCH(Fault, fault);
    QFETCH(int, cause);
    fault.at = numberOf(action.constData(), operation);
    QVERIFY(fault.at > 0);
    init();
    const FaultyOutcome outcome =
        m_runner.run(QCoreApplication::applicationFilePath(), arguments(action.constData()), fault);
    QCOMPARE(outcome.hit.number, fault.at);
    QCOMPARE(outcome.status, 1);
    QCOMPARE(Files::read(target()), oldContent);
    QCOMPARE(Files::filesBelow(folder()),
             (QStringList{QStringLiteral("source"), QStringLiteral("target")}));
    if (cause != eFailure_None) {
        const QByteArray beginning = QByteArray::number(cause) + ' ' + target().toUtf8() + ": ";
        QVERIFY2(outcome.out.startsWith(beginning), outcome.out.constData());
    }
}

void tst_UtilsDurable::halfOfTheBytesAreNoFailure_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QString>("operation");
    QTest::newRow("written") << QByteArray(writing) << QStringLiteral("write PART");
    QTest::newRow("copied") << QByteArray(copying) << QStringLiteral("write PART");
}

/// The system may take a part of what it is given; the rest follows.
void tst_UtilsDurable::halfOfTheBytesAreNoFailure()
{
    QFETCH(QByteArray, action);
    QFETCH(QString, operation);
    const Fault fault{FaultKind::Halve, numberOf(action.constData(), operation), false};
    QVERIFY(fault.at > 0);
    init();
    const FaultyOutcome outcome =
        m_runner.run(QCoreApplication::applicationFilePath(), arguments(action.constData()), fault);
    QCOMPARE(outcome.hit.number, fault.at);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(Files::read(target()), newContent);
}

void tst_UtilsDurable::folderThatCannotBeFlushedIsLeftAtThat_data()
{
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"openfolder folder", "flush folder"})
        QTest::newRow(operation) << QString::fromLatin1(operation);
}

void tst_UtilsDurable::folderThatCannotBeFlushedIsLeftAtThat()
{
    QFETCH(QString, operation);
    const Fault fault{FaultKind::Broken, numberOf(writing, operation), false};
    QVERIFY(fault.at > 0);
    init();
    const FaultyOutcome outcome =
        m_runner.run(QCoreApplication::applicationFilePath(), arguments(writing), fault);
    QCOMPARE(outcome.hit.number, fault.at);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(Files::read(target()), newContent);
}

void tst_UtilsDurable::missingFolderIsTold()
{
    STransferFailure failure;
    const QString path = folder() + QStringLiteral("/none/target");
    QVERIFY(!Utils::writeFile(path, newContent, &failure));
    QCOMPARE(failure.m_eCause, eFailure_LocalFile);
    QCOMPARE(failure.m_qsFile, path);
    QCOMPARE(failure.m_qsDetails, path + QStringLiteral(": its folder does not exist"));
}

/// The folder is missing because there was no room for it.
void tst_UtilsDurable::folderThatFoundNoRoomIsTold()
{
    // A file system without a free block, where root may write.
    if (::access("/proc", W_OK | X_OK) != 0)
        QSKIP("needs the administrator's rights");
    STransferFailure failure;
    QVERIFY(!Utils::writeFile(QStringLiteral("/proc/none/target"), newContent, &failure));
    QCOMPARE(failure.m_eCause, eFailure_DiskFull);
}

int main(int argc, char** argv)
{
    if (argc == 4 && argv[1][0] == '-' && argv[1][1] == '-')
        return act(argv[1], QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    const TestHome home;
    TestApplication<QCoreApplication> application(argc, argv);
    tst_UtilsDurable test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_UtilsDurable.moc"
