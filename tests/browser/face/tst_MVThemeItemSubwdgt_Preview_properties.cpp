// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaceFixture.h"

#include <QMetaProperty>

/// Tests the properties with which a style sheet sets up the ring and the overlay.
class tst_MVThemeItemSubwdgt_Preview_properties : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }
    void cleanup() { qApp->setStyleSheet(QString()); }

    void hasExactlyThese();
    void startWithTheirDefaults_data();
    void startWithTheirDefaults();
    void keepWhatIsWritten_data();
    void keepWhatIsWritten();
    void theStyleSheetSetsThem();
    void theStyleSheetSetsAnImage_data();
    void theStyleSheetSetsAnImage();
    void aNumberInTheStyleSheetMayBeNegative();
    void equalImagesShareTheirMemory();
    void differentImagesStayApart();
    void oneWidgetsPropertiesAreItsOwn();

private:
    static QImage plain(const QColor& colour)
    {
        QImage image(30, 30, QImage::Format_ARGB32);
        image.fill(colour);
        return image;
    }

    FaceFixture m_world;
};

void tst_MVThemeItemSubwdgt_Preview_properties::hasExactlyThese()
{
    const QMetaObject& meta = MVThemeItemSubwdgt_Preview::staticMetaObject;
    QStringList properties;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        QVERIFY(property.isReadable());
        QVERIFY(property.isWritable());
        properties.append(QString::fromLatin1(property.typeName()) + QLatin1Char(' ')
                          + QString::fromLatin1(property.name()));
    }
    QCOMPARE(
        properties,
        QStringList({QStringLiteral("QImage progressImage"), QStringLiteral("QImage progressMask"),
                     QStringLiteral("QColor progressColor"), QStringLiteral("int progressFontSize"),
                     QStringLiteral("int nMarginTop_lblCur"),
                     QStringLiteral("int nMarginTop_frmNetError")}));
}

void tst_MVThemeItemSubwdgt_Preview_properties::startWithTheirDefaults_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("image") << QByteArray("progressImage") << QVariant(QImage());
    QTest::newRow("mask") << QByteArray("progressMask") << QVariant(QImage());
    QTest::newRow("colour") << QByteArray("progressColor") << QVariant(QColor());
    QTest::newRow("font") << QByteArray("progressFontSize") << QVariant(9);
    QTest::newRow("current") << QByteArray("nMarginTop_lblCur") << QVariant(0);
    QTest::newRow("error") << QByteArray("nMarginTop_frmNetError") << QVariant(0);
}

void tst_MVThemeItemSubwdgt_Preview_properties::startWithTheirDefaults()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, value);
    const MVThemeItemSubwdgt_Preview face(nullptr);
    QCOMPARE(face.property(name.constData()), value);
    QVERIFY(!face.progressColor().isValid());
}

void tst_MVThemeItemSubwdgt_Preview_properties::keepWhatIsWritten_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("value");
    const auto row = [](const char* name, const QVariant& value) {
        QTest::newRow(name) << QByteArray(name) << value;
    };
    row("progressImage", plain(Qt::red));
    row("progressMask", plain(Qt::blue));
    row("progressColor", QColor(1, 2, 3, 4));
    row("progressFontSize", 17);
    row("nMarginTop_lblCur", 33);
    row("nMarginTop_frmNetError", -5);
}

void tst_MVThemeItemSubwdgt_Preview_properties::keepWhatIsWritten()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, value);
    MVThemeItemSubwdgt_Preview face(nullptr);
    const QMetaObject& meta = MVThemeItemSubwdgt_Preview::staticMetaObject;
    QMap<QByteArray, QVariant> others;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        others.insert(meta.property(i).name(), meta.property(i).read(&face));
    others[name] = value;
    QVERIFY(face.setProperty(name.constData(), value));
    for (auto it = others.cbegin(); it != others.cend(); ++it)
        QCOMPARE(face.property(it.key().constData()), it.value());
}

