// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleaseKey.h"
#include "download/ReleasePaths.h"
#include "download/ReleaseSignature.h"
#include "Minisign.h"
#include "Mvpublish.h"
#include "ReleasedTree.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QFile>

#include <memory>

namespace {

/// A key that minisign has made with a gigabyte of memory; its password is "open sesame".
const QByteArray minisignKey =
    "untrusted comment: minisign encrypted secret key\n"
    "RWRTY0Iyaj+mhNOX3HFziEPjHQI9TfnDfahLyRmEgQf7aCYNutAAAAACAAAAAAAAAEAAAAAATXeq0Ziv6ab7gBxbH/KX"
    "UWtax0Bl0YwNS6cwxQ26wBEzigw8szIWFrYAm4/uQF48eT2+cF2i25vE6fxOkoXhELEaXalQucCDNAEkFR9XkAqQ3mCh"
    "lo7ieTHm7NslO7wDQyxyWHVwb6I=\n";
const QByteArray minisignPublicKey = "untrusted comment: minisign public key 793FE21EDB40A7DA\n"
                                     "RWTap0DbHuI/eeyMD4p3gRFVrkLyPUXM53hSWsn98noZjFDISkrQHuJe\n";

/// A key whose password "open sesame" was made cheap to verify, as no program makes them.
const QByteArray cheapKey =
    "untrusted comment: minisign encrypted secret key\n"
    "RWRTY0IyBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcHBwcAgAAAAAAAAAAAAAEAAAAAS+gN"
    "+yMZnbHDhap0+p3kb9alzeYdghzrurEFPOD3v6vUYKroy6WjsMKg001FiEoDNXzQqoU95SZXC9Dp"
    "paEOngNyh1tK4m2NQmNOhwPRljUkh6WoK+KundTDWm73D33OD3w8ea0CMho="
    "\n";
const QByteArray cheapPublicKey = "untrusted comment: minisign public key\n"
                                  "RWRtdnB1Ymxpc/0XJDhaoMdbZPt4zWAvodmR/ev3axPFjtcC6sg16fYY\n";

} // namespace

/// Tests mvpublish sign.
class TestMvpublishSign : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void signatureIsThatOfTheRelease();
    void minisignVerifiesIt();
    void keysOfMinisignSign_data();
    void keysOfMinisignSign();
    void keyWithTheUsualProtectionSigns();
    void laterKeyReplacesTheSignature();
    void signatureIsReadableWhateverTheUmask();
    void wrongKeyFileIsRefused_data();
    void wrongKeyFileIsRefused();
    void passwordMustBeThatOfTheKey();
    void treeWithoutASoundReleaseIsRefused_data();
    void treeWithoutASoundReleaseIsRefused();
    void expiredReleaseIsRefused();
    void buildAndSignExcludeEachOther();

private:
    Outcome sign(const QString& key) const
    {
        return Mvpublish::run({text("sign"), m_tree->folder(), text("--key"), key});
    }
    Outcome signWith(const QString& key, const QByteArray& password) const
    {
        return ConsoleProgram::runWithInput(
            Mvpublish::program(),
            {text("sign"), m_tree->folder(), text("--key"), key, text("--password-fd"), text("0")},
            password);
    }
    /// Returns why the signature is not one of the release by the key; empty if it is.
    QString fault(const QString& key) const;

    QString m_key;
    std::unique_ptr<ReleasedTree> m_tree;
};

void TestMvpublishSign::initTestCase()
{
    m_key = home("mv.key");
    QCOMPARE(Mvpublish::run({text("keygen"), m_key, text("--no-password")}).status, 0);
}

void TestMvpublishSign::init()
{
    m_tree = std::make_unique<ReleasedTree>(home("tree"));
    QCOMPARE(m_tree->build(), QString());
}

QString TestMvpublishSign::fault(const QString& key) const
{
    QString error;
    ReleaseKey publicKey;
    ReleaseSignature signature;
    if (!ReleaseKey::parse(QString::fromUtf8(CatalogueFiles::read(key + text(".pub"))), publicKey,
                           error)
        || !ReleaseSignature::parse(m_tree->read(ReleasePaths::signature()), signature, error)
        || !signature.verify(m_tree->read(ReleasePaths::release()), {publicKey}, error))
        return error;
    return QString();
}

