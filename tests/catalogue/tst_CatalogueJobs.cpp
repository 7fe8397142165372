// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueJobs.h"
#include "support/TestMain.h"

#include <memory>

/// Tests the jobs that use items of the catalogue on a thread.
class tst_CatalogueJobs : public QObject
{
    Q_OBJECT

private slots:
    void workIsDestroyedBeforeItsEnd();
};

/// A handler of the end may load the catalogue again, to which the data of the work may belong.
void tst_CatalogueJobs::workIsDestroyedBeforeItsEnd()
{
    CatalogueJobs jobs;
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> watched = held;
    bool hasEnded = false;
    bool wasHeld = true;
    CatalogueJobs::Job job;
    job.prepare = [&held](const CancelToken&) -> CatalogueJobs::Work {
        return [work = std::move(held)] { ++*work; };
    };
    job.ended = [&] {
        wasHeld = !watched.expired();
        hasEnded = true;
    };
    jobs.add(std::move(job));
    QTRY_VERIFY(hasEnded);
    QVERIFY(!wasHeld);
}

MV_TEST_MAIN(tst_CatalogueJobs)

#include "tst_CatalogueJobs.moc"
