// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AppLanguage.h"
#include "browser/BrowserLanguage.h"
#include "support/TestMain.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QPushButton>

/// Tests the language of Qt's own texts, such as dialog buttons.
class tst_AppLanguage : public QObject
{
    Q_OBJECT

private slots:
    void buttonsSpeakIt_data();
    void buttonsSpeakIt();
};

namespace {

QString cancelButton()
{
    return QDialogButtonBox(QDialogButtonBox::Cancel).button(QDialogButtonBox::Cancel)->text();
}

} // namespace

void tst_AppLanguage::buttonsSpeakIt_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* language, const char* text) {
        QTest::newRow(language) << QString::fromLatin1(language) << QString::fromUtf8(text);
    };
    row("de", "Abbrechen");
    row("es", "Cancelar");
    row("fr", "Annuler");
    row("ja", "キャンセル");
    row("zh_CN", "取消");
    QCOMPARE(BrowserLanguage::languages().size(), 6); // five translations and English
}

void tst_AppLanguage::buttonsSpeakIt()
{
    QFETCH(QString, language);
    QFETCH(QString, text);
    const QString folder = AppLanguage::qtTranslations();
    if (!QFile::exists(QStringLiteral("%1/qtbase_%2.qm").arg(folder, language)))
        QSKIP("Qt's translations are not installed");
    AppLanguage::install(language);
    QVERIFY2(cancelButton().contains(text), qPrintable(cancelButton()));
    AppLanguage::install(QStringLiteral("en"));
    QVERIFY2(cancelButton().contains(QLatin1String("Cancel")), qPrintable(cancelButton()));
}

MV_WIDGET_TEST_MAIN(tst_AppLanguage)
#include "tst_AppLanguage.moc"
