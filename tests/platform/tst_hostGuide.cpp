// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <QtTest>

#include <algorithm>

/// Tests that the host guide tells what the code has.
class tst_hostGuide : public QObject
{
    Q_OBJECT

private slots:
    void listsWhatTheLibrariesNeedOfAPlatform();
    void tellsTheirNumber();
    void showsTheExampleAsItIs();

private:
    static QSet<QString> symbols(const QString& library, const QString& option);
    static QSet<QString> needed();
    static QString guide();
    static QString partOnSymbols();
    static QStringList listed();
};

namespace {

/// Returns the name without parameters: "CurWrapper::cancel()".
QString nameOf(const QString& symbol)
{
    static const QRegularExpression rest(QStringLiteral("(\\[abi:[^]]*\\])?\\(.*"));
    return QString(symbol).remove(rest) + QStringLiteral("()");
}

QStringList sorted(QStringList names)
{
    names.removeDuplicates();
    names.sort();
    return names;
}

} // namespace

/// Returns a library's functions with their parameters, as they are in its source.
QSet<QString> tst_hostGuide::symbols(const QString& library, const QString& option)
{
    QProcess nm;
    nm.start(QStringLiteral("nm"), {QStringLiteral("-DC"), option, library});
    if (!nm.waitForFinished() || nm.exitCode() != 0)
        return {};
    static const QRegularExpression line(QStringLiteral("^[0-9a-f ]* [A-Za-z] (.+)$"),
                                         QRegularExpression::MultilineOption);
    QSet<QString> found;
    auto lines = line.globalMatch(QString::fromUtf8(nm.readAllStandardOutput()));
    while (lines.hasNext())
        found.insert(lines.next().captured(1));
    return found;
}

QSet<QString> tst_hostGuide::needed()
{
    const QStringList libraries =
        QStringLiteral(MV_LIBRARIES_ABOVE).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    const QSet<QString> defined =
        symbols(QStringLiteral(MV_HOST_LIBRARY), QStringLiteral("--defined-only"));
    QSet<QString> found;
    for (const QString& library : libraries)
        found += symbols(library, QStringLiteral("--undefined-only"));
    return found.intersect(defined);
}

QString tst_hostGuide::guide()
{
    return QString::fromUtf8(CatalogueFiles::read(QStringLiteral(MV_DOCS "/host-guide.md")));
}

QString tst_hostGuide::partOnSymbols()
{
    const QString text = guide();
    const int begin = text.indexOf(QStringLiteral("### What a platform defines"));
    return text.mid(begin, text.indexOf(QStringLiteral("\n#"), begin + 1) - begin);
}

/// Returns the names in the first column of the table.
QStringList tst_hostGuide::listed()
{
    static const QRegularExpression row(QStringLiteral("^\\| (`[^|]*) \\|"),
                                        QRegularExpression::MultilineOption);
    static const QRegularExpression name(QStringLiteral("`([^`]+)`"));
    QStringList names;
    const QString text = partOnSymbols();
    auto rows = row.globalMatch(text);
    while (rows.hasNext()) {
        auto cells = name.globalMatch(rows.next().captured(1));
        while (cells.hasNext())
            names += cells.next().captured(1);
    }
    return names;
}

void tst_hostGuide::listsWhatTheLibrariesNeedOfAPlatform()
{
    QStringList names;
    const QSet<QString> symbolsNeeded = needed();
    for (const QString& symbol : symbolsNeeded)
        names += nameOf(symbol);
    QVERIFY(!names.isEmpty());
    QCOMPARE(sorted(listed()), sorted(names));
}

void tst_hostGuide::tellsTheirNumber()
{
    QVERIFY(partOnSymbols().contains(QStringLiteral(" %1 symbols").arg(needed().size())));
}

/// The build compiles the example, so the guide's program compiles, too.
void tst_hostGuide::showsTheExampleAsItIs()
{
    QString program = QString::fromUtf8(
        CatalogueFiles::read(QStringLiteral(MV_DOCS "/../examples/embed/main.cpp")));
    program.remove(0, program.indexOf(QStringLiteral("#include")));
    QVERIFY(!program.isEmpty());
    QVERIFY(guide().contains(QStringLiteral("```cpp\n") + program + QStringLiteral("```\n")));
}

MV_TEST_MAIN(tst_hostGuide)

#include "tst_hostGuide.moc"
