// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/BrowserSkin.h"

#include "support/TestMain.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>

namespace {

const QString folder = QStringLiteral(":/mvbrowser/skins/");

QStringList urlsIn(const QString& sheet)
{
    static const QRegularExpression url(QStringLiteral("url\\(([^)]*)\\)"));
    QStringList urls;
    for (auto it = url.globalMatch(sheet); it.hasNext();)
        urls.append(it.next().captured(1));
    return urls;
}

/// Returns every selector of the sheet, without comments and declarations.
QStringList selectorsIn(QString sheet)
{
    sheet.remove(QRegularExpression(QStringLiteral("/\\*.*?\\*/"),
                                    QRegularExpression::DotMatchesEverythingOption));
    sheet.replace(QRegularExpression(QStringLiteral("\\{[^}]*\\}")), QStringLiteral(","));
    QStringList selectors;
    const QStringList parts = sheet.split(QLatin1Char(','));
    for (const QString& part : parts) {
        if (!part.trimmed().isEmpty())
            selectors.append(part.trimmed());
    }
    return selectors;
}

/// A host's own widgets, some of which share object names with the browser's parts.
class HostWindow : public QWidget
{
public:
    HostWindow()
    {
        auto add = [this, y = 0](QWidget* widget, const char* name) mutable {
            widget->setParent(this);
            widget->setObjectName(QString::fromLatin1(name));
            widget->setGeometry(5, y, 190, 60);
            y += 65;
        };
        add(new QPushButton(QStringLiteral("Apply")), "btnDownload");
        add(new QLabel(QStringLiteral("Name")), "lblName");
        auto* const frame = new QFrame;
        frame->setFrameShape(QFrame::StyledPanel);
        add(frame, "frmBg");
        auto* const list = new QListWidget;
        for (int i = 0; i < 30; ++i)
            list->addItem(QString::number(i));
        list->setCurrentRow(1);
        add(list, "list");
        resize(200, 260);
    }
};

} // namespace

/// Tests the style sheets themselves; tst_skinnedLists and tst_skins_screenshots test their effect
/// on a list.
class tst_BrowserSkin : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { qApp->setStyleSheet({}); }

    void namesTheSkins();
    void hasAFileForEachName();
    void describesTheSkin_data() { skins(); }
    void describesTheSkin();
    void hasNoColorInVain_data() { skins(); }
    void hasNoColorInVain();
    void givesWindowColors_data() { skins(); }
    void givesWindowColors();
    void givesDefaultColorsToOthers();
    void knowsNoOther_data();
    void knowsNoOther();
    void isUnderstood_data() { skins(); }
    void isUnderstood();
    void aSheetThatIsNotIsNoticed();
    void bringsItsPictures_data() { skins(); }
    void bringsItsPictures();
    void bringsNoPictureInVain();
    void stylesTheBrowserOnly_data() { skins(); }
    void stylesTheBrowserOnly();
    void leavesTheHostAlone_data() { skins(); }
    void leavesTheHostAlone();

private:
    static void skins();
};

