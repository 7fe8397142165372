// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ConsoleProgram.h"
#include "Mvpublish.h"
#include "Mvres.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/NginxServer.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

/// Returns the code blocks of a document's section, by language; "" where none is named.
QStringList blocks(const QString& document, const QString& section, const char* language)
{
    const int begin = document.indexOf(text("\n## ") + section);
    const int end = document.indexOf(text("\n## "), begin + 1);
    QStringList found;
    auto it = QRegularExpression(text("```([a-z]*)\n(.*?)```"),
                                 QRegularExpression::DotMatchesEverythingOption)
                  .globalMatch(document.mid(begin, end - begin));
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        if (match.captured(1) == text(language))
            found.append(match.captured(2));
    }
    return found;
}

QJsonObject parse(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(json, &error).object();
    return error.error == QJsonParseError::NoError ? object : QJsonObject();
}

/// Splits a command line into words, honouring quotes.
QStringList wordsOf(const QString& line)
{
    QStringList words;
    auto it = QRegularExpression(text("\"([^\"]*)\"|(\\S+)")).globalMatch(line);
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        words.append(match.captured(1) + match.captured(2));
    }
    return words;
}

} // namespace

/// Tests that the worked example of docs/server-format.md works.
class TestMvpublishExample : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void worksAsItIsWritten();

private:
    Outcome run(const QString& line) const;
    QJsonObject manifest(const char* item) const
    {
        return parse(CatalogueFiles::read(home("shop/") + text(item) + text("/item.json")));
    }

    QString m_document;
    QString m_server;
    QString m_guid;
};

void TestMvpublishExample::initTestCase()
{
    if (NginxServer::program().isEmpty())
        QSKIP("nginx is not installed");
    m_document = QString::fromUtf8(CatalogueFiles::read(text(MV_DOCS "/server-format.md")));
    QVERIFY(!m_document.isEmpty());
}

/// Runs a line of the example in the test's own folder.
Outcome TestMvpublishExample::run(const QString& line) const
{
    QString command = line;
    command.replace(text("samples/settings.ini"), text(MV_SAMPLES "/settings.ini"));
    command.replace(text("http://127.0.0.1:8080/"), m_server);
    command.replace(text("/tmp/root"), home("root"));
    command.replace(QRegularExpression(text("\\bGUID$")), m_guid);
    QStringList words = wordsOf(command);
    const QString program = words.takeFirst();
    return ConsoleProgram::run(program == text("bin/mvres") ? Mvres::program()
                                                            : Mvpublish::program(),
                               words, TestHome::path());
}

void TestMvpublishExample::worksAsItIsWritten()
{
    const QString section = text("A worked example");
    const QStringList commands = blocks(m_document, section, "");
    const QStringList json = blocks(m_document, section, "json");
    QCOMPARE(commands.size(), 2);
    QCOMPARE(json.size(), 2);

    const QStringList starts = commands.at(0).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : starts)
        QCOMPARE(run(line).status, 0);

    QJsonObject theme = manifest("evening-in-town");
    const QJsonObject more = parse("{" + json.at(0).trimmed().chopped(1).toUtf8() + "}");
    QCOMPARE(more.keys(), (QStringList{text("scenes"), text("type")}));
    for (auto it = more.constBegin(); it != more.constEnd(); ++it)
        theme.insert(it.key(), it.value());
    m_guid = theme.value(text("guid")).toString();
    CatalogueFiles::write(home("shop/evening-in-town/item.json"), QJsonDocument(theme).toJson());
    CatalogueFiles::write(home("shop/catalogue.json"), json.at(1).toUtf8());

    // The document asks the reader to replace the pictures.
    for (const char* item : {"soft-dusk", "evening-in-town"})
        CatalogueFiles::write(home("shop/%1/%1.png").arg(text(item)), SmallSource::thumbnail());
    CatalogueFiles::write(home("shop/evening-in-town/evening-in-town.gif"),
                          SmallSource::animation());

    NginxServer nginx;
    nginx.include(text(MV_DEPLOY "/nginx.conf"));
    QByteArray said;
    const QStringList lines = commands.at(1).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        if (line.startsWith(text("bin/mvpublish serve"))) {
            QVERIFY2(nginx.start(home("tree"), home("nginx")), qPrintable(nginx.errorText()));
            m_server = nginx.url();
            continue;
        }
        const Outcome outcome = run(line);
        const int expected = line.contains(text(" check ")) ? 20 : 0; // fetched a catalogue
        QVERIFY2(outcome.status == expected, (outcome.out + outcome.err).constData());
        said += outcome.out;
    }
    QVERIFY2(said.contains("\nclean\n"), said.constData());
    QVERIFY2(said.contains(m_guid.toUtf8() + "  theme       Evening in Town  travel"),
             said.constData());
    QVERIFY2(said.contains(m_guid.toUtf8() + " Evening in Town: complete"), said.constData());
    // Includes the filter that the theme uses.
    const QString filter = manifest("soft-dusk").value(text("guid")).toString();
    QVERIFY(QFile::exists(home("root/Themes/config/PQD/Download/VideoFilters/") + filter
                          + text("/filter.zip")));
}

MV_TEST_MAIN(TestMvpublishExample)
#include "tst_mvpublish_example.moc"
