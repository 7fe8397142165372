// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "StateText.h"
#include "support/TestMain.h"

/// Tests the words for states and sizes.
class tst_StateText : public QObject
{
    Q_OBJECT

private slots:
    void states_data();
    void states();
    void useOfTheDisk_data();
    void useOfTheDisk();
};

void tst_StateText::states_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<bool>("known");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, EFileState state, qint64 bytes, bool known,
                        const char* text) {
        QTest::newRow(name) << int(state) << bytes << known << QString::fromLatin1(text);
    };
    row("current", eFile_Current, 0, true, "Up to date");
    row("unlisted", eFile_Unlisted, 0, true, "Ready to use");
    row("outdated", eFile_Outdated, 1234567, true, "Update available, 1.2 MB");
    row("damaged", eFile_Damaged, 999, true, "Damaged: fetch it again, 999 bytes");
    row("missing", eFile_Missing, 2500, true, "Not downloaded yet, 2.5 kB");
    row("missing, partly known", eFile_Missing, 2500, false, "Not downloaded yet, at least 2.5 kB");
    row("missing, unknown", eFile_Missing, 0, false, "Not downloaded yet, size unknown");
}

void tst_StateText::states()
{
    QFETCH(int, state);
    QFETCH(qint64, bytes);
    QFETCH(bool, known);
    SItemState item;
    item.m_eState = static_cast<EFileState>(state);
    item.m_nBytesToFetch = bytes;
    item.m_bBytesKnown = known;
    QTEST(StateText::ofState(item), "text");
}

void tst_StateText::useOfTheDisk_data()
{
    QTest::addColumn<qint64>("own");
    QTest::addColumn<qint64>("shared");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << qint64(0) << qint64(0) << QString();
    QTest::newRow("own") << qint64(3000) << qint64(0) << QStringLiteral("On this computer: 3.0 kB");
    QTest::newRow("both") << qint64(3000) << qint64(1500)
                          << QStringLiteral(
                                 "On this computer: 4.5 kB, of which other items share 1.5 kB");
}

void tst_StateText::useOfTheDisk()
{
    QFETCH(qint64, own);
    QFETCH(qint64, shared);
    QTEST(StateText::ofUse(own, shared), "text");
}

MV_TEST_MAIN(tst_StateText)
#include "tst_StateText.moc"