void tst_BrowserSkin::skins()
{
    QTest::addColumn<QString>("skin");
    const QStringList names = BrowserSkin::names();
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void tst_BrowserSkin::namesTheSkins()
{
    QCOMPARE(BrowserSkin::names(),
             QStringList({QStringLiteral("Classical"), QStringLiteral("Elegance"),
                          QStringLiteral("Simplicity"), QStringLiteral("Calm")}));
}

void tst_BrowserSkin::hasAFileForEachName()
{
    QStringList expected;
    const QStringList names = BrowserSkin::names();
    for (const QString& name : names)
        expected.append(name + QStringLiteral(".json"));
    expected.sort();
    QCOMPARE(QDir(folder).entryList({QStringLiteral("*.json")}, QDir::Files, QDir::Name), expected);
}

/// A placeholder without a value, or a value without a placeholder, would cause an unexpected
/// warning.
void tst_BrowserSkin::describesTheSkin()
{
    QFETCH(QString, skin);
    const QString sheet = BrowserSkin::styleSheet(skin);
    static const QRegularExpression head(QStringLiteral("^/\\* (\\w+)\\. [A-Z][^*]+\\. \\*/\n"));
    QCOMPARE(head.match(sheet).captured(1), skin);
    QVERIFY(!sheet.contains(QLatin1Char('@')));
}

/// What the sheet needs is told by warnings; each colour of an icon tints one, and those of a
/// window are all that windowColors() gives.
void tst_BrowserSkin::hasNoColorInVain()
{
    QFETCH(QString, skin);
    QFile file(folder + skin + QStringLiteral(".json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QJsonObject content = QJsonDocument::fromJson(file.readAll()).object();
    QStringList tinted;
    const QStringList icons = QDir(folder + QStringLiteral("icons/") + skin).entryList(QDir::Files);
    for (const QString& icon : icons)
        tinted.append(QFileInfo(icon).completeBaseName());
    tinted.sort();
    QVERIFY(!tinted.isEmpty());
    QCOMPARE(content.value(QStringLiteral("icons")).toObject().keys(), tinted);
    QCOMPARE(content.value(QStringLiteral("window")).toObject().size(), 8);
    QCOMPARE(content.keys(),
             (QStringList{QStringLiteral("description"), QStringLiteral("icons"),
                          QStringLiteral("sheet"), QStringLiteral("window")}));
}

void tst_BrowserSkin::givesWindowColors()
{
    QFETCH(QString, skin);
    const SSkinColors colors = BrowserSkin::windowColors(skin);
    for (const QColor& color : {colors.window, colors.base, colors.text, colors.dimText,
                                colors.button, colors.accent, colors.onAccent, colors.border})
        QVERIFY(color.isValid());
    QVERIFY(colors.window != colors.text);
    QVERIFY(colors.accent != colors.onAccent);
}

void tst_BrowserSkin::givesDefaultColorsToOthers()
{
    const QString first = BrowserSkin::names().constFirst();
    const QString last = BrowserSkin::names().constLast();
    const QColor expected = BrowserSkin::windowColors(first).window;
    QCOMPARE(BrowserSkin::windowColors(QStringLiteral("Loud")).window, expected);
    QVERIFY(BrowserSkin::windowColors(last).window != expected);
}

void tst_BrowserSkin::knowsNoOther_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString();
    QTest::newRow("another") << QStringLiteral("Loud");
    QTest::newRow("another case") << QStringLiteral("calm");
    QTest::newRow("a file") << QStringLiteral("Calm.json");
    QTest::newRow("the template") << QStringLiteral("skin");
    QTest::newRow("a path") << QStringLiteral("../skins/Calm");
}

void tst_BrowserSkin::knowsNoOther()
{
    QFETCH(QString, name);
    QCOMPARE(BrowserSkin::styleSheet(name), QString());
}

void tst_BrowserSkin::isUnderstood()
{
    QFETCH(QString, skin);
    QPushButton button; // Qt parses a sheet when it first styles a widget
    qApp->setStyleSheet(BrowserSkin::styleSheet(skin));
    button.ensurePolished();
}

void tst_BrowserSkin::aSheetThatIsNotIsNoticed()
{
    QPushButton button;
    QTest::ignoreMessage(QtWarningMsg, "Could not parse application stylesheet");
    qApp->setStyleSheet(BrowserSkin::styleSheet(QStringLiteral("Calm")) + QStringLiteral("{"));
    button.ensurePolished();
}

void tst_BrowserSkin::bringsItsPictures()
{
    QFETCH(QString, skin);
    const QStringList urls = urlsIn(BrowserSkin::styleSheet(skin));
    QVERIFY(urls.size() >= 8);
    for (const QString& url : urls) {
        QVERIFY2(url.startsWith(folder), qPrintable(url));
        QVERIFY2(!QImage(url).isNull(), qPrintable(url));
    }
}

void tst_BrowserSkin::bringsNoPictureInVain()
{
    QString all;
    const QStringList names = BrowserSkin::names();
    for (const QString& name : names)
        all += BrowserSkin::styleSheet(name);
    const QStringList urls = urlsIn(all);
    QDirIterator icons(folder + QStringLiteral("icons"), QDir::Files, QDirIterator::Subdirectories);
    QVERIFY(icons.hasNext());
    while (icons.hasNext()) {
        const QString icon = icons.next();
        QVERIFY2(urls.contains(icon), qPrintable(icon));
    }
}

void tst_BrowserSkin::stylesTheBrowserOnly()
{
    QFETCH(QString, skin);
    static const QRegularExpression ours(
        QStringLiteral("^(mvThemelistview|MVThemeItemWdg|FiterItemWdg|MVThemeItemSubwdgt_Preview"
                       "|MVThemePreviewFrm|SkinWidget)\\b"));
    const QStringList selectors = selectorsIn(BrowserSkin::styleSheet(skin));
    QVERIFY(selectors.size() > 30);
    for (const QString& selector : selectors)
        QVERIFY2(selector.contains(ours), qPrintable(selector));
}

void tst_BrowserSkin::leavesTheHostAlone()
{
    QFETCH(QString, skin);
    HostWindow window;
    // The same machinery, with a rule that matches nothing.
    qApp->setStyleSheet(QStringLiteral("NoSuchWidget { color: red; }"));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QImage before = window.grab().toImage();
    qApp->setStyleSheet(BrowserSkin::styleSheet(skin));
    QCOMPARE(window.grab().toImage(), before);
}

MV_WIDGET_TEST_MAIN(tst_BrowserSkin)
#include "tst_BrowserSkin.moc"
