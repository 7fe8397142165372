// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/BrowserSkin.h"
#include "SkinLook.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

/// Tests the contrast of all texts and signs, computed from the colours in the skins' files.
class tst_skinContrast : public QObject
{
    Q_OBJECT

private slots:
    void textsAreLegible_data();
    void textsAreLegible();
    void signsStandOut_data();
    void signsStandOut();
    void lowContrastIsNoticed();
};

namespace {

constexpr double legibleSign = 3; // graphical objects need less than text

QJsonObject fileOf(const QString& skin)
{
    QFile file(QStringLiteral(":/mvbrowser/skins/%1.json").arg(skin));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                          : QJsonObject();
}

/// Reads "#rrggbb" and "rgba(r, g, b, a)"; anything else is invalid.
QColor parse(const QString& text)
{
    static const QRegularExpression rgba(
        QStringLiteral("^rgba\\((\\d+), (\\d+), (\\d+), (\\d+)\\)$"));
    const QRegularExpressionMatch match = rgba.match(text);
    const auto part = [&match](int number) { return match.captured(number).toInt(); };
    return match.hasMatch() ? QColor(part(1), part(2), part(3), part(4)) : QColor(text);
}

/// Returns a colour by section and name, "sheet.card", or by its value.
QColor colourOf(const QString& skin, const QString& name)
{
    const QStringList path = name.split(QLatin1Char('.'));
    return parse(path.size() == 2
                     ? fileOf(skin).value(path.first()).toObject().value(path.last()).toString()
                     : name);
}

/// Returns how a translucent colour appears over an opaque one.
QColor over(const QColor& colour, const QColor& ground)
{
    const qreal alpha = colour.alphaF();
    const auto mix = [alpha](int above, int below) {
        return qRound(above * alpha + below * (1 - alpha));
    };
    return QColor(mix(colour.red(), ground.red()), mix(colour.green(), ground.green()),
                  mix(colour.blue(), ground.blue()));
}

/// Returns the lowest contrast of a text on a ground, which may let any picture shine through.
double lowest(const QString& skin, const char* text, const char* ground)
{
    const QColor letters = colourOf(skin, QString::fromLatin1(text));
    const QColor below = colourOf(skin, QString::fromLatin1(ground));
    if (!letters.isValid() || !below.isValid())
        return 0;
    return qMin(contrast(letters, over(below, Qt::white)),
                contrast(letters, over(below, Qt::black)));
}

void pairs(const QVector<QPair<const char*, const char*>>& all)
{
    QTest::addColumn<QString>("skin");
    QTest::addColumn<QByteArray>("above");
    QTest::addColumn<QByteArray>("below");
    const QStringList skins = BrowserSkin::names();
    for (const QString& skin : skins) {
        for (const auto& [above, below] : all)
            QTest::addRow("%s: %s on %s", qPrintable(skin), above, below)
                << skin << QByteArray(above) << QByteArray(below);
    }
}

void verify(double least)
{
    QFETCH(QString, skin);
    QFETCH(QByteArray, above);
    QFETCH(QByteArray, below);
    const double found = lowest(skin, above.constData(), below.constData());
    QVERIFY2(found >= least, qPrintable(QString::number(found)));
}

} // namespace

void tst_skinContrast::textsAreLegible_data()
{
    pairs({{"sheet.name", "sheet.card"},
           {"sheet.name", "sheet.cardHover"},
           {"sheet.chosenName", "sheet.card"},
           {"sheet.chosenName", "sheet.cardHover"},
           {"sheet.more", "sheet.card"},
           {"sheet.more", "sheet.cardHover"},
           {"sheet.progress", "sheet.page"},
           {"sheet.onAccent", "sheet.accent"},
           {"#ffffff", "sheet.error"},
           {"#e4e6e9", "sheet.error"},
           {"window.text", "window.window"},
           {"window.text", "window.base"},
           {"window.text", "window.button"},
           {"window.dimText", "window.window"},
           {"window.dimText", "window.base"},
           {"window.dimText", "window.button"},
           {"window.dimText", "sheet.listBackground"},
           {"window.onAccent", "window.accent"}});
}

void tst_skinContrast::textsAreLegible()
{
    verify(legible);
}

void tst_skinContrast::signsStandOut_data()
{
    pairs({{"sheet.markSign", "sheet.markPlate"},
           {"sheet.onMarkAlarm", "sheet.markAlarm"},
           {"sheet.progress", "sheet.page"}, // the cross
           {"icons.ring", "sheet.page"},
           {"icons.check", "sheet.card"},
           {"#ffffff", "sheet.buttonHover"}});
}

void tst_skinContrast::signsStandOut()
{
    verify(legibleSign);
}

void tst_skinContrast::lowContrastIsNoticed()
{
    const QString skin = BrowserSkin::names().constFirst();
    QVERIFY(lowest(skin, "#777777", "sheet.card") < legible); // 4.48 on white
    QVERIFY(lowest(skin, "#ffffff", "rgba(0, 0, 0, 128)") < legible);
    QCOMPARE(lowest(skin, "sheet.none", "sheet.card"), 0.0);
}

MV_WIDGET_TEST_MAIN(tst_skinContrast)

#include "tst_skinContrast.moc"