void tst_MVThemeItemSubwdgt_Preview_properties::theStyleSheetSetsThem()
{
    qApp->setStyleSheet(QStringLiteral("MVThemeItemSubwdgt_Preview {"
                                       " qproperty-progressColor: #123456;"
                                       " qproperty-progressFontSize: 12;"
                                       " qproperty-nMarginTop_lblCur: 70;"
                                       " qproperty-nMarginTop_frmNetError: 30; }"));
    const MVThemeItemSubwdgt_Preview face(nullptr);
    QCOMPARE(face.progressColor(), QColor(0x12, 0x34, 0x56));
    QCOMPARE(face.progressFontSize(), 12);
    QCOMPARE(face.marginTopCur(), 70);
    QCOMPARE(face.marginTopNetError(), 30);
}

void tst_MVThemeItemSubwdgt_Preview_properties::theStyleSheetSetsAnImage_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("image") << QStringLiteral("progressImage");
    QTest::newRow("mask") << QStringLiteral("progressMask");
}

void tst_MVThemeItemSubwdgt_Preview_properties::theStyleSheetSetsAnImage()
{
    QFETCH(QString, name);
    const QString file = m_world.base() + QStringLiteral("/ring.png");
    CatalogueFiles::write(file, FaceFixture::png(Qt::magenta, {50, 40}));
    qApp->setStyleSheet(
        QStringLiteral("MVThemeItemSubwdgt_Preview { qproperty-%1: url(%2); }").arg(name, file));
    const MVThemeItemSubwdgt_Preview face(nullptr);
    const QImage image = face.property(name.toLatin1().constData()).value<QImage>();
    QCOMPARE(image.size(), QSize(50, 40));
    QCOMPARE(image.pixelColor(25, 20), QColor(Qt::magenta));
}

void tst_MVThemeItemSubwdgt_Preview_properties::aNumberInTheStyleSheetMayBeNegative()
{
    qApp->setStyleSheet(
        QStringLiteral("MVThemeItemSubwdgt_Preview { qproperty-nMarginTop_lblCur: -6; }"));
    const MVThemeItemSubwdgt_Preview face(nullptr);
    QCOMPARE(face.marginTopCur(), -6);
}

void tst_MVThemeItemSubwdgt_Preview_properties::equalImagesShareTheirMemory()
{
    MVThemeItemSubwdgt_Preview a(nullptr);
    MVThemeItemSubwdgt_Preview b(nullptr);
    a.setProgressImage(plain(Qt::red));
    b.setProgressImage(plain(Qt::red));
    b.setProgressMask(plain(Qt::red));
    QCOMPARE(b.progressImage().constBits(), a.progressImage().constBits());
    QCOMPARE(b.progressMask().constBits(), a.progressImage().constBits());
}

void tst_MVThemeItemSubwdgt_Preview_properties::differentImagesStayApart()
{
    std::vector<std::unique_ptr<MVThemeItemSubwdgt_Preview>> faces;
    for (int i = 0; i < 20; ++i) {
        faces.push_back(std::make_unique<MVThemeItemSubwdgt_Preview>(nullptr));
        faces.back()->setProgressImage(plain(QColor(i, 0, 0)));
        faces.back()->setProgressMask(plain(QColor(0, i, 0)));
    }
    for (int i = 0; i < 20; ++i) {
        const auto at = static_cast<std::size_t>(i);
        QCOMPARE(faces[at]->progressImage(), plain(QColor(i, 0, 0)));
        QCOMPARE(faces[at]->progressMask(), plain(QColor(0, i, 0)));
    }
}

void tst_MVThemeItemSubwdgt_Preview_properties::oneWidgetsPropertiesAreItsOwn()
{
    MVThemeItemSubwdgt_Preview a(nullptr);
    MVThemeItemSubwdgt_Preview b(nullptr);
    a.setProgressImage(plain(Qt::red));
    a.setProgressFontSize(30);
    a.setProgressColor(Qt::red);
    QVERIFY(b.progressImage().isNull());
    QCOMPARE(b.progressFontSize(), 9);
    QVERIFY(!b.progressColor().isValid());
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemSubwdgt_Preview_properties)
#include "tst_MVThemeItemSubwdgt_Preview_properties.moc"
