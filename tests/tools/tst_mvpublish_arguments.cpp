// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvpublish.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

/// Tests the command line of mvpublish.
class TestMvpublishArguments : public QObject
{
    Q_OBJECT

private slots:
    void refuses_data();
    void refuses();
    void helpNamesTheCommands();
    void version();
};

void TestMvpublishArguments::refuses_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const char* arguments, const char* message) {
        QTest::newRow(arguments) << text(arguments) << QByteArray(message);
    };
    row("", "no command; see mvpublish --help");
    row("publish x", "unknown command \"publish\"; see mvpublish --help");
    row("new theme", "new takes a KIND and a NAME");
    row("build source", "build takes SOURCE and OUT");
    row("build a b c", "build takes SOURCE and OUT");
    row("lint", "lint takes one TREE");
    row("diff a", "diff takes OLD and NEW");
    row("serve", "serve takes one TREE");
    row("serve a b", "serve takes one TREE");
    row("build a b --edition 6", "--edition takes standard or 1 to 5, not \"6\"");
    row("build a b --edition Standard", "--edition takes standard or 1 to 5, not \"Standard\"");
    row("build a b --installed --edition 1", "an installation is the same for all editions");
    row("build a b --expires 0", "--expires takes a number of days from 1 to 36500");
    row("build a b --expires 36501", "--expires takes a number of days from 1 to 36500");
    row("build a b --expires soon", "--expires takes a number of days from 1 to 36500");
    row("build a b --no-release --expires 3",
        "--expires and --renew need a release, which a tree built with --no-release has not");
    row("build a b --installed --renew",
        "--expires and --renew need a release, which an installation has not");
    row("lint a --force", "--force does not go with lint");
    row("keygen", "keygen takes one FILE");
    row("keygen k --no-password --password-fd 0", "--password-fd does not go with --no-password");
    row("keygen k --password-fd x", "--password-fd takes the number of an open file descriptor");
    row("keygen k --password-fd -1", "--password-fd takes the number of an open file descriptor");
    row("keygen k --key a", "--key does not go with keygen");
    row("sign", "sign takes one TREE");
    row("sign a", "sign takes one --key");
    row("sign a --key b --key c", "sign takes one --key");
    row("sign a --key b --no-password", "--no-password does not go with sign");
    row("verify", "verify takes one TREE or URL");
    row("verify a b", "verify takes one TREE or URL");
    row("verify a --force", "--force does not go with verify");
    row("watch a b --renew", "--renew does not go with watch");
    row("watch a", "watch takes SOURCE and OUT");
    row("lint a --edition 1", "--edition does not go with lint");
    row("lint a --port 1", "--port does not go with lint");
    row("new theme x --quiet", "--quiet does not go with new");
    row("serve a --in b", "--in does not go with serve");
    row("serve a --port http", "--port takes a number from 0 to 65535");
    row("serve a --port 65536", "--port takes a number from 0 to 65535");
    row("retire source", "retire takes SOURCE and ITEM");
    row("upload tree", "upload takes TREE and REMOTE");
    row("upload tree -- --config=x", "upload takes TREE and REMOTE");
    row("upload tree x --prune 0", "--prune takes a number of days from 1 to 36500");
    row("build a b --dry-run", "--dry-run does not go with build");
    row("serve -- --a --b", "serve takes one TREE");
    row("lint a --fix", "Unknown option 'fix'.");
}

void TestMvpublishArguments::refuses()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, message);
    const Outcome outcome = Mvpublish::run(arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(outcome.err, "mvpublish: " + message + '\n');
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 2);
}

void TestMvpublishArguments::helpNamesTheCommands()
{
    const Outcome outcome = Mvpublish::run({text("--help")});
    QCOMPARE(outcome.status, 0);
    for (const char* part : {"new KIND NAME",
                             "build SOURCE OUT",
                             "watch SOURCE OUT",
                             "keygen FILE",
                             "sign TREE",
                             "verify TREE|URL",
                             "lint TREE",
                             "diff OLD NEW",
                             "serve TREE",
                             "retire SOURCE ITEM",
                             "upload TREE REMOTE",
                             "--prune <DAYS>",
                             "--dry-run",
                             "--edition <EDITION>",
                             "--installed",
                             "--expires <DAYS>",
                             "--renew",
                             "--no-release",
                             "--force",
                             "--key <FILE>",
                             "--password-fd <N>",
                             "--no-password",
                             "--in <SOURCE>",
                             "--json",
                             "--port <N>",
                             "--quiet"})
        QVERIFY2(outcome.out.contains(part), part);
}

void TestMvpublishArguments::version()
{
    QCOMPARE(Mvpublish::run({text("--version")}).out, QByteArray("mvpublish " MV_VERSION "\n"));
}

MV_TEST_MAIN(TestMvpublishArguments)
#include "tst_mvpublish_arguments.moc"
