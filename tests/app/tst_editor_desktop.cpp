// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "gui/RealInput.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QPoint>

/// Tests what the window opens in other desktop programs when no script drives it.
class tst_editor_desktop : public QObject
{
    Q_OBJECT

private slots:
    void moreOpensItsAddress_data();
    void moreOpensItsAddress();
};

namespace {

/// Position of "More>>" in an empty list, with the window in the corner of the display.
constexpr QPoint more(95, 158);

/// Installs a desktop handler that records what it is asked to open, and at which scale.
QString installDesktop(const EditorWorld& world)
{
    QString folder = world.folder() + QStringLiteral("/bin");
    const QString program = folder + QStringLiteral("/xdg-open");
    CatalogueFiles::write(program,
                          "#!/bin/sh\n"
                          "echo \"$1 ${QT_SCALE_FACTOR-none}\" >\"$0.part\"\n"
                          "mv \"$0.part\" \"$0.opened\"\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return folder;
}

} // namespace

void tst_editor_desktop::moreOpensItsAddress_data()
{
    QTest::addColumn<QByteArray>("preferences");
    QTest::addColumn<QByteArray>("environment");
    QTest::addColumn<QByteArray>("inherited");
    QTest::addColumn<double>("scale");
    QTest::newRow("as the screen says")
        << QByteArray() << QByteArray() << QByteArray("none") << 1.0;
    QTest::newRow("enlarged") << QByteArray(R"({"scale": 125})") << QByteArray()
                              << QByteArray("none") << 1.25;
    QTest::newRow("enlarged by the environment")
        << QByteArray(R"({"scale": 200})") << QByteArray("1.25") << QByteArray("1.25") << 1.25;
}

void tst_editor_desktop::moreOpensItsAddress()
{
    QFETCH(QByteArray, preferences);
    QFETCH(QByteArray, environment);
    QFETCH(QByteArray, inherited);
    QFETCH(double, scale);
    const EditorWorld world; // nothing is there: "More>>" is the first cell
    CatalogueFiles::write(world.preferencesFile(), preferences);
    const QString bin = installDesktop(world);
    const QString opened = bin + QStringLiteral("/xdg-open.opened");
    Editor editor(world);
    editor.setVariable(QStringLiteral("PATH"),
                       bin + QLatin1Char(':') + qEnvironmentVariable("PATH"));
    if (!environment.isEmpty())
        editor.setVariable(QStringLiteral("QT_SCALE_FACTOR"), QString::fromLatin1(environment));
    editor.startBare(world.arguments(false));
    const auto isOpened = [&] {
        Editor::input().moveTo((QPointF(more) * scale).toPoint());
        Editor::input().click(); // has no effect until the window is shown
        return QFile::exists(opened);
    };
    QTRY_VERIFY_WITH_TIMEOUT(isOpened(), 20000);
    QCOMPARE(CatalogueFiles::read(opened),
             QByteArray("http://127.0.0.1:1/more ") + inherited + '\n');
    editor.kill();
}

MV_TEST_MAIN(tst_editor_desktop)
#include "tst_editor_desktop.moc"
