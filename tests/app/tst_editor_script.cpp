// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QFile>
#include <QUuid>

/// Tests edge cases of scripts: no steps, no folder for pictures.
class tst_editor_script : public QObject
{
    Q_OBJECT

private slots:
    void withoutStepsItEnds_data();
    void withoutStepsItEnds();
    void withoutAFolderThereAreNoPictures();
    void onePictureWithoutAScript();

private:
    static Outcome run(const EditorWorld& world, const QByteArray& steps)
    {
        const QString file = world.folder() + QStringLiteral("/steps.txt");
        CatalogueFiles::write(file, steps);
        return Editor(world).runDemo(world.arguments(false)
                                     + QStringList{QStringLiteral("--script"), file});
    }
};

void tst_editor_script::withoutStepsItEnds_data()
{
    QTest::addColumn<QByteArray>("steps");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("a comment") << QByteArray("# nothing to do\n\n");
}

void tst_editor_script::withoutStepsItEnds()
{
    QFETCH(QByteArray, steps);
    VERIFY_ENDED_WELL(run(EditorWorld(), steps));
}

void tst_editor_script::withoutAFolderThereAreNoPictures()
{
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    VERIFY_ENDED_WELL(run(EditorWorld(), "wait phase idle\nscreenshot " + name.toLatin1() + '\n'));
    const QString inTheRoot = QStringLiteral("/%1.png").arg(name);
    const bool written = QFile::remove(inTheRoot); // only root can write there
    QVERIFY(!written);
}

void tst_editor_script::onePictureWithoutAScript()
{
    const EditorWorld world;
    const QString pictures = world.folder() + QStringLiteral("/pictures");
    VERIFY_ENDED_WELL(Editor(world).runDemo(
        world.arguments() + QStringList{QStringLiteral("--screenshot"), pictures}));
    QVERIFY(QFile::exists(pictures + QStringLiteral("/window.png")));
}

MV_TEST_MAIN(tst_editor_script)
#include "tst_editor_script.moc"
