// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/SkinTemplate.h"

#include "support/TestMain.h"

/// Tests how placeholders are replaced by values.
class tst_SkinTemplate : public QObject
{
    Q_OBJECT

private slots:
    void fills_data();
    void fills();
};

namespace {

using Values = QMap<QString, QString>;

void row(const char* name, const char* text, const Values& values, const char* filled,
         const QStringList& faults = {})
{
    QTest::newRow(name) << QString::fromLatin1(text) << values << QString::fromLatin1(filled)
                        << faults;
}

} // namespace

void tst_SkinTemplate::fills_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Values>("values");
    QTest::addColumn<QString>("filled");
    QTest::addColumn<QStringList>("faults");
    const Values red{{QStringLiteral("text"), QStringLiteral("red")}};
    const Values none;
    row("no placeholder", "a { width: 0; }", none, "a { width: 0; }");
    row("at the end", "color: @text@", red, "color: red");
    row("at the begin", "@text@;", red, "red;");
    row("twice", "a @text@ b @text@ c", red, "a red b red c");
    row("value of its own, and one", "@text|blue@", red, "red");
    row("value of its own only", "@text|0 4px@;", none, "0 4px;");
    row("empty value of its own", "a@text|@b", none, "ab");
    row("a value that looks like a placeholder", "@text@",
        {{QStringLiteral("text"), QStringLiteral("@x@")}}, "@x@");
    row("no value", "a @text@ b", none, "a  b",
        {QStringLiteral("the placeholder \"text\" has no value")});
    row("no placeholder for a value", "a", red, "a",
        {QStringLiteral("the value \"text\" has no placeholder")});
    row("another case", "@Text@", red, "",
        {QStringLiteral("the placeholder \"Text\" has no value"),
         QStringLiteral("the value \"text\" has no placeholder")});
}

void tst_SkinTemplate::fills()
{
    QFETCH(QString, text);
    QFETCH(Values, values);
    QFETCH(QString, filled);
    QFETCH(QStringList, faults);
    QStringList found;
    QCOMPARE(SkinTemplate::fill(text, values, found), filled);
    QCOMPARE(found, faults);
}

MV_TEST_MAIN(tst_SkinTemplate)
#include "tst_SkinTemplate.moc"
