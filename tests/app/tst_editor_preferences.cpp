// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"
#include "EditorWorld.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QDataStream>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRect>

namespace {

const QByteArray serialized = "[view]\nskin=@Variant(\\0\\0\\0\\v\\x7f\\xff\\xff\\xf0)\n";

/// Returns a window geometry in Qt's storage format.
QByteArray storedGeometry(const QRect& place)
{
    constexpr quint32 magic = 0x1D9D0CB;
    constexpr quint16 majorVersion = 3;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_0);
    stream << magic << majorVersion << quint16(0) << place << place << qint32(0) << quint8(0)
           << quint8(0) << qint32(1280) << place;
    return bytes;
}

} // namespace

/// Tests that an invalid preferences file does not keep the editor from starting.
class tst_editor_preferences : public QObject
{
    Q_OBJECT

private slots:
    void aDamagedFileIsKeptAsideAndReported_data();
    void aDamagedFileIsKeptAsideAndReported();
    void senselessValuesDoNoHarm_data();
    void senselessValuesDoNoHarm();
    void theSplitterStays();
};

void tst_editor_preferences::aDamagedFileIsKeptAsideAndReported_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("serialized value") << serialized;
    QTest::newRow("cut") << QByteArray("{\"skin\": \"Eleg");
}

void tst_editor_preferences::aDamagedFileIsKeptAsideAndReported()
{
    QFETCH(QByteArray, content);
    const EditorWorld world;
    CatalogueFiles::write(world.preferencesFile(), content);
    const Outcome outcome = Editor(world).run(QStringLiteral("wait phase idle\n"), false);
    VERIFY_ENDED_WELL(outcome);
    const QString kept = world.preferencesFile() + QStringLiteral(".damaged-1");
    QVERIFY2(outcome.err.contains("kept in " + QFile::encodeName(kept)), outcome.err.constData());
    QCOMPARE(CatalogueFiles::read(kept), content);
}

void tst_editor_preferences::senselessValuesDoNoHarm_data()
{
    QTest::addColumn<QByteArray>("content");
    const auto geometry = [](const char* name, const QRect& place) {
        QTest::newRow(name) << "{\"geometry\": \"" + storedGeometry(place).toBase64() + "\"}";
    };
    geometry("larger than any screen", {10, 30, 40000, 30000});
    geometry("as large as numbers are", {10, 30, 2000000000, 2000000000});
    geometry("far away", {-2000000000, 2000000000, 900, 700});
    QTest::newRow("cut geometry") << QByteArray(R"({"geometry": "AdnQywADAAA="})");
    QTest::newRow("three sizes") << QByteArray(R"({"splitterSizes": [1, 2, 3]})");
    QTest::newRow("huge sizes") << QByteArray(R"({"splitterSizes": [16777215, 16777215]})");
}

void tst_editor_preferences::senselessValuesDoNoHarm()
{
    QFETCH(QByteArray, content);
    const EditorWorld world;
    CatalogueFiles::write(world.preferencesFile(), content);
    VERIFY_ENDED_WELL(Editor(world).run(QStringLiteral("wait phase idle\n"
                                                       "wait text check \"Check now\"\n"
                                                       "click tab 2\n"
                                                       "wait shown 1\n"),
                                        false));
}

void tst_editor_preferences::theSplitterStays()
{
    const EditorWorld world;
    const auto afterARun = [&world]() -> QJsonObject {
        const Outcome outcome = Editor(world).run(QStringLiteral("wait phase idle\n"), false);
        if (outcome.status != 0)
            return {};
        return QJsonDocument::fromJson(CatalogueFiles::read(world.preferencesFile())).object();
    };
    const QString key = QStringLiteral("splitterSizes");
    QJsonObject preferences = afterARun();
    const QJsonArray first = preferences.value(key).toArray();
    QCOMPARE(first.size(), 2);
    const QJsonArray moved{first[0].toInt() - 100, first[1].toInt() + 100};
    preferences.insert(key, moved);
    CatalogueFiles::write(world.preferencesFile(), QJsonDocument(preferences).toJson());
    QCOMPARE(afterARun().value(key).toArray(), moved);
}

MV_TEST_MAIN(tst_editor_preferences)
#include "tst_editor_preferences.moc"
