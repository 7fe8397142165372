// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaceFixture.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QToolTip>

namespace {

const QString longName = QStringLiteral("A name much longer than the cell that it stands in");

/// Returns the text of the visible tool tip; empty if there is none.
QString shownToolTip()
{
    if (!QToolTip::isVisible())
        return QString();
    const QString text = QToolTip::text();
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

/// Renders a plain label with this text in place of `label`.
QImage plainPicture(const QLabel& label, const QString& text)
{
    QLabel plain(label.parentWidget());
    plain.setTextFormat(Qt::PlainText);
    plain.setAlignment(label.alignment());
    plain.setFont(label.font());
    plain.setFrameStyle(label.frameStyle());
    plain.setLineWidth(label.lineWidth());
    plain.setGeometry(label.geometry());
    plain.setText(text);
    return plain.grab().toImage();
}

} // namespace

/// Tests the name below the picture.
class tst_nameLabel : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.fresh(); }
    void cleanup() { QToolTip::hideText(); }

    void showsTheNameVerbatim_data();
    void showsTheNameVerbatim();
    void aLongNameEndsInAnEllipsis();
    void aNameThatFitsIsWhole();
    void aLongNameKeepsTheFrame();
    void showsALongNameVerbatimInTheToolTip_data();
    void showsALongNameVerbatimInTheToolTip();
    void aNameThatFitsHasNoToolTip();
    void aLongNameAsksForNoRoom();
    void followsTheWidthOfTheCell();

private:
    QLabel* show(Stage& stage, const QString& name, int width = 153);

    FaceFixture m_world;
    SCfg_Item m_item;
};

QLabel* tst_nameLabel::show(Stage& stage, const QString& name, int width)
{
    m_item = m_world.completeItem();
    m_item.m_qsName = name;
    stage.face.setItem(&m_item);
    if (!stage.show({width, 116}))
        qFatal("no window");
    return FaceParts(stage.face).lblName;
}

void tst_nameLabel::showsTheNameVerbatim_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("Sunny day");
    QTest::newRow("mark-up") << QStringLiteral("<b>x</b>");
    QTest::newRow("ampersand") << QStringLiteral("R&B");
    QTest::newRow("both") << QStringLiteral("<b>a</b> & b");
    QTest::newRow("entity") << QStringLiteral("a &amp; b");
    QTest::newRow("empty") << QString();
}

void tst_nameLabel::showsTheNameVerbatim()
{
    QFETCH(QString, name);
    Stage stage;
    const QLabel* label = show(stage, name, 300);
    QCOMPARE(label->text(), name);
    QCOMPARE(label->textFormat(), Qt::PlainText);
    const QImage picture = const_cast<QLabel*>(label)->grab().toImage();
    QCOMPARE(picture, plainPicture(*label, name));
    if (!name.isEmpty())
        QVERIFY(picture != plainPicture(*label, QString()));
}

void tst_nameLabel::aLongNameEndsInAnEllipsis()
{
    Stage stage;
    QLabel* label = show(stage, longName);
    QCOMPARE(label->text(), longName);
    const QString shortened =
        label->fontMetrics().elidedText(longName, Qt::ElideRight, label->contentsRect().width());
    QVERIFY(shortened.endsWith(QChar(0x2026)));
    QVERIFY(shortened.size() > 5);
    QCOMPARE(label->grab().toImage(), plainPicture(*label, shortened));
}

void tst_nameLabel::aNameThatFitsIsWhole()
{
    Stage stage;
    QLabel* label = show(stage, longName, 700);
    QVERIFY(label->fontMetrics().horizontalAdvance(longName) < label->width());
    QCOMPARE(label->grab().toImage(), plainPicture(*label, longName));
}

/// A skin may draw a frame around the name.
void tst_nameLabel::aLongNameKeepsTheFrame()
{
    Stage stage;
    QLabel* label = show(stage, longName);
    const QImage frameless = label->grab().toImage();
    label->setFrameStyle(QFrame::Box | QFrame::Plain);
    label->setLineWidth(2);
    const QString shortened =
        label->fontMetrics().elidedText(longName, Qt::ElideRight, label->contentsRect().width());
    const QImage framed = label->grab().toImage();
    QCOMPARE(framed, plainPicture(*label, shortened));
    QVERIFY(framed.pixelColor(0, 0) != frameless.pixelColor(0, 0));
}

void tst_nameLabel::showsALongNameVerbatimInTheToolTip_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << longName;
    QTest::newRow("mark-up") << QStringLiteral("<b>bold</b> <img src='x'> ") + longName;
    QTest::newRow("ampersand") << QStringLiteral("Rhythm & Blues & ") + longName;
    QTest::newRow("quotes") << QStringLiteral("The \"best\" of ") + longName;
    QTest::newRow("entity") << QStringLiteral("a &amp; b &lt; c ") + longName;
}

void tst_nameLabel::showsALongNameVerbatimInTheToolTip()
{
    QFETCH(QString, name);
    Stage stage;
    QLabel* label = show(stage, name);
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), label->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(label, &help);
    QTRY_COMPARE(shownToolTip(), name);
}

void tst_nameLabel::aNameThatFitsHasNoToolTip()
{
    Stage stage;
    QLabel* label = show(stage, QStringLiteral("Short"));
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), label->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(label, &help);
    QCOMPARE(shownToolTip(), QString());
}

void tst_nameLabel::aLongNameAsksForNoRoom()
{
    Stage stage;
    show(stage, QStringLiteral("Short"));
    const int narrow = stage.face.minimumSizeHint().width();
    Stage other;
    const QLabel* label = show(other, longName);
    QCOMPARE(other.face.minimumSizeHint().width(), narrow);
    QCOMPARE(label->minimumSizeHint().width(), 0);
    QVERIFY(label->minimumSizeHint().height() > 0);
}

void tst_nameLabel::followsTheWidthOfTheCell()
{
    Stage stage;
    QLabel* label = show(stage, longName);
    const auto shortened = [label] {
        return label->fontMetrics().elidedText(longName, Qt::ElideRight,
                                               label->contentsRect().width());
    };
    const QString before = shortened();
    stage.face.resize(220, 116);
    QTRY_VERIFY(shortened().size() > before.size());
    QCOMPARE(label->grab().toImage(), plainPicture(*label, shortened()));
}

MV_WIDGET_TEST_MAIN(tst_nameLabel)
#include "tst_nameLabel.moc"
