// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "WindowTexts.h"

#include "AboutDialog.h"
#include "AppLanguage.h"
#include "AppLook.h"
#include "browser/BrowserLanguage.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/skins/SampleWorld.h"
#include "catalogue/MVThemeMgr.h"
#include "download/CatalogueUpdate.h"
#include "FailureList.h"
#include "host/HostSettings.h"
#include "MainWindow.h"
#include "Preferences.h"
#include "ResourceTabs.h"
#include "SettingsControls.h"
#include "StateText.h"
#include "StorageBox.h"
#include "support/TestLetters.h"
#include "support/TestMain.h"
#include "support/TestPictures.h"
#include "support/TextRoom.h"
#include "WelcomePage.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace {

constexpr int quicklyPacked = 80; // 100 disables compression

/// Returns the check outcomes in their longest form.
QStringList statusTexts()
{
    const auto text = [](const char* source) {
        return QCoreApplication::translate("CheckStatus", source);
    };
    const auto previews = [](const char* source) {
        return QCoreApplication::translate("CheckStatus", source, nullptr, 1234);
    };
    const QString date = QLocale().toString(QDate(2023, 9, 27), QLocale::LongFormat);
    const QString catalogue = text("catalogue of %1").arg(date);
    QStringList texts{text("Checking for new resources…"),
                      text("%1. Fetching previews…").arg(text("Catalogue updated")),
                      text("Start the program again to check again"),
                      text("Catalogue updated") + previews(", %n preview(s) fetched")
                          + previews(", %n preview(s) could not be fetched"),
                      text("Up to date")
                          + text(", but there is no catalogue to fetch previews for"),
                      text("The server has resources that need a newer application"),
                      text("The server's catalogue is older than this application"),
                      text("Check cancelled; %1").arg(catalogue)};
    for (int cause = eFailure_DiskFull; cause < eFailure_Cancelled; ++cause) {
        const QString why = STransferFailure::causeText(EFailureCause(cause));
        texts.append(text("Offline: %1; %2").arg(why, catalogue));
        texts.append(
            text("Not updated: %1; %2").arg(why, text("no catalogue has been downloaded yet")));
    }
    return texts;
}

QString widest(const QStringList& texts, const QFontMetrics& metrics)
{
    return *std::max_element(
        texts.cbegin(), texts.cend(), [&metrics](const QString& left, const QString& right) {
            return metrics.horizontalAdvance(left) < metrics.horizontalAdvance(right);
        });
}

/// Returns the bold section titles that the tree cuts off because the facts beside them need the
/// room.
QStringList cutOffTitles(const QTreeWidget& tree)
{
    QStringList texts;
    for (int row = 0; row < tree.topLevelItemCount(); ++row) {
        const QTreeWidgetItem* const title = tree.topLevelItem(row);
        const int room = tree.visualRect(tree.model()->index(row, 0)).width();
        const int margins = 2 * (tree.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
        if (QFontMetrics(title->font(0)).horizontalAdvance(title->text(0)) > room - margins)
            texts.append(title->text(0));
    }
    return texts;
}

} // namespace

WindowTexts::WindowTexts(const QString& scale)
    : m_scale(scale)
{
}

WindowTexts::~WindowTexts() = default;

void WindowTexts::initTestCase()
{
    hostSettings().cellsOnDemand = true; // as in the editor
    m_world = std::make_unique<SampleWorld>();
    m_world->setAnswer(SampleWorld::NotFound);
    QVERIFY(QDir().mkpath(QStringLiteral(MV_SCREENSHOTS)));
}

void WindowTexts::cleanupTestCase()
{
    m_world.reset();
}

void WindowTexts::cleanup()
{
    m_window.reset();
    m_check.reset();
    m_preferences.reset();
    QFile::remove(TestHome::path() + QStringLiteral("/preferences"));
}

void WindowTexts::haveRoom_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("changed");
    QTest::addColumn<int>("pointSize");
    const QStringList languages = BrowserLanguage::languages();
    for (const QString& language : languages) {
        QTest::addRow("%s", qPrintable(language)) << language << false << 9;
        QTest::addRow("%s, changed to, larger", qPrintable(language)) << language << true << 12;
    }
}

