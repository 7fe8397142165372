// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QByteArray>
#include <QDir>
#include <QFileInfo>
#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>

#include <iterator>
#include <memory>

/// Tests that plugins.qmltypes tells tools of what the QML module Mv.Resources has.
class tst_qmlTypes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void describesNoOtherTypes();
    void describesTheType_data();
    void describesTheType();
    void linterKnowsTheTypes_data();
    void linterKnowsTheTypes();

private:
    QString descriptionOf(const QString& type) const;

    QString m_types; // the content of plugins.qmltypes
};

namespace {

constexpr int longestWaitMs = 30000;
const char* const typeNames[] = {"ResourceCatalogue", "ResourceFilterModel", "ResourceModel"};

/// Returns whether the description has an entry of one of the kinds, as "Signal|Method".
bool hasEntry(const QString& description, const char* kinds, const QByteArray& name)
{
    const QString pattern = QStringLiteral("\\b(%1) \\{\\s*name: \"%2\"");
    return description.contains(
        QRegularExpression(pattern.arg(text(kinds), QString::fromLatin1(name))));
}

} // namespace

void tst_qmlTypes::initTestCase()
{
    m_types = QString::fromUtf8(
        CatalogueFiles::read(QStringLiteral(MV_QML_FOLDER "/Mv/Resources/plugins.qmltypes")));
    QVERIFY(!m_types.isEmpty());
}

/// Returns the part of the file with the type that documents know by the name.
QString tst_qmlTypes::descriptionOf(const QString& type) const
{
    const QStringList parts = m_types.split(text("\n    Component {"));
    for (const QString& part : parts) {
        if (part.contains(QStringLiteral("\"Mv.Resources/%1 1.0\"").arg(type)))
            return part;
    }
    return {};
}

void tst_qmlTypes::describesNoOtherTypes()
{
    QCOMPARE(m_types.count(text("exports:")), static_cast<int>(std::size(typeNames)));
}

void tst_qmlTypes::describesTheType_data()
{
    QTest::addColumn<QString>("type");
    for (const char* const name : typeNames)
        QTest::newRow(name) << text(name);
}

/// Creates the type by its name in QML, and compares the description with what the object has.
void tst_qmlTypes::describesTheType()
{
    QFETCH(const QString, type);
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(MV_QML_FOLDER));
    QQmlComponent component(&engine);
    component.setData("import Mv.Resources 1.0\n" + type.toLatin1() + " {}", QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    const QMetaObject* const meta = object->metaObject();
    QCOMPARE(QString::fromLatin1(meta->className()), type);
    const QString description = descriptionOf(type);

    for (int i = meta->enumeratorOffset(); i < meta->enumeratorCount(); ++i) {
        const QMetaEnum values = meta->enumerator(i);
        QVERIFY2(hasEntry(description, "Enum", values.name()), values.name());
        for (int key = 0; key < values.keyCount(); ++key)
            QVERIFY2(description.contains(QStringLiteral("\"%1\"").arg(text(values.key(key)))),
                     values.key(key));
    }
    QSet<int> notifiers; // which the file of Qt 5 leaves out: a property has one anyway
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        QVERIFY2(hasEntry(description, "Property", property.name()), property.name());
        notifiers.insert(property.notifySignalIndex());
    }
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        const QByteArray name = meta->method(i).name();
        if (!notifiers.contains(i))
            QVERIFY2(hasEntry(description, "Signal|Method", name), name.constData());
    }
}

void tst_qmlTypes::linterKnowsTheTypes_data()
{
    if (QByteArray(MV_QMLLINT).isEmpty())
        QSKIP("only the linter of Qt 6 knows types");
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("complaint"); // empty: none
    const QDir example(QStringLiteral(MV_QUICK_EXAMPLE));
    const QStringList documents = example.entryList({text("*.qml")});
    QVERIFY(documents.contains(text("Main.qml")));
    for (const QString& name : documents)
        QTest::newRow(qPrintable(name)) << example.filePath(name) << QString();

    const QString path = home("Wrong.qml");
    CatalogueFiles::write(path,
                          "import QtQuick\nimport Mv.Resources\n"
                          "ResourceFilterModel { searchedText: \"\" }\n");
    QTest::newRow("a property that is not there") << path << text("searchedText");
}

void tst_qmlTypes::linterKnowsTheTypes()
{
    QFETCH(const QString, document);
    QFETCH(const QString, complaint);
    QProcess linter;
    linter.setProcessChannelMode(QProcess::MergedChannels);
    // A delegate's "model" is in no document.
    linter.start(text(MV_QMLLINT),
                 {text("--unqualified"), text("disable"), text("-I"), QStringLiteral(MV_QML_FOLDER),
                  document});
    QVERIFY(linter.waitForFinished(longestWaitMs));
    const QString output = QString::fromUtf8(linter.readAll());
    QVERIFY2((linter.exitCode() == 0) == complaint.isEmpty(), qPrintable(output));
    QVERIFY2(complaint.isEmpty() ? output.isEmpty() : output.contains(complaint),
             qPrintable(output));
}

MV_TEST_MAIN(tst_qmlTypes)
#include "tst_qmlTypes.moc"
