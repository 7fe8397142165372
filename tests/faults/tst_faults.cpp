// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// tst_faults SCENARIO [QTEST ARGUMENTS...]: disturbs one command at its file operations.

#include "BuildScenario.h"
#include "CheckScenario.h"
#include "FaultLab.h"
#include "FavouriteScenario.h"
#include "FetchScenario.h"
#include "RetireScenario.h"
#include "StorageScenario.h"
#include "support/TestMain.h"

#include <QTest>

#include <cstdio>
#include <memory>

namespace {

std::unique_ptr<Scenario> scenarioNamed(const QByteArray& name)
{
    const auto build = [](BuildScenario::Place place) {
        return std::make_unique<BuildScenario>(place, TestHome::path() + QStringLiteral("/world"));
    };
    if (name == "check")
        return std::make_unique<CheckScenario>(CheckScenario::Before::Downloaded);
    if (name == "firstCheck")
        return std::make_unique<CheckScenario>(CheckScenario::Before::Installed);
    if (name == "fetch")
        return std::make_unique<FetchScenario>(FetchScenario::Before::Nothing);
    if (name == "fetchRest")
        return std::make_unique<FetchScenario>(FetchScenario::Before::Config);
    if (name == "favourite")
        return std::make_unique<FavouriteScenario>(FavouriteScenario::Favourites::Some);
    if (name == "firstFavourite")
        return std::make_unique<FavouriteScenario>(FavouriteScenario::Favourites::None);
    if (name == "build")
        return build(BuildScenario::Place::Folder);
    if (name == "buildLink")
        return build(BuildScenario::Place::Link);
    if (name == "buildRefused")
        return build(BuildScenario::Place::Foreign);
    if (name == "retire")
        return std::make_unique<RetireScenario>(TestHome::path() + QStringLiteral("/world"));
    if (name == "update")
        return std::make_unique<StorageScenario>(StorageScenario::Command::Update);
    if (name == "remove")
        return std::make_unique<StorageScenario>(StorageScenario::Command::Remove);
    if (name == "clean")
        return std::make_unique<StorageScenario>(StorageScenario::Command::Clean);
    return nullptr;
}

} // namespace

class TestFaults : public QObject
{
    Q_OBJECT

public:
    explicit TestFaults(Scenario& scenario)
        : m_lab(scenario, TestHome::path())
    {
    }

private slots:
    void initTestCase() { QCOMPARE(m_lab.begin(), QString()); }
    void leavesOldOrNew_data() { m_lab.addRows(m_lab.chosenFaults()); }
    void leavesOldOrNew();
    void cleanupTestCase() { qInfo().noquote() << m_lab.statistics(); }

private:
    FaultLab m_lab;
};

void TestFaults::leavesOldOrNew()
{
    QFETCH(Fault, fault);
    const QString trouble = m_lab.troubleWith(fault);
    QVERIFY2(trouble.isEmpty(), qPrintable(trouble));
}

int main(int argc, char** argv)
{
    const TestHome home;
    TestApplication<QCoreApplication> application(argc, argv);
    const std::unique_ptr<Scenario> scenario = argc > 1 ? scenarioNamed(argv[1]) : nullptr;
    if (!scenario) {
        std::fputs("usage: tst_faults SCENARIO [QTEST ARGUMENTS...]; see CMakeLists.txt\n", stderr);
        return 2;
    }
    argv[1] = argv[0];
    TestFaults test(*scenario);
    return QTest::qExec(&test, argc - 1, argv + 1);
}

#include "tst_faults.moc"