void WindowTexts::haveRoom()
{
    QFETCH(QString, language);
    QFETCH(bool, changed);
    QFETCH(int, pointSize);
    QFont font = QApplication::font();
    font.setPointSize(pointSize);
    QApplication::setFont(font);
    AppLanguage::install(changed ? QStringLiteral("en") : language);
    openWindow();
    AppLanguage::install(language);
    m_pictures = changed || !TestPictures::areWanted() ? QString() : language;

    verifyRoom("nothing");
    apply(MVThemeMgr::init()->getThemes_Display().first().m_qsGUID);
    verifyRoom("applied");
    part<QPushButton>("favourite")->click();
    verifyRoom(nullptr);
    part<QPushButton>("favourite")->click();
    fail();
    verifyRoom("failed");
    part<QToolButton>("onlyFavourites")->setChecked(true);
    verifyRoom(nullptr);
    part<QLineEdit>("search")->setText(QStringLiteral("no such name"));
    verifyRoom("nothing-found");
    showStorage();
    verifyRoom("storage");
    auto* const status = part<QLabel>("checkStatus");
    status->setText(widest(statusTexts(), status->fontMetrics())); // then the others have room, too
    verifyRoom(nullptr);
    verifyDialogs();
}

void WindowTexts::verifyDialogs()
{
    m_window->settings()->show();
    AboutDialog about(nullptr);
    WelcomePage welcome(nullptr);
    welcome.setObjectName(QStringLiteral("welcome"));
    welcome.resize(480, 360);
    about.show();
    welcome.show();
    for (QWidget* const dialog : {static_cast<QWidget*>(part<QDialog>("settings")),
                                  static_cast<QWidget*>(&about), static_cast<QWidget*>(&welcome)}) {
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        const auto cutOff = [dialog] {
            return cutOffTexts(*dialog, QString()).join(QStringLiteral(" | "));
        };
        QTRY_COMPARE_WITH_TIMEOUT(cutOff(), QString(), 1000);
        savePicture(*dialog, dialog->objectName());
    }
    part<QDialog>("settings")->reject();
}

/// Screen readers announce every control with a name and a role.
void WindowTexts::controlsHaveNames()
{
    AppLanguage::install(QStringLiteral("en"));
    openWindow();
    apply(MVThemeMgr::init()->getThemes_Display().first().m_qsGUID);
    fail();
    showStorage();
    verifyNames(*m_window);
    m_window->tabs()->setCurrentTab(1);
    part<QLineEdit>("search")->setText(QStringLiteral("no such name"));
    verifyNames(*m_window);
    m_window->settings()->show();
    verifyNames(*part<QDialog>("settings"));
    part<QDialog>("settings")->reject();
    const AboutDialog about(nullptr);
    verifyNames(about);
    const WelcomePage welcome(nullptr);
    verifyNames(welcome);
}

void WindowTexts::verifyNames(const QWidget& window)
{
    const QList<QWidget*> parts = window.findChildren<QWidget*>();
    for (QWidget* part : parts) {
        const bool isControl =
            part->focusPolicy() != Qt::NoFocus || qobject_cast<QAbstractButton*>(part);
        const bool isOfSpinBox = part->objectName() == QLatin1String("qt_spinbox_lineedit");
        if (!isControl || isOfSpinBox || !part->isVisibleTo(&window))
            continue;
        QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(part);
        const QString what = QStringLiteral("%1 \"%2\" in \"%3\"")
                                 .arg(QString::fromLatin1(part->metaObject()->className()),
                                      part->objectName(), part->parentWidget()->objectName());
        QVERIFY2(spoken, qPrintable(what));
        QVERIFY2(!spoken->text(QAccessible::Name).isEmpty(), qPrintable(what));
        QVERIFY2(spoken->role() != QAccessible::NoRole && spoken->role() != QAccessible::Client,
                 qPrintable(what));
    }
}

