// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/BrowserLanguage.h"
#include "FaceFixture.h"

#include <QTranslator>

namespace {

/// Returns all texts that a face shows, errors included.
QStringList textsOf(MVThemeItemSubwdgt_Preview& face)
{
    const FaceParts parts(face);
    QStringList texts{parts.btnCollect->toolTip(),  parts.btnCollectNo->toolTip(),
                      parts.btnDownload->toolTip(), parts.lblNetErrorTitle->text(),
                      parts.lblCur->text(),         parts.lblMore->text()};
    for (int error = 0; error <= 3; ++error) {
        face.setDownLoadErrorText(static_cast<EMVThemeDownLoadError>(error));
        texts.append(parts.lblNetError->text());
    }
    return texts;
}

QStringList split(const char* texts)
{
    return QString::fromUtf8(texts).split(QLatin1Char('|'));
}

const char* const english =
    "Remove from Favorites|Add to Favorites|Download|Download failed!|Current|More>>|"
    "Internet error!|Path error!|Element error!|Unknown error!";
const char* const german =
    "Aus Favoriten entfernen|Zu Favoriten hinzufügen|Herunterladen|Downloadfehler!|"
    "Aktuell|Mehr>>|Internetfehler!|Pfadfehler!|Elementfehler!|Unbekannter Fehler!";
const char* const spanish =
    "Quitar de favoritos|Añadir a favoritos|Descargar|¡Descarga fallida!|Actual|Más>>|"
    "¡Error de Internet!|¡Error de ruta!|¡Error de elemento!|¡Error desconocido!";
const char* const french =
    "Retirer des favoris|Ajouter aux favoris|Télécharger|Échec du "
    "téléchargement\u00a0!|Actuel|Plus>>|"
    "Erreur Internet\u00a0!|Erreur de chemin\u00a0!|Erreur d’élément\u00a0!|Erreur inconnue\u00a0!";
const char* const japanese = "お気に入りから削除|お気に入りに追加|ダウンロード|"
                             "ダウンロード失敗|使用中|もっと見る>>|"
                             "通信エラー|パスエラー|エレメントエラー|不明なエラー";
const char* const chinese = "从收藏夹中移除|添加到收藏夹|下载|下载失败！|当前|更多>>|网络错误！|"
                            "路径错误！|元素错误！|未知错误！";

} // namespace

/// Tests the library's texts in its languages, and switching between them.
class tst_BrowserLanguage : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }
    void cleanup() { BrowserLanguage::install(QStringLiteral("en")); }

    void listsItsLanguages();
    void everyListedLanguageIsThere();
    void translatesANewFace_data() { languages(); }
    void translatesANewFace();
    void translatesAnOpenFace_data() { languages(); }
    void translatesAnOpenFace();
    void findsTheLanguageOfALocale_data();
    void findsTheLanguageOfALocale();
    void theLastLanguageCounts();
    void aHiddenFaceChangesToo();
    void keepsTheError_data();
    void keepsTheError();
    void keepsTheStateOfTheFace();
    void keepsTheName();
    void keepsAnotherTranslator();

private:
    static void languages();

    FaceFixture m_world;
};

void tst_BrowserLanguage::languages()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("en") << QStringLiteral("en") << split(english);
    QTest::newRow("de") << QStringLiteral("de") << split(german);
    QTest::newRow("es") << QStringLiteral("es") << split(spanish);
    QTest::newRow("fr") << QStringLiteral("fr") << split(french);
    QTest::newRow("ja") << QStringLiteral("ja") << split(japanese);
    QTest::newRow("zh_CN") << QStringLiteral("zh_CN") << split(chinese);
}

void tst_BrowserLanguage::listsItsLanguages()
{
    QCOMPARE(BrowserLanguage::languages(),
             QStringList({QStringLiteral("en"), QStringLiteral("de"), QStringLiteral("es"),
                          QStringLiteral("fr"), QStringLiteral("ja"), QStringLiteral("zh_CN")}));
}

void tst_BrowserLanguage::everyListedLanguageIsThere()
{
    const QStringList all = BrowserLanguage::languages();
    for (const QString& language : all)
        QVERIFY2(BrowserLanguage::install(language), qPrintable(language));
}

void tst_BrowserLanguage::translatesANewFace()
{
    QFETCH(QString, language);
    QFETCH(QStringList, texts);
    QVERIFY(BrowserLanguage::install(language));
    MVThemeItemSubwdgt_Preview face(nullptr);
    QCOMPARE(textsOf(face), texts);
}

void tst_BrowserLanguage::translatesAnOpenFace()
{
    QFETCH(QString, language);
    QFETCH(QStringList, texts);
    Stage stage;
    QVERIFY(stage.show());
    QVERIFY(BrowserLanguage::install(language));
    QTRY_COMPARE(FaceParts(stage.face).lblMore->text(), texts.at(5));
    QCOMPARE(textsOf(stage.face), texts);
    QVERIFY(BrowserLanguage::install(QStringLiteral("en")));
    QTRY_COMPARE(FaceParts(stage.face).lblMore->text(), QStringLiteral("More>>"));
    QCOMPARE(textsOf(stage.face), split(english));
}

