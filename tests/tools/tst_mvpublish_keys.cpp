// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Minisign.h"
#include "Mvpublish.h"
#include "SmallMachine.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "Terminal.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QtEndian>

namespace tst_mvpublish_keys {

namespace {

constexpr int longestMs = 60000;

} // namespace

/// Tests mvpublish keygen. Protecting a key takes seconds and a gigabyte of memory, as intended;
/// most tests make keys on a small machine.
class TestMvpublishKeys : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void writesBothFiles();
    void keysDiffer();
    void existingFilesAreKept_data();
    void existingFilesAreKept();
    void forceReplacesThem();
    void unwritableFolderIsAFailure();
    void minisignUsesAKeyWithoutAPassword();
    void minisignUsesAKeyWithAPassword();
    void protectionGoesByTheMemory_data();
    void protectionGoesByTheMemory();
    void passwordThatIsNoneIsRefused_data();
    void passwordThatIsNoneIsRefused();
    void passwordIsAskedTwiceOnTheTerminal();
    void differentPasswordsAreRefused();
    void keysEditAndInterrupt();
    void withoutATerminalThereIsNoPassword();

private:
    Outcome keygen(const QStringList& options) const
    {
        return Mvpublish::run(QStringList{text("keygen"), m_file} + options);
    }
    void start(QProcess& process, const Terminal& terminal, const QStringList& arguments) const;

    QString m_file;
    QString m_public;
};

void TestMvpublishKeys::init()
{
    m_file = home(QTest::currentTestFunction()) + text("/mv.key");
    m_public = m_file + text(".pub");
    QDir(QFileInfo(m_file).path()).removeRecursively();
    QDir().mkpath(QFileInfo(m_file).path());
}

/// Starts mvpublish with a terminal of its own, on a small machine.
void TestMvpublishKeys::start(QProcess& process, const Terminal& terminal,
                              const QStringList& arguments) const
{
    process.setStandardInputFile(terminal.device());
    process.start(text("setsid"),
                  QStringList{text("--ctty"), text("--wait")}
                      + SmallMachine::command(Mvpublish::program(), arguments));
    QVERIFY(process.waitForStarted());
}

void TestMvpublishKeys::writesBothFiles()
{
    const Outcome outcome = keygen({text("--no-password")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
        | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFile::permissions(m_file) & others, QFile::Permissions());
    QVERIFY(QFile::permissions(m_file).testFlag(QFile::ReadOwner));
    QVERIFY(QFile::permissions(m_public).testFlag(QFile::ReadOther));
    const QByteArray line = CatalogueFiles::read(m_public).split('\n').value(1);
    QVERIFY(line.startsWith("RW"));
    QVERIFY2(outcome.out.contains(line), outcome.out.constData());
    QCOMPARE(QDir(QFileInfo(m_file).path()).entryList(QDir::Files | QDir::Hidden),
             (QStringList{text("mv.key"), text("mv.key.pub")}));
}

void TestMvpublishKeys::keysDiffer()
{
    QCOMPARE(keygen({text("--no-password")}).status, 0);
    const QByteArray secret = CatalogueFiles::read(m_file);
    const QByteArray line = CatalogueFiles::read(m_public);
    QCOMPARE(keygen({text("--no-password"), text("--force")}).status, 0);
    QVERIFY(CatalogueFiles::read(m_file) != secret);
    QVERIFY(CatalogueFiles::read(m_public) != line);
}

void TestMvpublishKeys::existingFilesAreKept_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::newRow("secret key") << QString();
    QTest::newRow("public key") << text(".pub");
}

void TestMvpublishKeys::existingFilesAreKept()
{
    QFETCH(QString, suffix);
    CatalogueFiles::write(m_file + suffix, "dear");
    const Outcome outcome = keygen({text("--no-password")});
    QCOMPARE(QString::fromUtf8(outcome.err),
             text("mvpublish: %1 exists; --force replaces it\n").arg(m_file + suffix));
    QCOMPARE(outcome.status, 2);
    QCOMPARE(CatalogueFiles::read(m_file + suffix), QByteArray("dear"));
    QCOMPARE(QDir(QFileInfo(m_file).path()).entryList(QDir::Files).size(), 1);
}

