// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleasePaths.h"
#include "faults/FaultyRun.h"
#include "faults/WorldState.h"
#include "Mvpublish.h"
#include "ReleasedTree.h"
#include "ReleaseFaults.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>

#include <algorithm>
#include <memory>

Q_DECLARE_METATYPE(Operation)

/// Tests that mvpublish build does not replace a tree whose release it cannot read: clients would
/// lose the contents that it names.
class TestMvpublishUnreadable : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void unreadableReleaseFailsTheBuild_data();
    void unreadableReleaseFailsTheBuild();

private:
    QString world() const { return home("world"); }
    QStringList arguments() const
    {
        return {text("build"), m_tree->source().folder(), m_tree->folder()};
    }
    int firstOf(Operation operation, const QString& path) const;

    FaultyRun m_runner{world(), home("report")};
    std::unique_ptr<ReleasedTree> m_tree;
};

void TestMvpublishUnreadable::initTestCase()
{
    QCOMPARE(ReleaseFaults::makeKey(), QString());
}

void TestMvpublishUnreadable::init()
{
    QDir(world()).removeRecursively();
    QVERIFY(QDir().mkpath(world()));
    m_tree = std::make_unique<ReleasedTree>(world() + text("/tree"));
    QCOMPARE(ReleaseFaults::makeSigned(*m_tree), QString());
}

/// Returns the number of the first operation of a build on something at or below the path; 0 if
/// there is none. The tree is as before.
int TestMvpublishUnreadable::firstOf(Operation operation, const QString& path) const
{
    const QString saved = home("saved");
    if (!WorldState::copy(world(), saved))
        return 0;
    const QVector<CountedOperation> all =
        m_runner.trace(Mvpublish::program(), arguments()).operations;
    const auto found = std::find_if(all.cbegin(), all.cend(), [&](const CountedOperation& each) {
        return each.operation == operation && each.path.startsWith(path);
    });
    const bool isRestored = WorldState::copy(saved, world());
    return isRestored && found != all.cend() ? found->number : 0;
}

void TestMvpublishUnreadable::unreadableReleaseFailsTheBuild_data()
{
    QTest::addColumn<bool>("isChanged");
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("name");
    const QString contents = ReleasePaths::contentFolder();
    QTest::newRow("release") << true << Operation::OpenFile << ReleasePaths::release();
    QTest::newRow("release cut short") << true << Operation::Read << ReleasePaths::release();
    QTest::newRow("list") << true << Operation::OpenFile << ReleasePaths::list();
    QTest::newRow("signature") << false << Operation::OpenFile << ReleasePaths::signature();
    QTest::newRow("content that only clients of the old release need")
        << true << Operation::OpenFile << contents;
    QTest::newRow("folder of the contents") << false << Operation::OpenFolder << contents;
}

void TestMvpublishUnreadable::unreadableReleaseFailsTheBuild()
{
    QFETCH(bool, isChanged);
    QFETCH(Operation, operation);
    QFETCH(QString, name);
    if (isChanged)
        CatalogueFiles::write(m_tree->source().file(text("look/pack/a.txt")), "other content");
    const int number = firstOf(operation, m_tree->file(name));
    QVERIFY(number > 0);
    const auto before = m_tree->files();

    const FaultyOutcome outcome =
        m_runner.run(Mvpublish::program(), arguments(), {FaultKind::Broken, number, false});
    QVERIFY2(outcome.hit.path.startsWith(m_tree->file(name)), qPrintable(outcome.hit.path));
    QCOMPARE(outcome.status, 2);
    QVERIFY2(outcome.err.contains(outcome.hit.path.toUtf8()), outcome.err.constData());
    QVERIFY(m_tree->files() == before);
}

MV_TEST_MAIN(TestMvpublishUnreadable)
#include "tst_mvpublish_unreadable.moc"
