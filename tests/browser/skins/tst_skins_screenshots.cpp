#include "SkinPictures.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QProcess>
#include <QStringList>

#include <map>

namespace {

constexpr const char* scaleVariable = "MV_SKIN_PICTURES_SCALE";
constexpr int longestRunMs = 90000;

/// What failed, without what passed: a message of QVERIFY2 has few lines.
QByteArray complaintsIn(const QByteArray& output)
{
    QByteArray complaints;
    const QList<QByteArray> lines = output.split('\n');
    for (const QByteArray& line : lines) {
        if (!line.isEmpty() && !line.startsWith("PASS") && !line.startsWith("QStandardPaths"))
            complaints += line + '\n';
    }
    return complaints;
}

} // namespace

/// Every skin at every scale. The scale of a process is fixed when it starts, so the pictures are
/// taken by processes of their own, which are this program again.
class tst_skins_screenshots : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void looksAsItShould_data();
    void looksAsItShould();
    void cleanupTestCase();

private:
    std::map<QString, QProcess> m_pictures; // by scale
};

void tst_skins_screenshots::initTestCase()
{
    for (const char* factor : {"1", "2"}) {
        const QString scale = QString::fromLatin1(factor);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(scaleVariable), scale);
        QProcess& pictures = m_pictures[scale];
        pictures.setProcessEnvironment(environment);
        pictures.setProcessChannelMode(QProcess::MergedChannels);
        pictures.start(QCoreApplication::applicationFilePath(), QStringList());
    }
}

void tst_skins_screenshots::looksAsItShould_data()
{
    QTest::addColumn<QString>("scale");
    for (const auto& pictures : m_pictures)
        QTest::newRow(qPrintable(pictures.first)) << pictures.first;
}

void tst_skins_screenshots::looksAsItShould()
{
    QFETCH(QString, scale);
    QProcess& pictures = m_pictures.at(scale);
    QVERIFY(pictures.state() == QProcess::NotRunning || pictures.waitForFinished(longestRunMs));
    const QByteArray output = pictures.readAll();
    QVERIFY2(pictures.exitStatus() == QProcess::NormalExit && pictures.exitCode() == 0,
             complaintsIn(output).constData());
    QVERIFY2(output.contains("PASS") && !output.contains("QWARN"),
             complaintsIn(output).constData());
}

void tst_skins_screenshots::cleanupTestCase()
{
    m_pictures.clear();
}

int main(int argc, char** argv)
{
    const TestHome home;
    if (qEnvironmentVariableIsSet(scaleVariable))
        qputenv("QT_SCALE_FACTOR", qgetenv(scaleVariable));
    TestApplication<QApplication> application(argc, argv);
    if (qEnvironmentVariableIsSet(scaleVariable)) {
        SkinPictures pictures(qEnvironmentVariable(scaleVariable));
        return QTest::qExec(&pictures, argc, argv);
    }
    tst_skins_screenshots test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_skins_screenshots.moc"
