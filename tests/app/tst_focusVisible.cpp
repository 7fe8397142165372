// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AppLook.h"
#include "AppStyle.h"
#include "browser/BrowserSkin.h"
#include "browser/list/BrowserWorld.h"
#include "browser/skins/SkinLook.h"
#include "PreviewPane.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <functional>
#include <memory>

using Create = std::function<QWidget*()>;
Q_DECLARE_METATYPE(Create)

/// Tests that each kind of control shows that it has the keyboard's focus, in every skin.
class tst_focusVisible : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void focusStandsOut_data();
    void focusStandsOut();
    void fieldsStandOutInDarkSkins_data();
    void fieldsStandOutInDarkSkins();
};

namespace {

template <class Control>
QWidget* withText(const QString& text)
{
    auto* const control = new Control;
    control->setText(text);
    return control;
}

QWidget* toolButton(bool isChecked)
{
    auto* const button = new QToolButton;
    button->setText(QStringLiteral("Favorites"));
    button->setCheckable(true);
    button->setChecked(isChecked);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

QWidget* comboBox()
{
    auto* const box = new QComboBox;
    box->addItem(QStringLiteral("All types"));
    return box;
}

QWidget* tabBar()
{
    auto* const tabs = new QTabBar;
    tabs->setDrawBase(false);
    tabs->addTab(QStringLiteral("Themes"));
    tabs->addTab(QStringLiteral("Filters"));
    return tabs;
}

QWidget* tree()
{
    auto* const tree = new QTreeWidget;
    auto* const row = new QTreeWidgetItem(tree, {QStringLiteral("Used items")});
    tree->setCurrentItem(row);
    return tree;
}

/// Returns a pane with an animation, which the keys play.
QWidget* previewPane()
{
    const QString file = TestHome::path() + QStringLiteral("/preview.gif");
    CatalogueFiles::write(file, BrowserWorld::animation());
    auto* const pane = new PreviewPane(nullptr);
    pane->show(QString(), file, false);
    return pane;
}

QVector<QPair<const char*, Create>> controls()
{
    return {
        {"push button", [] { return withText<QPushButton>(QStringLiteral("Check now")); }},
        {"tool button", [] { return toolButton(false); }},
        {"pressed tool button", [] { return toolButton(true); }},
        {"field", [] { return withText<QLineEdit>(QStringLiteral("words")); }},
        {"check box", [] { return withText<QCheckBox>(QStringLiteral("File names")); }},
        {"combo box", comboBox},
        {"spin box", [] { return new QSpinBox; }},
        {"tabs", tabBar},
        {"tree", tree},
        {"text", [] { return new QPlainTextEdit; }},
        {"preview", previewPane},
    };
}

/// Returns how many pixels of two pictures of one widget differ so much that people see it.
int clearlyChanged(const QImage& before, const QImage& after)
{
    constexpr double visible = 3; // the contrast that signs need, too
    int count = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            const QColor one = before.pixelColor(x, y);
            const QColor other = after.pixelColor(x, y);
            count += one != other && contrast(one, other) >= visible ? 1 : 0;
        }
    }
    return count;
}

} // namespace

void tst_focusVisible::initTestCase()
{
    QApplication::setStyle(new AppStyle); // owned by the application
}

void tst_focusVisible::focusStandsOut_data()
{
    QTest::addColumn<QString>("skin");
    QTest::addColumn<Create>("create");
    const QStringList skins = BrowserSkin::names();
    const auto all = controls();
    for (const QString& skin : skins) {
        for (const auto& [name, create] : all)
            QTest::addRow("%s, %s", qPrintable(skin), name) << skin << create;
    }
}

void tst_focusVisible::focusStandsOut()
{
    QFETCH(QString, skin);
    QFETCH(Create, create);
    AppLook::apply(skin);
    QWidget window;
    auto* const other = new QPushButton(QStringLiteral("Other"), &window);
    QWidget* const control = create();
    auto* const column = new QVBoxLayout(&window);
    column->setSizeConstraint(QLayout::SetNoConstraint); // which not every platform knows
    column->addWidget(other);
    column->addWidget(control);
    window.resize(200, 240);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    other->setFocus(Qt::OtherFocusReason);
    QVERIFY(other->hasFocus());
    const QImage before = window.grab().toImage();
    QTest::keyClick(&window, Qt::Key_Tab);
    QTRY_VERIFY(control->hasFocus());
    const QRect place = control->geometry().adjusted(-4, -4, 4, 4);
    const QImage after = window.grab().toImage();
    const int count = clearlyChanged(before.copy(place), after.copy(place));
    const int length = control->width() + control->height(); // of half a frame of one pixel
    QVERIFY2(count >= length, qPrintable(QStringLiteral("%1 pixels of %2").arg(count).arg(length)));
}

void tst_focusVisible::fieldsStandOutInDarkSkins_data()
{
    QTest::addColumn<QString>("skin");
    QTest::addColumn<Create>("create");
    const auto all = controls();
    for (const char* skin : {"Elegance", "Calm"}) {
        for (const auto& [name, create] : all) {
            if (QByteArray(name) == "field" || QByteArray(name) == "spin box")
                QTest::addRow("%s, %s", name, skin) << QString::fromLatin1(skin) << create;
        }
    }
}

void tst_focusVisible::fieldsStandOutInDarkSkins()
{
    QFETCH(QString, skin);
    QFETCH(Create, create);
    AppLook::apply(skin);
    const std::unique_ptr<QWidget> field(create());
    field->resize(field->sizeHint());
    const QImage picture = field->grab().toImage();
    const QColor window = BrowserSkin::windowColors(skin).window;
    constexpr double visible = 3;
    QVERIFY(contrast(picture.pixelColor(picture.width() / 2, 0), window) >= visible);
    QVERIFY(contrast(picture.pixelColor(0, picture.height() / 2), window) >= visible);
}

MV_WIDGET_TEST_MAIN(tst_focusVisible)
#include "tst_focusVisible.moc"
