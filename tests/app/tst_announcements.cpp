// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AccessibilityBus.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/mvThemelistview.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"
#include "VirtualDisplay.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QProcessEnvironment>
#include <QStringList>
#include <QVector>

#include <memory>

/// Tests what a list announces to assistive technology. Qt announces nothing unless an
/// accessibility bus asks it to, so the test has one, and a display.
class tst_announcements : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void announcesADownload();
    void announcesAFailure();
    void announcesAFavourite();
    void announcesTheAppliedItem();
    void announcesUpdates();

private:
    void act(int row, const QString& action) const;
    static QStringList heard(QAccessible::Event type);

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

const QString filesOfLake = QStringLiteral("/config/Themes/2.zip");
const QString press = QAccessibleActionInterface::pressAction();

struct Announcement
{
    QAccessible::Event type;
    QString name;
};

QVector<Announcement>& announcements()
{
    static QVector<Announcement> all;
    return all;
}

void hear(QAccessibleEvent* event)
{
    const QAccessibleInterface* const source = event->accessibleInterface();
    const bool isOfRow = source
        && (source->role() == QAccessible::ListItem || source->role() == QAccessible::ProgressBar);
    if (isOfRow)
        announcements().append({event->type(), source->text(QAccessible::Name)});
}

} // namespace

void tst_announcements::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QTRY_VERIFY_WITH_TIMEOUT(QAccessible::isActive(), 60000);
}

void tst_announcements::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("Sea"));
    m_world->addTheme(2, QStringLiteral("Lake"), BrowserWorld::OnServer);
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
    announcements().clear();
    QAccessible::installUpdateHandler(hear);
}

void tst_announcements::cleanup()
{
    QAccessible::installUpdateHandler(nullptr);
}

void tst_announcements::act(int row, const QString& action) const
{
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(m_list->view());
    list->child(row)->actionInterface()->doAction(action);
}

/// Returns the names that came with this event, in order.
QStringList tst_announcements::heard(QAccessible::Event type)
{
    QStringList names;
    for (const Announcement& one : qAsConst(announcements())) {
        if (one.type == type)
            names.append(one.name);
    }
    return names;
}

void tst_announcements::announcesADownload()
{
    m_world->hold(filesOfLake);
    act(1, press);
    QTRY_COMPARE(m_world->requests(filesOfLake), 1);
    QTRY_VERIFY(!heard(QAccessible::ValueChanged).isEmpty());
    QVERIFY(heard(QAccessible::ValueChanged).last().startsWith(QLatin1String("downloading, ")));
    QTRY_COMPARE(heard(QAccessible::ObjectShow).size(), 1);
    QCOMPARE(heard(QAccessible::StateChanged).size(), 1); // busy
    m_world->release();
    const QString end = QStringLiteral("Lake, on disk, current, 2 of 2");
    QTRY_COMPARE(heard(QAccessible::Alert), QStringList{end});
    QVERIFY(heard(QAccessible::NameChanged).contains(end));
    QCOMPARE(heard(QAccessible::StateChanged).size(), 2); // no longer
}

void tst_announcements::announcesAFailure()
{
    m_world->route(filesOfLake,
                   [](HttpExchange& exchange) { exchange.answer(HttpAnswer(404).body("no")); });
    act(1, press);
    QTRY_COMPARE(heard(QAccessible::Alert),
                 QStringList{QStringLiteral("Lake, download failed, 2 of 2")});
}

void tst_announcements::announcesAFavourite()
{
    act(0, QStringLiteral("Favourite"));
    QTRY_COMPARE(heard(QAccessible::NameChanged),
                 QStringList{QStringLiteral("Sea, favourite, on disk, 1 of 2")});
    BrowserWorld::setFavourite(BrowserWorld::theme(1), false);
}

void tst_announcements::announcesTheAppliedItem()
{
    act(0, press);
    QTRY_COMPARE(heard(QAccessible::NameChanged),
                 QStringList{QStringLiteral("Sea, on disk, current, 1 of 2")});
    act(1, press);
    QTRY_COMPARE(heard(QAccessible::Alert),
                 QStringList{QStringLiteral("Lake, on disk, current, 2 of 2")});
    QVERIFY(heard(QAccessible::NameChanged).contains(QStringLiteral("Sea, on disk, 1 of 2")));
}

void tst_announcements::announcesUpdates()
{
    m_list->view()->setUpdatable({CatalogueFiles::guid(1), CatalogueFiles::guid(77)});
    const QString outdated = QStringLiteral("Sea, update available, 1 of 2");
    QCOMPARE(heard(QAccessible::NameChanged), QStringList{outdated});
    m_list->view()->setUpdatable({});
    QCOMPARE(heard(QAccessible::NameChanged),
             (QStringList{outdated, QStringLiteral("Sea, on disk, 1 of 2")}));
}

int main(int argc, char** argv)
{
    const TestHome home;
    const QString runtime = TestHome::path() + QStringLiteral("/run");
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", runtime.toUtf8());
    const VirtualDisplay display;
    qputenv("DISPLAY", display.name().toUtf8());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const AccessibilityBus bus(QProcessEnvironment::systemEnvironment());
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    TestApplication<QApplication> application(argc, argv);
    tst_announcements test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_announcements.moc"
