// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/BriefApplication.h"
#include "host/widgets/SkinWidget.h"

#include <QPointer>

/// Every test creates its own application; no other one exists.
class tst_SkinWidgetLifetime : public QObject
{
    Q_OBJECT

private slots:
    void aStyleSheetSetBeforeTheFirstCallCounts();
    void goesWithTheApplication();
    void theNextApplicationHasANewOne();
    void anApplicationThatNeverAsksHasNone();
};

void tst_SkinWidgetLifetime::aStyleSheetSetBeforeTheFirstCallCounts()
{
    const BriefApplication application;
    qApp->setStyleSheet(QStringLiteral("SkinWidget {"
                                       "    qproperty-themeItemSize: 160px 120px;"
                                       "    qproperty-themeItemPadding: rect(1 2 3 4);"
                                       "    qproperty-filterItemSize: 90px 70px;"
                                       "    qproperty-filterItemPadding: rect(5 6 7 8);"
                                       "}"));
    const SkinWidget* skin = SkinWidget::instance();
    QCOMPARE(skin->themeItemSize(), QSize(160, 120));
    QCOMPARE(skin->themeItemPadding(), QRect(1, 2, 3, 4));
    QCOMPARE(skin->filterItemSize(), QSize(90, 70));
    QCOMPARE(skin->filterItemPadding(), QRect(5, 6, 7, 8));
}

void tst_SkinWidgetLifetime::goesWithTheApplication()
{
    QPointer<SkinWidget> skin;
    {
        const BriefApplication application;
        skin = SkinWidget::instance();
        QVERIFY(skin);
    }
    QVERIFY(!skin);
}

void tst_SkinWidgetLifetime::theNextApplicationHasANewOne()
{
    for (int run = 0; run < 3; ++run) {
        QPointer<SkinWidget> skin;
        {
            const BriefApplication application;
            skin = SkinWidget::instance();
            QVERIFY(skin);
            QCOMPARE(skin->themeItemSize(), QSize(-1, -1));
            QVERIFY(skin->filterItemPadding().isNull());
            skin->setThemeItemSize(QSize(1, 2));
            skin->setFilterItemPadding(QRect(1, 2, 3, 4));
            QCOMPARE(SkinWidget::instance(), skin.data());
        }
        QVERIFY(!skin);
    }
}

void tst_SkinWidgetLifetime::anApplicationThatNeverAsksHasNone()
{
    const BriefApplication application;
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget* widget : widgets)
        QVERIFY(!qobject_cast<const SkinWidget*>(widget));
}

int main(int argc, char** argv)
{
    const TestHome home;
    BriefApplication::createRuntimeFolder();
    tst_SkinWidgetLifetime test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_SkinWidgetLifetime.moc"
