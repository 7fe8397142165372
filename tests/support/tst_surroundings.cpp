// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/TestLetters.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QDateTime>
#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLocale>
#include <QProcess>
#include <QStyle>
#include <QTimeZone>

namespace {

constexpr char childVariable[] = "MV_SURROUNDINGS_CHILD";

} // namespace

/// Tests the environment on which every test can rely, whatever the machine.
class tst_surroundings : public QObject
{
    Q_OBJECT

private slots:
    void theTestsFontsAreTheOnlyOnes();
    void lettersWithoutFontAreFound();
    void localeIsFixed();
    void timeZoneIsFixed();
    void styleAndScaleAreFixed();
    void anotherMachineChangesNothing();
};

void tst_surroundings::theTestsFontsAreTheOnlyOnes()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QStringList families = QFontDatabase().families();
#else
    QStringList families = QFontDatabase::families();
#endif
    for (const char* alias : {"Monospace", "Sans Serif", "Serif"})
        families.removeAll(QString::fromLatin1(alias)); // Qt's own aliases for one of them
    QCOMPARE(families,
             QStringList({QStringLiteral("DejaVu Sans"), QStringLiteral("DejaVu Serif"),
                          QStringLiteral("Droid Sans Fallback")}));
    QCOMPARE(QFontInfo(QApplication::font()).family(), QStringLiteral("DejaVu Sans"));
}

void tst_surroundings::lettersWithoutFontAreFound()
{
    QCOMPARE(lettersWithoutFont(QStringLiteral("Grüße, ダウンロード: 下载…\n")), QString());
    // Outside the basic plane, and a script that no translation uses.
    QCOMPARE(lettersWithoutFont(QStringLiteral("a😀bЖ")), QStringLiteral("😀Ж"));
}

void tst_surroundings::localeIsFixed()
{
#ifdef Q_OS_WIN
    QSKIP("Only the user's settings decide there.");
#endif
    const QLocale system = QLocale::system();
    QCOMPARE(system.language(), QLocale::C);
    QCOMPARE(system.uiLanguages().constFirst(), QStringLiteral("C"));
    QCOMPARE(system.decimalPoint(), QLatin1Char('.'));
    QCOMPARE(QLocale().decimalPoint(), QLatin1Char('.'));
    QCOMPARE(std::strtod("0.5", nullptr), 0.5);
    QCOMPARE(QStringLiteral("Größe").toLocal8Bit(), QByteArray("Größe"));
    QCOMPARE(QFile::encodeName(QStringLiteral("Größe")), QByteArray("Größe"));
}

void tst_surroundings::timeZoneIsFixed()
{
    const QDateTime noon(QDate(2020, 7, 1), QTime(12, 0), Qt::LocalTime);
    QCOMPARE(noon.offsetFromUtc(), 0);
#ifndef Q_OS_WIN // which has a name of its own for it
    QCOMPARE(QTimeZone::systemTimeZoneId(), QByteArray("UTC"));
#endif
}

void tst_surroundings::styleAndScaleAreFixed()
{
    QCOMPARE(QApplication::style()->objectName(), QStringLiteral("fusion"));
    QCOMPARE(qApp->devicePixelRatio(), 1.0);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    constexpr int fontPixels = 17; // 12 points at 100 dots per inch
#else
    constexpr int fontPixels = 12; // 9 points at 96 dots per inch
#endif
    QCOMPARE(QFontInfo(QApplication::font()).pixelSize(), fontPixels);
}

void tst_surroundings::anotherMachineChangesNothing()
{
    if (qEnvironmentVariableIsSet(childVariable))
        QSKIP("this is the other machine");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QMap<QString, QString> machine = {
        {QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8")},
        {QStringLiteral("LANGUAGE"), QStringLiteral("ja")},
        {QStringLiteral("TZ"), QStringLiteral("XXX-5:30")},
        {QStringLiteral("FONTCONFIG_FILE"), QStringLiteral("/nothing/fonts.conf")},
        {QStringLiteral("QT_FONT_DPI"), QStringLiteral("144")},
        {QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2")},
        {QStringLiteral("QT_STYLE_OVERRIDE"), QStringLiteral("windows")},
        {QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("KDE")},
        {QString::fromLatin1(childVariable), QStringLiteral("1")},
    };
    for (auto it = machine.cbegin(); it != machine.cend(); ++it)
        environment.insert(it.key(), it.value());
    QProcess child;
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(), QStringList());
    QVERIFY(child.waitForFinished());
    const QByteArray output = child.readAll();
    QVERIFY2(child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0,
             output.constData());
}

MV_WIDGET_TEST_MAIN(tst_surroundings)
#include "tst_surroundings.moc"