void TestMvpublishKeys::forceReplacesThem()
{
    CatalogueFiles::write(m_file, "dear");
    CatalogueFiles::write(m_public, "dear");
    QCOMPARE(keygen({text("--no-password"), text("--force")}).status, 0);
    QVERIFY(CatalogueFiles::read(m_file).startsWith("untrusted comment:"));
    QVERIFY(CatalogueFiles::read(m_public).startsWith("untrusted comment:"));
    QVERIFY(!QFile::permissions(m_file).testFlag(QFile::ReadOther));
}

void TestMvpublishKeys::unwritableFolderIsAFailure()
{
    const Outcome outcome =
        Mvpublish::run({text("keygen"), text("/proc/mv.key"), text("--no-password")});
    QVERIFY2(outcome.err.startsWith("mvpublish: /proc/mv.key cannot be written: "),
             outcome.err.constData());
    QCOMPARE(outcome.status, 2);
}

void TestMvpublishKeys::minisignUsesAKeyWithoutAPassword()
{
    if (Minisign::program().isEmpty())
        QSKIP("minisign is not installed");
    QCOMPARE(keygen({text("--no-password")}).status, 0);
    const QString letter = m_file + text(".letter");
    CatalogueFiles::write(letter, "dear");
    QCOMPARE(Minisign::sign(letter, m_file, {}).status, 0);
    QCOMPARE(Minisign::verify(letter, m_file).status, 0);
}

void TestMvpublishKeys::minisignUsesAKeyWithAPassword()
{
    if (Minisign::program().isEmpty())
        QSKIP("minisign is not installed");
    const Outcome outcome = SmallMachine::runWithInput(
        Mvpublish::program(), {text("keygen"), m_file, text("--password-fd"), text("0")},
        "open sesame\r\nrest");
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    const QString letter = m_file + text(".letter");
    CatalogueFiles::write(letter, "dear");
    QVERIFY(Minisign::sign(letter, m_file, "open barley").status != 0);
    const Outcome signing = Minisign::sign(letter, m_file, "open sesame");
    QVERIFY2(signing.status == 0, signing.err.constData());
    QCOMPARE(Minisign::verify(letter, m_file).status, 0);
}

void TestMvpublishKeys::protectionGoesByTheMemory_data()
{
    QTest::addColumn<bool>("isSmall");
    QTest::newRow("enough") << false;
#ifndef __SANITIZE_ADDRESS__ // which small machines do not take
    QTest::newRow("little") << true;
#endif
}

/// By default it is minisign's: as much as scrypt's authors advise for files, with a gigabyte.
void TestMvpublishKeys::protectionGoesByTheMemory()
{
    QFETCH(bool, isSmall);
    const QStringList arguments{text("keygen"), m_file, text("--password-fd"), text("0")};
    const auto run = isSmall ? &SmallMachine::runWithInput : &ConsoleProgram::runWithInput;
    QCOMPARE(run(Mvpublish::program(), arguments, "open sesame\n").status, 0);
    constexpr int limitsAt = 38; // behind the algorithms and the salt
    const QByteArray key =
        QByteArray::fromBase64(CatalogueFiles::read(m_file).split('\n').value(1));
    const auto operations = qFromLittleEndian<quint64>(key.constData() + limitsAt);
    const auto memoryBytes = qFromLittleEndian<quint64>(key.constData() + limitsAt + 8);
    constexpr quint64 usualBytes = 1024 * 1024 * 1024;
    constexpr quint64 leastBytes = 16 * 1024 * 1024;
    QVERIFY(memoryBytes >= leastBytes);
    QCOMPARE(memoryBytes < usualBytes, isSmall);
    QVERIFY(memoryBytes <= usualBytes);
    QCOMPARE(operations, memoryBytes / 32);
}

void TestMvpublishKeys::passwordThatIsNoneIsRefused_data()
{
    QTest::addColumn<QString>("descriptor");
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QByteArray>("message");
    const QByteArray empty =
        "an empty password protects nothing; --no-password makes a key without one\n";
    QTest::newRow("nothing") << text("0") << QByteArray() << empty;
    QTest::newRow("empty line") << text("0") << QByteArray("\nrest") << empty;
    QTest::newRow("too long") << text("0") << QByteArray(1025, 'x')
                              << QByteArray("a password has at most 1024 bytes\n");
    QTest::newRow("closed descriptor")
        << text("77") << QByteArray()
        << QByteArray("the password cannot be read from descriptor 77: Bad file descriptor\n");
}