void TestMvpublishSign::signatureIsThatOfTheRelease()
{
    const Outcome outcome = sign(m_key);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QVERIFY2(outcome.out.contains("release 4000000000 is signed by key "), outcome.out.constData());
    QCOMPARE(fault(m_key), QString());
    const QByteArray signature = m_tree->read(ReleasePaths::signature());
    QCOMPARE(m_tree->read(ReleasePaths::signatureOf(m_tree->releaseDigest())), signature);
    QCOMPARE(signature.split('\n').value(2),
             QByteArray("trusted comment: timestamp:4000000000\tfile:release.json\thashed\t"
                        "serial:4000000000"));
}

void TestMvpublishSign::minisignVerifiesIt()
{
    if (Minisign::program().isEmpty())
        QSKIP("minisign is not installed");
    QCOMPARE(sign(m_key).status, 0);
    const QString release = m_tree->file(ReleasePaths::release());
    const Outcome outcome = Minisign::verify(release, m_key);
    QVERIFY2(outcome.status == 0, outcome.err.constData());
    QVERIFY2(outcome.out.contains("serial:4000000000"), outcome.out.constData());
    CatalogueFiles::write(release, m_tree->read(ReleasePaths::release()) + "\n");
    QVERIFY(Minisign::verify(release, m_key).status != 0);
}

void TestMvpublishSign::keysOfMinisignSign_data()
{
    QTest::addColumn<QByteArray>("password");
    QTest::newRow("without a password") << QByteArray();
    QTest::newRow("with a password") << QByteArray("open sesame");
}

void TestMvpublishSign::keysOfMinisignSign()
{
    QFETCH(QByteArray, password);
    if (Minisign::program().isEmpty())
        QSKIP("minisign is not installed");
    const QString key = home("minisign%1.key").arg(password.size());
    QCOMPARE(Minisign::generate(key, password), QString());
    const Outcome outcome = signWith(key, password + '\n');
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(fault(key), QString());
    QCOMPARE(Minisign::verify(m_tree->file(ReleasePaths::release()), key).status, 0);
}

void TestMvpublishSign::keyWithTheUsualProtectionSigns()
{
    const QString key = home("usual.key");
    CatalogueFiles::write(key, minisignKey);
    CatalogueFiles::write(key + text(".pub"), minisignPublicKey);
    const Outcome outcome = signWith(key, "open sesame\n");
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(fault(key), QString());
}

/// As when keys are rotated: hosts know both.
void TestMvpublishSign::laterKeyReplacesTheSignature()
{
    const QString other = home("other.key");
    QCOMPARE(Mvpublish::run({text("keygen"), other, text("--no-password")}).status, 0);
    QCOMPARE(sign(m_key).status, 0);
    QCOMPARE(sign(other).status, 0);
    QCOMPARE(fault(other), QString());
    QVERIFY(fault(m_key).contains(text("not trusted")));
    QCOMPARE(m_tree->read(ReleasePaths::signatureOf(m_tree->releaseDigest())),
             m_tree->read(ReleasePaths::signature()));
    QCOMPARE(Mvpublish::run({text("lint"), m_tree->folder()}).out, QByteArray("clean\n"));
}

void TestMvpublishSign::signatureIsReadableWhateverTheUmask()
{
    const QString script = text("umask 077; exec \"$0\" \"$@\"");
    QCOMPARE(ConsoleProgram::run(text("/bin/sh"),
                                 {text("-c"), script, Mvpublish::program(), text("sign"),
                                  m_tree->folder(), text("--key"), m_key})
                 .status,
             0);
    for (const QString& name :
         {ReleasePaths::signature(), ReleasePaths::signatureOf(m_tree->releaseDigest())}) {
        const QString file = m_tree->file(name);
        QVERIFY2(QFile::permissions(file).testFlag(QFile::ReadOther), qPrintable(file));
        QVERIFY2(QFile::permissions(QFileInfo(file).path()).testFlag(QFile::ExeOther),
                 qPrintable(file));
    }
}

