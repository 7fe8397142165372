// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "ReleasedTree.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <memory>

/// Tests that mvpublish build publishes no tree in which lint finds errors.
class TestMvpublishGate : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void errorsKeepTheOldTree_data();
    void errorsKeepTheOldTree();
    void forcePublishesAllTheSame();
    void installationsAreChecked();
    void warningsDoNotKeepTheOldTree();

private:
    Outcome build(const QStringList& options = {}) const
    {
        return Mvpublish::run(
            QStringList{text("build"), m_tree->source().folder(), m_tree->folder()} + options);
    }

    std::unique_ptr<ReleasedTree> m_tree;
};

void TestMvpublishGate::init()
{
    m_tree = std::make_unique<ReleasedTree>(home("tree"));
    QCOMPARE(m_tree->build(), QString());
}

void TestMvpublishGate::errorsKeepTheOldTree_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("code");
    // The source is read faster than that: it looks at the beginning of a picture only.
    QTest::newRow("cut thumbnail")
        << text("look/look 1.png") << SmallSource::thumbnail().left(500) << QByteArray("[picture]");
    QTest::newRow("cut animation")
        << text("film/film.gif") << SmallSource::animation().left(500) << QByteArray("[picture]");
    QTest::newRow("theme config of another")
        << text("film/own.xml") << QByteArray("<Theme/>") << QByteArray("[theme-guid]");
}

void TestMvpublishGate::errorsKeepTheOldTree()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, code);
    const auto before = m_tree->files();
    CatalogueFiles::write(m_tree->source().file(file), content);
    if (file.endsWith(text(".xml"))) {
        for (const char* field : {"scenes", "start", "end", "mask"})
            m_tree->source().set(text("film"), field, QJsonValue(QJsonValue::Undefined));
        m_tree->source().set(text("film"), "definition", text("own.xml"));
    }
    const Outcome outcome = build();
    QVERIFY2(outcome.err.contains(code), outcome.err.constData());
    QVERIFY2(outcome.err.endsWith(m_tree->folder().toUtf8()
                                  + " is left as it is, since the new tree has 1 error; --force "
                                    "publishes it all the same\n"),
             outcome.err.constData());
    QCOMPARE(outcome.status, 1);
    QCOMPARE(outcome.out, QByteArray());
    QVERIFY(m_tree->files() == before);
    QVERIFY(!QFile::exists(home(".tree.new")));
}

void TestMvpublishGate::forcePublishesAllTheSame()
{
    const QByteArray cut = SmallSource::thumbnail().left(500);
    CatalogueFiles::write(m_tree->source().file(text("look/look 1.png")), cut);
    const Outcome outcome = build({text("--force")});
    QVERIFY2(outcome.err.contains("[picture]"), outcome.err.constData());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(m_tree->read(text("display/VideoFilters/look 1.png")), cut);
}

void TestMvpublishGate::installationsAreChecked()
{
    const ReleasedTree installed(home("installed"));
    installed.source().set(text("film"), "installed", true);
    CatalogueFiles::write(installed.source().file(text("film/film.gif")),
                          SmallSource::animation().left(500));
    QVERIFY(installed.build({text("--installed")}).contains(text("[picture]")));
    QVERIFY(!QFile::exists(installed.folder()));
}

/// Such as a release that expires soon: that may well be intended.
void TestMvpublishGate::warningsDoNotKeepTheOldTree()
{
    qunsetenv("SOURCE_DATE_EPOCH");
    const Outcome outcome = build({text("--expires"), text("3")});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    const Outcome lint = Mvpublish::run({text("lint"), m_tree->folder()});
    QVERIFY2(lint.out.contains("[release-expires]"), lint.out.constData());
}

MV_TEST_MAIN(TestMvpublishGate)
#include "tst_mvpublish_gate.moc"
