// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/ScaledRuns.h"
#include "support/TestMain.h"
#include "VirtualDisplay.h"
#include "WindowTexts.h"

#include <QApplication>

/// Tests the window's texts at every scale, on a display with a typical resolution.
class tst_windowTexts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void areWhole_data() { ScaledRuns::addRows(); }
    void areWhole() { m_runs.verifyRun(); }

private:
    const VirtualDisplay m_display{{2560, 2048}};
    ScaledRuns m_runs;
};

void tst_windowTexts::initTestCase()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("DISPLAY"), m_display.name());
    // Without this a session bus would be started for the display and outlive the test.
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                       QStringLiteral("unix:path=") + TestHome::path() + QStringLiteral("/bus"));
    m_runs.start(environment);
}

MV_SCALED_TEST_MAIN(tst_windowTexts, WindowTexts)
#include "tst_windowTexts.moc"