void TestMvpublishSign::wrongKeyFileIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray key = CatalogueFiles::read(m_key);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("letter") << QByteArray("dear");
    QTest::newRow("public key") << CatalogueFiles::read(m_key + text(".pub"));
    QTest::newRow("cut") << key.left(key.size() - 8);
    QTest::newRow("longer") << key + "AAAA";
    QTest::newRow("without its comment") << key.mid(key.indexOf('\n') + 1);
    QByteArray damaged = key;
    constexpr int inTheKey = 120;
    const int at = damaged.indexOf('\n') + inTheKey;
    damaged[at] = damaged.at(at) == 'A' ? 'B' : 'A';
    QTest::newRow("damaged") << damaged;
}

void TestMvpublishSign::wrongKeyFileIsRefused()
{
    QFETCH(QByteArray, content);
    const QString key = home("wrong.key");
    CatalogueFiles::write(key, content);
    const Outcome outcome = sign(key);
    QCOMPARE(QString::fromUtf8(outcome.err),
             text("mvpublish: %1 is not a secret key of minisign, or is damaged\n").arg(key));
    QCOMPARE(outcome.status, 2);
    QVERIFY(!QFile::exists(m_tree->file(ReleasePaths::signature())));
}

void TestMvpublishSign::passwordMustBeThatOfTheKey()
{
    const QString key = home("protected.key");
    CatalogueFiles::write(key, cheapKey);
    CatalogueFiles::write(key + text(".pub"), cheapPublicKey);
    const Outcome wrong = signWith(key, "open barley\n");
    QCOMPARE(QString::fromUtf8(wrong.err),
             text("mvpublish: the password of %1 is wrong\n").arg(key));
    QCOMPARE(wrong.status, 2);
    QVERIFY(!QFile::exists(m_tree->file(ReleasePaths::signature())));
    const Outcome right = signWith(key, "open sesame\n");
    QCOMPARE(right.err, QByteArray());
    QCOMPARE(right.status, 0);
    QCOMPARE(fault(key), QString());
}

void TestMvpublishSign::treeWithoutASoundReleaseIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no release") << ReleasePaths::release() << QByteArray()
                                << QByteArray("holds no release");
    QTest::newRow("damaged release")
        << ReleasePaths::release() << QByteArray("{}") << QByteArray("does not have format 1");
    QTest::newRow("other list") << ReleasePaths::list() << QByteArray("other")
                                << QByteArray("is not the list that the release names");
}

void TestMvpublishSign::treeWithoutASoundReleaseIsRefused()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, message);
    QVERIFY(QFile::remove(m_tree->file(name)));
    if (!content.isEmpty())
        CatalogueFiles::write(m_tree->file(name), content);
    const Outcome outcome = sign(m_key);
    QVERIFY2(outcome.err.contains(message), outcome.err.constData());
    QCOMPARE(outcome.status, 2);
    QVERIFY(!QFile::exists(m_tree->file(ReleasePaths::signature())));
}

void TestMvpublishSign::expiredReleaseIsRefused()
{
    QCOMPARE(m_tree->build({text("--expires"), text("1")}), QString());
    constexpr qint64 secondsPerDay = 86400;
    ReleasedTree::setClock(ReleasedTree::epoch + secondsPerDay);
    const Outcome outcome = sign(m_key);
    QVERIFY2(outcome.err.contains("the release expired at 2096-10-03T07:06:40Z"),
             outcome.err.constData());
    QCOMPARE(outcome.status, 2);
}

void TestMvpublishSign::buildAndSignExcludeEachOther()
{
    m_tree->source().addWork();
    QProcess build;
    build.start(Mvpublish::program(), {text("build"), m_tree->source().folder(), m_tree->folder()});
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(home(".tree.new/config")), 20000);
    const Outcome outcome = sign(m_key);
    QVERIFY2(outcome.err.endsWith("is being written by another run\n"), outcome.err.constData());
    QCOMPARE(outcome.status, 2);
    QCOMPARE(ConsoleProgram::end(build).status, 0);
}

MV_TEST_MAIN(TestMvpublishSign)
#include "tst_mvpublish_sign.moc"
