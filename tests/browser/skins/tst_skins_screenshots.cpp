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
    void looksAsItShould_data();
    void looksAsItShould();

private:
    ScaledRuns m_runs;
};

void tst_skins_screenshots::looksAsItShould_data()
{
    QTest::addColumn<QString>("scale");
    for (const char* scale : ScaledRuns::scales)
        QTest::newRow(scale) << QString::fromLatin1(scale);
}

void tst_skins_screenshots::looksAsItShould()
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
        SkinPictures pictures(scale);
        return QTest::qExec(&pictures, argc, argv);
    }
    tst_skins_screenshots test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_skins_screenshots.moc"
