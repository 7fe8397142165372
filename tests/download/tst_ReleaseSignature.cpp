// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleaseKey.h"
#include "download/ReleaseSignature.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QProcess>
#include <QTemporaryDir>

namespace tst_ReleaseSignature {

namespace {

const QByteArray content("{ \"serial\": 1 }\n");

} // namespace

/// Tests reading and verifying the keys and signatures that the program minisign makes.
class TestReleaseSignature : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void signatureOfTheContentIsAccepted_data();
    void signatureOfTheContentIsAccepted();
    void anyOfTheHostsKeysMaySign();
    void otherContentIsRefused();
    void otherKeyIsRefused();
    void keyWithTheSameIdIsRefused();
    void changedTrustedCommentIsRefused();
    void malformedSignatureIsRefused_data();
    void malformedSignatureIsRefused();
    void keyFileAndItsLineAreRead();
    void malformedKeyIsRefused_data();
    void malformedKeyIsRefused();
    void keyIdIsThatOfTheProgram();

private:
    QString path(const char* name) const { return m_folder.filePath(text(name)); }
    static QByteArray minisign(const QStringList& arguments);
    ReleaseKey makeKey(const char* name) const;
    QByteArray sign(const char* key, const QStringList& options = {}) const;
    static bool isAccepted(const QByteArray& signature, const QVector<ReleaseKey>& keys,
                           const QByteArray& of = content, QString* reason = nullptr);

    QTemporaryDir m_folder;
    ReleaseKey m_key;
    ReleaseKey m_otherKey;
};

