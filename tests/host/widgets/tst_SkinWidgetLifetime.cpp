#include "host/widgets/SkinWidget.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPointer>

namespace {

/// An application that exists for part of a test.
class BriefApplication
{
public:
    BriefApplication()
        : m_application(m_count, m_arguments)
    {
    }
    /// Clears the style sheet, which Qt would keep for the next application.
    ~BriefApplication() { m_application.setStyleSheet(QString()); }
    Q_DISABLE_COPY_MOVE(BriefApplication)

private:
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    int m_count = 1;
    QApplication m_application;
};

} // namespace

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
    // Otherwise Qt would warn about every new application.
    const QString runtime = TestHome::path() + QStringLiteral("/runtime");
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
    tst_SkinWidgetLifetime test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_SkinWidgetLifetime.moc"
