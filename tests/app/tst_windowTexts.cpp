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
    void areWhole_data();
    void areWhole();

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

void tst_windowTexts::areWhole_data()
{
    QTest::addColumn<QString>("scale");
    for (const char* scale : ScaledRuns::scales)
        QTest::newRow(scale) << QString::fromLatin1(scale);
}

void tst_windowTexts::areWhole()
{
    QFETCH(QString, scale);
    const QByteArray complaints = m_runs.complaints(scale);
    QVERIFY2(complaints.isEmpty(), complaints.constData());
}

int main(int argc, char** argv)
{
    const TestHome home;
    const QString scale = ScaledRuns::enter();
    TestApplication<QApplication> application(argc, argv);
    if (!scale.isEmpty()) {
        WindowTexts texts(scale);
        return QTest::qExec(&texts, argc, argv);
    }
    tst_windowTexts test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_windowTexts.moc"
