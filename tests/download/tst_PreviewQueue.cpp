// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/PreviewExchange.h"
#include "download/PreviewQueue.h"
#include "support/TestMain.h"

#include <QTest>

namespace tst_PreviewQueue {

/// Tests the order in which previews are fetched, and the exchange that decides on it.
class tst_PreviewQueue : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void orderOfTheList();
    void shownItemsComeFirst();
    void itemsThatOccurTwice();
    void itemsOfOtherListsAreLeftOut();
    void changeOfWishes();
    void emptyQueue();
    void viewersAreMerged();
    void sameWishesChangeNothing();

private:
    static QString all(PreviewQueue& queue);
    int m_other = 0; // its address is another viewer's
};

namespace {

const PreviewQueue::Picture nothing = {-1, false};
const QVector<QString> items = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};

} // namespace

void tst_PreviewQueue::cleanup()
{
    PreviewExchange::instance()->setShown(this, {});
    PreviewExchange::instance()->setShown(&m_other, {});
}

/// Takes everything: "0t" is the thumbnail of the first item, "0g" its animated preview.
QString tst_PreviewQueue::all(PreviewQueue& queue)
{
    QStringList pictures;
    while (const auto picture = queue.take())
        pictures.append(QString::number(picture->item) + QLatin1Char(picture->isGif ? 'g' : 't'));
    return pictures.join(QLatin1Char(' '));
}

void tst_PreviewQueue::orderOfTheList()
{
    PreviewQueue queue(items);
    QCOMPARE(all(queue), QStringLiteral("0t 0g 1t 1g 2t 2g"));
}

void tst_PreviewQueue::shownItemsComeFirst()
{
    PreviewExchange::instance()->setShown(this, {QStringLiteral("c"), QStringLiteral("b")});
    PreviewQueue queue(items);
    QCOMPARE(all(queue), QStringLiteral("2t 1t 2g 1g 0t 0g"));
}

void tst_PreviewQueue::itemsThatOccurTwice()
{
    PreviewExchange::instance()->setShown(this, {QStringLiteral("b")});
    PreviewQueue queue({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("b")});
    const QString order = all(queue);
    QVERIFY2(order.endsWith(QStringLiteral("0t 0g")), qPrintable(order));
    QCOMPARE(order.count(QLatin1Char('t')), 3);
}

void tst_PreviewQueue::itemsOfOtherListsAreLeftOut()
{
    PreviewExchange::instance()->setShown(this, {QStringLiteral("x"), QString()});
    PreviewQueue queue(items);
    QCOMPARE(all(queue), QStringLiteral("0t 0g 1t 1g 2t 2g"));
}

void tst_PreviewQueue::changeOfWishes()
{
    PreviewQueue queue(items);
    QCOMPARE(queue.take().value_or(nothing).item, 0);
    PreviewExchange::instance()->setShown(this, {QStringLiteral("c")});
    QCOMPARE(queue.take().value_or(nothing).item, 2);
    PreviewExchange::instance()->setShown(this, {QStringLiteral("b")});
    QCOMPARE(all(queue), QStringLiteral("1t 1g 0g 2g"));
}

void tst_PreviewQueue::emptyQueue()
{
    PreviewQueue queue({});
    QVERIFY(!queue.take());
}

void tst_PreviewQueue::viewersAreMerged()
{
    PreviewExchange* const exchange = PreviewExchange::instance();
    quint64 generation = 0;
    exchange->setShown(this, {QStringLiteral("a"), QStringLiteral("b")});
    exchange->setShown(&m_other, {QStringLiteral("b"), QStringLiteral("c")});
    QStringList shown = exchange->shown(generation);
    shown.sort();
    QCOMPARE(shown, (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    exchange->setShown(this, {});
    QCOMPARE(exchange->shown(generation), (QStringList{QStringLiteral("b"), QStringLiteral("c")}));
}

void tst_PreviewQueue::sameWishesChangeNothing()
{
    PreviewExchange* const exchange = PreviewExchange::instance();
    exchange->setShown(this, {QStringLiteral("a")});
    const quint64 generation = exchange->generation();
    exchange->setShown(this, {QStringLiteral("a")});
    exchange->setShown(&m_other, {});
    QCOMPARE(exchange->generation(), generation);
    quint64 read = 0;
    exchange->shown(read);
    QCOMPARE(read, generation);
    exchange->setShown(this, {QStringLiteral("b")});
    QVERIFY(exchange->generation() > generation);
}

MV_TEST_MAIN(tst_PreviewQueue)

} // namespace tst_PreviewQueue

#include "tst_PreviewQueue.moc"