void tst_BrowserLanguage::findsTheLanguageOfALocale_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QString>("more");
    const auto row = [](const char* locale, bool found, const char* more) {
        QTest::newRow(locale) << QString::fromLatin1(locale) << found << QString::fromUtf8(more);
    };
    row("de_AT", true, "Mehr>>");
    row("de_DE", true, "Mehr>>");
    row("fr_CA", true, "Plus>>");
    row("es_MX", true, "Más>>");
    row("ja_JP", true, "もっと見る>>");
    row("zh", true, "更多>>");
    row("en_GB", true, "More>>");
    row("en_US", true, "More>>");
    row("it", false, "More>>");
    row("pt_BR", false, "More>>");
    row("nonsense", false, "More>>");
}

void tst_BrowserLanguage::findsTheLanguageOfALocale()
{
    QFETCH(QString, locale);
    QFETCH(bool, found);
    QFETCH(QString, more);
    QVERIFY(BrowserLanguage::install(QStringLiteral("fr")));
    QCOMPARE(BrowserLanguage::install(locale), found);
    const MVThemeItemSubwdgt_Preview face(nullptr);
    QCOMPARE(FaceParts(face).lblMore->text(), more);
}

void tst_BrowserLanguage::theLastLanguageCounts()
{
    Stage stage;
    QVERIFY(stage.show());
    for (const char* language : {"de", "ja", "de", "de", "zh_CN", "fr"})
        QVERIFY(BrowserLanguage::install(QString::fromLatin1(language)));
    QTRY_COMPARE(FaceParts(stage.face).lblMore->text(), QStringLiteral("Plus>>"));
}

void tst_BrowserLanguage::aHiddenFaceChangesToo()
{
    Stage stage;
    QVERIFY(BrowserLanguage::install(QStringLiteral("de")));
    QTRY_COMPARE(FaceParts(stage.face).lblCur->text(), QStringLiteral("Aktuell"));
}

void tst_BrowserLanguage::keepsTheError_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("text");
    QTest::newRow("-1") << -1 << QStringLiteral("Erreur inconnue\u00a0!");
    QTest::newRow("0") << 0 << QStringLiteral("Erreur Internet\u00a0!");
    QTest::newRow("1") << 1 << QStringLiteral("Erreur de chemin\u00a0!");
    QTest::newRow("2") << 2 << QStringLiteral("Erreur d\u2019\u00e9l\u00e9ment\u00a0!");
    QTest::newRow("3") << 3 << QStringLiteral("Erreur inconnue\u00a0!");
    QTest::newRow("4") << 4 << QStringLiteral("Erreur inconnue\u00a0!");
    QTest::newRow("5") << 5 << QString();
    QTest::newRow("6") << 6 << QStringLiteral("Erreur inconnue\u00a0!");
}

void tst_BrowserLanguage::keepsTheError()
{
    QFETCH(int, error);
    QFETCH(QString, text);
    Stage stage;
    stage.face.setDownLoadErrorText(static_cast<EMVThemeDownLoadError>(error));
    const FaceParts parts(stage.face);
    QVERIFY(BrowserLanguage::install(QStringLiteral("fr")));
    QTRY_COMPARE(parts.lblMore->text(), QStringLiteral("Plus>>"));
    QCOMPARE(parts.lblNetError->text(), text);
    QCOMPARE(isOn(parts.frmNetError), !text.isEmpty());
}

void tst_BrowserLanguage::keepsTheStateOfTheFace()
{
    SCfg_Item item = FaceFixture::item();
    Stage stage;
    stage.face.setItem(&item);
    stage.face.setCurText(true);
    stage.face.doEvent_Enter();
    stage.face.startDownLoad();
    const FaceParts parts(stage.face);
    QVERIFY(BrowserLanguage::install(QStringLiteral("de")));
    QTRY_COMPARE(parts.lblMore->text(), QStringLiteral("Mehr>>"));
    QCOMPARE(parts.page(), QStringLiteral("pageDownload"));
    QVERIFY(isOn(parts.lblCur));
    QVERIFY(isOn(parts.btnDownload));
    QVERIFY(!isOn(parts.btnCollect));
    QVERIFY(!isOn(parts.frmNetError));
}

void tst_BrowserLanguage::keepsTheName()
{
    SCfg_Item item = m_world.completeItem();
    item.m_qsName = QStringLiteral("Download");
    Stage stage;
    stage.face.setItem(&item);
    QVERIFY(BrowserLanguage::install(QStringLiteral("de")));
    QTRY_COMPARE(FaceParts(stage.face).btnDownload->toolTip(), QStringLiteral("Herunterladen"));
    QCOMPARE(FaceParts(stage.face).lblName->text(), QStringLiteral("Download"));
}

void tst_BrowserLanguage::keepsAnotherTranslator()
{
    /// A translator of the host's own texts.
    class HostTranslator : public QTranslator
    {
    public:
        bool isEmpty() const override { return false; }
        QString translate(const char* context, const char* source, const char*, int) const override
        {
            return qstrcmp(context, "Host") == 0 ? QLatin1String("host ") + QLatin1String(source)
                                                 : QString();
        }
    };
    HostTranslator host;
    QVERIFY(QCoreApplication::installTranslator(&host));
    QVERIFY(BrowserLanguage::install(QStringLiteral("de")));
    QVERIFY(BrowserLanguage::install(QStringLiteral("en")));
    QCOMPARE(QCoreApplication::translate("Host", "text"), QStringLiteral("host text"));
}

MV_WIDGET_TEST_MAIN(tst_BrowserLanguage)
#include "tst_BrowserLanguage.moc"