void TestMvpublishKeys::passwordThatIsNoneIsRefused()
{
    QFETCH(QString, descriptor);
    QFETCH(QByteArray, input);
    QFETCH(QByteArray, message);
    const Outcome outcome = ConsoleProgram::runWithInput(
        Mvpublish::program(), {text("keygen"), m_file, text("--password-fd"), descriptor}, input);
    QCOMPARE(outcome.err, "mvpublish: " + message);
    QCOMPARE(outcome.status, 2);
    QVERIFY(!QFile::exists(m_file));
}

void TestMvpublishKeys::passwordIsAskedTwiceOnTheTerminal()
{
    Terminal terminal(80);
    QProcess process;
    start(process, terminal, {text("keygen"), m_file});
    QByteArray shown;
    QTRY_VERIFY_WITH_TIMEOUT((shown += terminal.read()).contains("Password for the new key: "),
                             longestMs);
    QVERIFY(!terminal.isEchoing());
    terminal.type("secret-word\n");
    QTRY_VERIFY_WITH_TIMEOUT((shown += terminal.read()).contains("The same password again: "),
                             longestMs);
    terminal.type("secret-word\n");
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QVERIFY(terminal.isEchoing());
    shown += terminal.read();
    QVERIFY2(!shown.contains("secret-word"), shown.constData());
    QVERIFY(!outcome.out.contains("secret-word"));
    QVERIFY(!CatalogueFiles::read(m_file).contains("secret-word"));
}

void TestMvpublishKeys::differentPasswordsAreRefused()
{
    Terminal terminal(80);
    QProcess process;
    start(process, terminal, {text("keygen"), m_file});
    QByteArray shown;
    QTRY_VERIFY_WITH_TIMEOUT((shown += terminal.read()).contains("new key: "), longestMs);
    terminal.type("one\n");
    QTRY_VERIFY_WITH_TIMEOUT((shown += terminal.read()).contains("again: "), longestMs);
    terminal.type("two\n");
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err, QByteArray("mvpublish: the two passwords differ\n"));
    QCOMPARE(outcome.status, 2);
    QVERIFY(!QFile::exists(m_file));
}

/// An interrupt leaves a terminal that shows again what is typed.
void TestMvpublishKeys::keysEditAndInterrupt()
{
    Terminal terminal(80);
    QProcess process;
    start(process, terminal, {text("keygen"), m_file});
    QByteArray shown;
    QTRY_VERIFY_WITH_TIMEOUT((shown += terminal.read()).contains("new key: "), longestMs);
    terminal.type("wrong\x15x\x7f\x7f\n"); // all of it is deleted again
    QTRY_VERIFY_WITH_TIMEOUT((shown += terminal.read()).contains("again: "), longestMs);
    terminal.type("\n");
    const Outcome empty = ConsoleProgram::end(process);
    QVERIFY2(empty.err.contains("an empty password"), empty.err.constData());

    start(process, terminal, {text("keygen"), m_file});
    shown.clear();
    QTRY_VERIFY_WITH_TIMEOUT((shown += terminal.read()).contains("new key: "), longestMs);
    terminal.type("half\x03");
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err, QByteArray("mvpublish: interrupted\n"));
    QCOMPARE(outcome.status, 2);
    QVERIFY(terminal.isEchoing());
    QVERIFY(!QFile::exists(m_file));
}

void TestMvpublishKeys::withoutATerminalThereIsNoPassword()
{
    const Outcome outcome = ConsoleProgram::run(
        text("setsid"), {text("--wait"), Mvpublish::program(), text("keygen"), m_file});
    QCOMPARE(outcome.err,
             QByteArray("mvpublish: there is no terminal on which to ask for a password; see "
                        "--password-fd\n"));
    QCOMPARE(outcome.status, 2);
}

MV_TEST_MAIN(TestMvpublishKeys)

} // namespace tst_mvpublish_keys

#include "tst_mvpublish_keys.moc"
