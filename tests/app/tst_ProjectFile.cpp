// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProjectFile.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>

/// Tests reading project files, and what is said of those that cannot be read.
class tst_ProjectFile : public QObject
{
    Q_OBJECT

private slots:
    void readsItems_data();
    void readsItems();
    void tellsReasonAndPlace_data();
    void tellsReasonAndPlace();
    void fileThatIsMissingIsTold();
    void folderIsRefused();
    void hugeFileIsRefused();
    void errorIsForgotten();
    void manyItemsAreReadQuickly();

private:
    QString write(const QByteArray& text) const;

    QTemporaryDir m_folder;
};

namespace {

const char first[] = "{11111111-1111-4111-8111-111111111111}";
const char second[] = "{22222222-2222-4222-8222-22222222abcd}";

} // namespace

QString tst_ProjectFile::write(const QByteArray& text) const
{
    QString path = m_folder.filePath(QStringLiteral("project.json"));
    CatalogueFiles::write(path, text);
    return path;
}

void tst_ProjectFile::readsItems_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("items"); // GUID and name
    const QString one = QString::fromLatin1(first);
    const QString two = QString::fromLatin1(second);
    const auto row = [](const char* name, const QByteArray& text, const QStringList& items) {
        QTest::newRow(name) << text << items;
    };
    row("object", QByteArray(R"({"items": [{"guid": ")") + first + R"(", "name": "Größe"}]})",
        {one + QStringLiteral("Größe")});
    row("array of GUIDs", QByteArray("[\"") + first + "\", \"" + second + "\"]", {one, two});
    row("array of objects", QByteArray("[{\"guid\": \"") + first + "\"}]", {one});
    row("object with GUIDs", QByteArray("{\"items\": [\"") + second + "\"]}", {two});
    row("other members",
        QByteArray("{\"title\": 1, \"items\": [{\"x\": [], \"guid\": \"") + first + "\"}]}", {one});
    row("twice", QByteArray("[\"") + first + "\", \"" + first + "\"]", {one});
    row("other case, no braces", "[\"22222222-2222-4222-8222-22222222ABCD\"]", {two});
    row("name of another type", QByteArray("[{\"guid\": \"") + first + "\", \"name\": 7}]", {one});
    row("none", "{\"items\": []}", {});
    row("byte order mark", QByteArray("\xef\xbb\xbf[\"") + first + "\"]", {one});
}

void tst_ProjectFile::readsItems()
{
    QFETCH(QByteArray, text);
    ProjectFile file;
    QVERIFY2(file.read(write(text)), qPrintable(file.errorText()));
    QStringList items;
    for (const ProjectFile::Item& item : file.items())
        items.append(item.guid + item.name);
    QTEST(items, "items");
    QVERIFY(file.errorText().isEmpty());
}

void tst_ProjectFile::tellsReasonAndPlace_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QByteArray& text, const char* reason) {
        QTest::newRow(name) << text << QString::fromUtf8(reason);
    };
    row("empty", "", "line 1, column 1: ");
    row("not JSON", "{\n  \"items\": [\n    ß]}", "line 3, column 5: ");
    row("not closed", "[\"a\"", "line 1, column ");
    row("no list", "{\"files\": []}", "there is no list “items”");
    row("list of another type", "{\"items\": {}}", "there is no list “items”");
    row("number", QByteArray("[\"") + first + "\", 7]", "item 2 has no GUID");
    row("object without GUID", "[{\"name\": \"A\"}]", "item 1 has no GUID");
    row("GUID of another type", "[{\"guid\": 1}]", "item 1 has no GUID");
    row("not a GUID", "[\"White Christmas\"]", "item 1: “White Christmas” is not a GUID");
    row("null GUID", "[\"{00000000-0000-0000-0000-000000000000}\"]", "is not a GUID");
}

void tst_ProjectFile::tellsReasonAndPlace()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, reason);
    const QString path = write(text);
    ProjectFile file;
    QVERIFY(!file.read(path));
    QVERIFY2(file.errorText().startsWith(path + QStringLiteral(" cannot be opened: ")),
             qPrintable(file.errorText()));
    QVERIFY2(file.errorText().contains(reason), qPrintable(file.errorText()));
    QVERIFY(file.items().isEmpty());
}

void tst_ProjectFile::fileThatIsMissingIsTold()
{
    ProjectFile file;
    QVERIFY(!file.read(m_folder.filePath(QStringLiteral("none.json"))));
    QVERIFY2(file.errorText().contains(QStringLiteral("No such file")),
             qPrintable(file.errorText()));
}

void tst_ProjectFile::folderIsRefused()
{
    ProjectFile file;
    QVERIFY(!file.read(m_folder.path()));
    QVERIFY2(file.errorText().endsWith(QStringLiteral("not a file")), qPrintable(file.errorText()));
}

void tst_ProjectFile::hugeFileIsRefused()
{
    ProjectFile file;
    QVERIFY(!file.read(write("[]" + QByteArray(int(ProjectFile::maxBytes), ' '))));
    QVERIFY2(file.errorText().contains(QStringLiteral("more than 16 MiB")),
             qPrintable(file.errorText()));
    QVERIFY(file.read(write("[]" + QByteArray(int(ProjectFile::maxBytes) - 2, ' '))));
}

void tst_ProjectFile::errorIsForgotten()
{
    ProjectFile file;
    QVERIFY(!file.read(write("{")));
    QVERIFY(file.read(write(QByteArray("[\"") + first + "\"]")));
    QVERIFY(file.errorText().isEmpty());
    QVERIFY(!file.read(write(QByteArray("[\"") + first + "\", 7]")));
    QVERIFY(file.items().isEmpty());
}

/// The time must not grow with the square of the number of items, which would be minutes.
void tst_ProjectFile::manyItemsAreReadQuickly()
{
    QByteArray text = "[";
    constexpr int count = 300000;
    for (int number = 1; number <= count; ++number)
        text += '"' + CatalogueFiles::guid(number).toUtf8() + (number < count ? "\"," : "\"]");
    ProjectFile file;
    QVERIFY2(file.read(write(text)), qPrintable(file.errorText()));
    QCOMPARE(file.items().size(), count);
}

MV_TEST_MAIN(tst_ProjectFile)
#include "tst_ProjectFile.moc"
