// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SkinPictures.h"
#include "support/ScaledRuns.h"
#include "support/TestMain.h"

#include <QApplication>

/// Tests every skin at every scale.
class tst_skins_screenshots : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_runs.start(QProcessEnvironment::systemEnvironment()); }
    void looksAsItShould_data() { ScaledRuns::addRows(); }
    void looksAsItShould() { m_runs.verifyRun(); }

private:
    ScaledRuns m_runs;
};

MV_SCALED_TEST_MAIN(tst_skins_screenshots, SkinPictures)
#include "tst_skins_screenshots.moc"
