// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/BriefApplication.h"
#include "host/widgets/GatedPng.h"
#include "host/widgets/PictureLoader.h"
#include "host/widgets/PictureRequest.h"
#include "host/widgets/TestImages.h"

#include <QPointer>
#include <QSignalSpy>

#include <memory>
#include <thread>
#include <vector>

Q_IMPORT_PLUGIN(GatedPngPlugin)

namespace {

constexpr int moreThanThreads = 12;

using Request = std::shared_ptr<PictureRequest>;

Request request(const QString& name)
{
    const QString path =
        TestImages::write(name + QStringLiteral(".png"), QSize(30, 30), QColor(255, 0, 0));
    return PictureLoader::instance()->request(name, path, QSize(20, 20),
                                              PictureLoader::Sharing::Any);
}

/// Returns whether the GUI thread waits for something.
bool isGuiThreadAsleep()
{
    QFile status(QStringLiteral("/proc/self/stat"));
    if (!status.open(QIODevice::ReadOnly))
        qFatal("no /proc");
    const QByteArray line = status.readAll();
    return line.at(line.lastIndexOf(')') + 2) == 'S';
}

std::thread opener;

/// Opens the gate once the GUI thread waits for the loader's threads.
void openGateAside()
{
    opener = std::thread([] {
        while (!isGuiThreadAsleep())
            std::this_thread::yield();
        GatedPng::open();
    });
}

int endedWithTheLoader = 0;

void countEnded()
{
    endedWithTheLoader = GatedPng::ended();
}

/// An application whose loader decodes, and waits at the gate until the application ends.
class BusyApplication
{
public:
    explicit BusyApplication(int pictures)
    {
        qAddPostRoutine(&countEnded); // called after the loader's destruction
        GatedPng::close();
        for (int i = 0; i < pictures; ++i)
            m_requests.push_back(request(QString::number(i)));
        qAddPostRoutine(&openGateAside); // called before it
    }
    ~BusyApplication()
    {
        m_application.reset();
        opener.join();
    }
    Q_DISABLE_COPY_MOVE(BusyApplication)

private:
    std::unique_ptr<BriefApplication> m_application = std::make_unique<BriefApplication>();
    std::vector<Request> m_requests; // outlive the application
};

} // namespace

/// Every test creates its own application; no other one exists.
class tst_PictureLoaderLifetime : public QObject
{
    Q_OBJECT

private slots:
    void init() { GatedPng::reset(); }
    void cleanup() { GatedPng::open(); }

    void endsWithTheApplication();
    void theNextApplicationHasANewOne();
    void aDecodingThatHasBegunIsAwaited();
    void waitingPicturesAreNotDecoded();
    void isIdleWithoutALoader();
};

void tst_PictureLoaderLifetime::endsWithTheApplication()
{
    QPointer<PictureLoader> loader;
    {
        const BriefApplication application;
        loader = PictureLoader::instance();
        QVERIFY(loader);
        QCOMPARE(PictureLoader::instance(), loader.data());
    }
    QVERIFY(!loader);
}

void tst_PictureLoaderLifetime::theNextApplicationHasANewOne()
{
    for (int run = 0; run < 3; ++run) {
        const BriefApplication application;
        const Request wanted = request(QStringLiteral("a"));
        QSignalSpy decoded(wanted.get(), &PictureRequest::decoded);
        QTRY_COMPARE(decoded.size(), 1);
        QCOMPARE(decoded.first().first().value<QPixmap>().size(), QSize(20, 20));
        QVERIFY(PictureLoader::isIdle());
    }
}

void tst_PictureLoaderLifetime::aDecodingThatHasBegunIsAwaited()
{
    {
        const BusyApplication application(1);
        QTRY_COMPARE(GatedPng::begun().size(), 1);
        QCOMPARE(GatedPng::ended(), 0);
    }
    QCOMPARE(endedWithTheLoader, 1);
}

void tst_PictureLoaderLifetime::waitingPicturesAreNotDecoded()
{
    {
        const BusyApplication application(moreThanThreads);
        QTRY_VERIFY(!GatedPng::begun().isEmpty());
    }
    QCOMPARE(GatedPng::begun().size(), endedWithTheLoader);
    QVERIFY(endedWithTheLoader < moreThanThreads / 2);
}

void tst_PictureLoaderLifetime::isIdleWithoutALoader()
{
    QVERIFY(PictureLoader::isIdle());
    {
        const BusyApplication application(1);
        QVERIFY(!PictureLoader::isIdle());
    }
    QVERIFY(PictureLoader::isIdle());
}

int main(int argc, char** argv)
{
    const TestHome home;
    BriefApplication::createRuntimeFolder();
    tst_PictureLoaderLifetime test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_PictureLoaderLifetime.moc"