void WindowTexts::openWindow()
{
    AppLook::apply(QStringLiteral("Classical"));
    m_preferences =
        std::make_unique<Preferences>(TestHome::path() + QStringLiteral("/preferences"));
    m_check = std::make_unique<CatalogueUpdate>();
    m_window = std::make_unique<MainWindow>(*m_preferences, *m_check);
    m_firstSize = m_window->size();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void WindowTexts::apply(const QString& theme)
{
    ResourceTabs* const tabs = m_window->tabs();
    tabs->reveal(eCfgItem_Theme, theme)->doApplyTheme();
    QTRY_COMPARE(tabs->appliedItem(eCfgItem_Theme), theme);
    QVERIFY(part<QTreeWidget>("appliedFiles")->isVisible());
}

void WindowTexts::fail()
{
    STransferFailure failure;
    failure.m_eCause = eFailure_ConnectionLost;
    failure.m_qsDetails = QStringLiteral("http://server/theme.zip: connection reset by peer");
    part<FailureList>("failures")->add({}, QStringLiteral("Autumn Memories"), failure);
    part<QPushButton>("failureDetails")->setChecked(true);
}

/// Shows the longest texts on the files of items, as while an update works after a removal.
void WindowTexts::showStorage()
{
    // All events that change texts have arrived by then.
    QTRY_VERIFY(part<StorageBox>("storage")->isVisible());
    const auto counted = [](const char* context, const char* source) {
        return QCoreApplication::translate(context, source, nullptr, 1234);
    };
    const QString size = StateText::size(123456789);
    SItemState state;
    state.m_eState = eFile_Damaged;
    state.m_nToFetch = 1;
    state.m_nBytesToFetch = 123456789;
    state.m_bBytesKnown = false;
    part<StorageBox>("storage")->showReport(ItemUpdates::Report{state, 123456789, 123456789},
                                            false);
    part<QLabel>("updatesAvailable")->setText(counted("StorageControls", "%n update(s) available"));
    part<QLabel>("updateBarText")
        ->setText(counted("UpdateBar", "Fetching %n item(s): %1 of %2").arg(size, size));
    part<QPushButton>("updateBarAction")
        ->setText(QCoreApplication::translate("UpdateBar", "Cancel"));
    part<QWidget>("updateBarProgress")->show();
    part<QWidget>("updateBar")->show();
    part<QLabel>("undoBarText")
        ->setText(QCoreApplication::translate(
                      "UndoBar", "“%1” was removed: %2 will be free after the next start")
                      .arg(QStringLiteral("Autumn Memories"), size));
    part<QPushButton>("undoBarAction")->setText(QCoreApplication::translate("UndoBar", "Undo"));
    part<QPushButton>("undoBarClose")->setText(QCoreApplication::translate("NoticeBar", "Close"));
    part<QWidget>("undoBar")->show();
}

QObject* WindowTexts::partOf(const QMetaObject& type, const char* name) const
{
    const QList<QObject*> parts = m_window->findChildren<QObject*>(QString::fromLatin1(name));
    for (QObject* const part : parts) {
        if (type.cast(part))
            return part;
    }
    qFatal("the window has no %s", name);
    return nullptr;
}

void WindowTexts::verifyFonts() const
{
    const QList<QLabel*> labels = m_window->findChildren<QLabel*>();
    for (const QLabel* label : labels)
        verifyHasFont(label->text());
    for (QTreeWidgetItemIterator it(part<QTreeWidget>("appliedFiles")); *it; ++it)
        verifyHasFont((*it)->text(0) + (*it)->text(1));
}

void WindowTexts::verifyRoom(const char* state)
{
    if (QTest::currentTestFailed())
        return; // a text cut off in one state is also cut off in the next ones
    const auto cutOff = [this] {
        const QStringList texts = cutOffTexts(*m_window, QStringLiteral("lblName"))
            + cutOffTitles(*part<QTreeWidget>("appliedFiles"));
        return texts.join(QStringLiteral(" | "));
    };
    QTRY_COMPARE_WITH_TIMEOUT(cutOff(), QString(), 1000); // layout takes several event loop passes
    verifyFonts();
    const QSize least = m_window->minimumSizeHint();
    QVERIFY2(least.width() <= m_firstSize.width() && least.height() <= m_firstSize.height(),
             qPrintable(QStringLiteral("%1 x %2").arg(least.width()).arg(least.height())));
    if (state)
        savePicture(*m_window, QString::fromLatin1(state));
}

void WindowTexts::savePicture(QWidget& window, const QString& name) const
{
    if (m_pictures.isEmpty())
        return;
    const QString path =
        QStringLiteral(MV_SCREENSHOTS "/window-%1-%2-%3x.png").arg(name, m_pictures, m_scale);
    QVERIFY(window.grab().save(path, "PNG", quicklyPacked));
}
