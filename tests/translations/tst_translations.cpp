// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/CatalogueFiles.h"
#include "support/TestLetters.h"
#include "support/TestMain.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>

/// Tests that translations/ is complete and uses only letters that the tests can measure.
class tst_translations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void areUpToDate_data() { files(); }
    void areUpToDate();
    void areFinished_data() { files(); }
    void areFinished();
    void haveFonts_data() { files(); }
    void haveFonts();
    void favoritesHaveOneSpelling_data();
    void favoritesHaveOneSpelling();

private:
    void files() const;

    const QString m_project = QStringLiteral(MV_PROJECT);
    QStringList m_names;
};

namespace {

/// Calls `check` with every translation and whether it is finished.
template <class Check>
void forEachTranslation(const QString& path, Check check)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    int translations = 0;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement
            || reader.name() != QLatin1String("translation"))
            continue;
        const bool finished = !reader.attributes().hasAttribute(QStringLiteral("type"));
        check(reader.readElementText(QXmlStreamReader::IncludeChildElements), finished);
        ++translations;
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    QVERIFY(translations > 0);
}

} // namespace

void tst_translations::initTestCase()
{
    m_names = QDir(m_project + QStringLiteral("/translations")).entryList({QStringLiteral("*.ts")});
    QVERIFY(m_names.size() > 10);
    for (const QString& name : qAsConst(m_names))
        CatalogueFiles::write(
            TestHome::path() + QStringLiteral("/updated/") + name,
            CatalogueFiles::read(m_project + QStringLiteral("/translations/") + name));
    QProcess update;
    update.setProcessChannelMode(QProcess::MergedChannels);
    update.start(m_project + QStringLiteral("/script/translate"),
                 {TestHome::path() + QStringLiteral("/updated")});
    QVERIFY(update.waitForFinished());
    QVERIFY2(update.exitStatus() == QProcess::NormalExit && update.exitCode() == 0,
             update.readAll().constData());
}

void tst_translations::files() const
{
    QTest::addColumn<QString>("name");
    for (const QString& name : m_names)
        QTest::newRow(qPrintable(name)) << name;
}

void tst_translations::areUpToDate()
{
    QFETCH(QString, name);
    QVERIFY2(
        CatalogueFiles::read(m_project + QStringLiteral("/translations/") + name)
            == CatalogueFiles::read(TestHome::path() + QStringLiteral("/updated/") + name),
        "the texts of the sources have changed: run script/translate and translate what is new");
}

void tst_translations::areFinished()
{
    QFETCH(QString, name);
    forEachTranslation(m_project + QStringLiteral("/translations/") + name,
                       [](const QString& text, bool finished) {
                           QVERIFY(finished);
                           QVERIFY(!text.trimmed().isEmpty());
                       });
}

void tst_translations::haveFonts()
{
    QFETCH(QString, name);
    forEachTranslation(m_project + QStringLiteral("/translations/") + name,
                       [](const QString& text, bool /*finished*/) { verifyHasFont(text); });
}

void tst_translations::favoritesHaveOneSpelling_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names = m_names.filter(QStringLiteral("mveditor"));
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

/// Names in the code differ from what users read.
void tst_translations::favoritesHaveOneSpelling()
{
    QFETCH(QString, name);
    const QString texts = QString::fromUtf8(
        CatalogueFiles::read(m_project + QStringLiteral("/translations/") + name));
    static const QRegularExpression other(
        QStringLiteral("<(source|translation|numerusform)>[^<]*favourite[^<]*"),
        QRegularExpression::CaseInsensitiveOption);
    QCOMPARE(other.match(texts).captured(), QString());
}

MV_WIDGET_TEST_MAIN(tst_translations)
#include "tst_translations.moc"
