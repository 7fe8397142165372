// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/SearchWords.h"
#include "support/TestMain.h"

#include <QtTest>

class tst_SearchWords : public QObject
{
    Q_OBJECT

private slots:
    void findsNames_data();
    void findsNames();
    void comparesWords();
};

void tst_SearchWords::findsNames_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("found");

    const auto row = [](const char* tag, const char* typed, const char* name, bool found) {
        QTest::newRow(tag) << QString::fromUtf8(typed) << QString::fromUtf8(name) << found;
    };
    row("nothing typed", "", "White Christmas", true);
    row("only blanks", " \t ", "White Christmas", true);
    row("part of a word", "hrist", "White Christmas", true);
    row("other order", "christmas white", "White Christmas", true);
    row("one word missing", "christmas black", "White Christmas", false);
    row("blanks around", "  white   ", "White Christmas", true);
    row("ideographic space", "新年\u3000快乐", "快乐新年", true);
    row("case", "WHITE", "white christmas", true);
    row("case beyond Latin", "ЗИМА", "зима", true);
    row("accents in the name", "noel", "Noël", true);
    row("accents typed", "nöel", "Noel", true);
    row("combining accent", "Noe\u0308l", "Noël", true);
    row("ligature", "office", "o\uFB03ce", true);
    row("full-width letters", "abc", "ＡＢＣ", true);
    row("Korean syllable", "한글", "한글 배경", true);
    row("pattern characters are letters", "a.c*", "abc", false);
    row("pattern characters are found", "(1)", "Winter (1)", true);
}

void tst_SearchWords::findsNames()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, name);
    QTEST(SearchWords(typed).matches(name), "found");
}

void tst_SearchWords::comparesWords()
{
    QCOMPARE(SearchWords(QStringLiteral(" Über  Land ")), SearchWords(QStringLiteral("uber land")));
    QVERIFY(SearchWords(QStringLiteral("a b")) != SearchWords(QStringLiteral("b")));
    QVERIFY(SearchWords(QStringLiteral(" ")).isEmpty());
}

MV_TEST_MAIN(tst_SearchWords)
#include "tst_SearchWords.moc"