QByteArray TestReleaseSignature::minisign(const QStringList& arguments)
{
    QProcess process;
    process.start(text("minisign"), arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("minisign failed: %s", process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

ReleaseKey TestReleaseSignature::makeKey(const char* name) const
{
    const QString file = path(name);
    minisign({text("-G"), text("-W"), text("-p"), file + text(".pub"), text("-s"), file});
    ReleaseKey key;
    QString error;
    if (!ReleaseKey::parse(QString::fromUtf8(CatalogueFiles::read(file + text(".pub"))), key,
                           error))
        qFatal("%s", qPrintable(error));
    return key;
}

QByteArray TestReleaseSignature::sign(const char* key, const QStringList& options) const
{
    CatalogueFiles::write(path("content"), content);
    minisign(QStringList{text("-S"), text("-W"), text("-s"), path(key), text("-m"), path("content"),
                         text("-t"), text("the comment")}
             + options);
    return CatalogueFiles::read(path("content.minisig"));
}

bool TestReleaseSignature::isAccepted(const QByteArray& signature, const QVector<ReleaseKey>& keys,
                                      const QByteArray& of, QString* reason)
{
    ReleaseSignature parsed;
    QString error;
    const bool accepted =
        ReleaseSignature::parse(signature, parsed, error) && parsed.verify(of, keys, error);
    if (reason)
        *reason = error;
    return accepted;
}

void TestReleaseSignature::initTestCase()
{
    m_key = makeKey("key");
    m_otherKey = makeKey("other");
}

void TestReleaseSignature::signatureOfTheContentIsAccepted_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("of the digest") << QStringList();
    QTest::newRow("of the content itself") << QStringList{text("-l")};
}

void TestReleaseSignature::signatureOfTheContentIsAccepted()
{
    QFETCH(QStringList, options);
    const QByteArray signature = sign("key", options);
    ReleaseSignature parsed;
    QString error;
    QVERIFY2(ReleaseSignature::parse(signature, parsed, error), qPrintable(error));
    QVERIFY2(parsed.verify(content, {m_key}, error), qPrintable(error));
    QCOMPARE(parsed.trustedComment(), text("the comment"));
    QCOMPARE(parsed.keyId(), m_key.id());
    QByteArray windows = signature;
    QVERIFY(isAccepted(windows.replace("\n", "\r\n"), {m_key}));
    QVERIFY(isAccepted(signature.chopped(1), {m_key})); // without the last line's end
}

void TestReleaseSignature::anyOfTheHostsKeysMaySign()
{
    QVERIFY(isAccepted(sign("key"), {m_otherKey, m_key}));
    QVERIFY(isAccepted(sign("other"), {m_otherKey, m_key}));
}

void TestReleaseSignature::otherContentIsRefused()
{
    QString reason;
    QVERIFY(!isAccepted(sign("key"), {m_key}, content + ' ', &reason));
    QVERIFY2(reason.contains(text("is not one of this content")), qPrintable(reason));
    QVERIFY(!isAccepted(sign("key", {text("-l")}), {m_key}, content + ' '));
}

void TestReleaseSignature::otherKeyIsRefused()
{
    QString reason;
    QVERIFY(!isAccepted(sign("other"), {m_key}, content, &reason));
    QVERIFY2(reason.contains(m_otherKey.idText() + text(", which is not trusted")),
             qPrintable(reason));
    QVERIFY(!isAccepted(sign("key"), {}));
}

void TestReleaseSignature::keyWithTheSameIdIsRefused()
{
    const ReleaseKey impostor(m_key.id(), m_otherKey.key());
    QVERIFY(!isAccepted(sign("key"), {impostor}));
}

void TestReleaseSignature::changedTrustedCommentIsRefused()
{
    QString reason;
    QByteArray signature = sign("key");
    QVERIFY(
        !isAccepted(signature.replace("the comment", "any comment"), {m_key}, content, &reason));
    QVERIFY2(reason.contains(text("trusted comment")), qPrintable(reason));
}

void TestReleaseSignature::malformedSignatureIsRefused_data()
{
    QTest::addColumn<QByteArray>("signature");
    const QByteArray whole = sign("key");
    const QList<QByteArray> lines = whole.split('\n');
    const auto joined = [&](int number, const QByteArray& line) {
        QList<QByteArray> changed = lines;
        changed[number] = line;
        return changed.join('\n');
    };
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one line less") << lines.mid(0, 3).join('\n');
    QTest::newRow("one line more") << whole + "more\n";
    QTest::newRow("no untrusted comment") << joined(0, "comment");
    QTest::newRow("no trusted comment") << joined(2, "comment");
    QTest::newRow("not base64") << joined(1, "!" + lines.at(1));
    QTest::newRow("short signature") << joined(1, lines.at(1).left(40));
    QTest::newRow("other algorithm") << joined(1, "QQ" + lines.at(1).mid(2));
    QTest::newRow("short signature of the comment") << joined(3, lines.at(3).left(40));
    QTest::newRow("too large") << joined(0, lines.at(0) + QByteArray(16 * 1024, 'x'));
}

void TestReleaseSignature::malformedSignatureIsRefused()
{
    QFETCH(QByteArray, signature);
    ReleaseSignature parsed;
    QString error;
    QVERIFY(!ReleaseSignature::parse(signature, parsed, error));
    QVERIFY(!error.isEmpty());
}

void TestReleaseSignature::keyFileAndItsLineAreRead()
{
    const QString file = QString::fromUtf8(CatalogueFiles::read(path("key.pub")));
    const QString line = file.split(QLatin1Char('\n')).at(1);
    ReleaseKey key;
    QString error;
    QVERIFY2(ReleaseKey::parse(line, key, error), qPrintable(error));
    QCOMPARE(key.key(), m_key.key());
    QCOMPARE(key.toText(), line);
    QVERIFY(ReleaseKey::parse(QString(file).replace(QLatin1Char('\n'), text("\r\n")), key, error));
}

void TestReleaseSignature::malformedKeyIsRefused_data()
{
    QTest::addColumn<QString>("key");
    const QString line = m_key.toText();
    QTest::newRow("empty") << QString();
    QTest::newRow("not base64") << text("!") + line;
    QTest::newRow("short") << line.left(40);
    QTest::newRow("other algorithm") << text("QQ") + line.mid(2);
    QTest::newRow("two lines without a comment") << line + text("\n") + line;
    QTest::newRow("secret key") << QString::fromUtf8(CatalogueFiles::read(path("key")));
}

void TestReleaseSignature::malformedKeyIsRefused()
{
    QFETCH(QString, key);
    ReleaseKey parsed;
    QString error;
    QVERIFY(!ReleaseKey::parse(key, parsed, error));
    QVERIFY(!error.isEmpty());
}

void TestReleaseSignature::keyIdIsThatOfTheProgram()
{
    const QString comment =
        QString::fromUtf8(CatalogueFiles::read(path("key.pub"))).section(QLatin1Char('\n'), 0, 0);
    // The program omits leading zeros.
    QCOMPARE(comment.section(QLatin1Char(' '), -1).rightJustified(16, QLatin1Char('0')),
             m_key.idText());
}

MV_TEST_MAIN(TestReleaseSignature)

} // namespace tst_ReleaseSignature

#include "tst_ReleaseSignature.moc"
