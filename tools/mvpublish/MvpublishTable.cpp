// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProgramTable.h"
#include "records/KindTable.h"

namespace {

using Command = ProgramTable::Command;
using Offer = ProgramTable::Offer;

QString text(const char* ascii)
{
    return QString::fromLatin1(ascii);
}

QCommandLineOption flag(const char* name, const char* help)
{
    return QCommandLineOption(text(name), text(help));
}

QCommandLineOption option(const char* name, const char* help, const char* value)
{
    return QCommandLineOption(text(name), text(help), text(value));
}

QCommandLineOption passwordOption()
{
    return option("password-fd",
                  "read the password from the open file descriptor N instead of asking on the "
                  "terminal",
                  "N");
}

QCommandLineOption jsonOption()
{
    return flag("json", "print one JSON document");
}

/// Returns the options for a tree that is built.
QList<QCommandLineOption> treeOptions()
{
    return {
        option("edition",
               "an edition to publish for, standard (the default) or 1 to 5; can be repeated",
               "EDITION"),
        flag("installed", "OUT is the application's folder \"Resource\""),
        option("expires", "clients refuse the release DAYS after its publication", "DAYS"),
        flag("no-release", "write no release and no contents by digest"),
        flag("force", "publish a tree in which lint finds errors"),
    };
}

QVector<Command> sourceCommands()
{
    return {
        {text("new"),
         text("KIND NAME"),
         text("starts an item with a fresh GUID in a folder of its own, which is named after it"),
         {QCommandLineOption(text("in"), text("the source; the current folder by default"),
                             text("SOURCE"), text(".")),
          flag("ascii", "name folder and files in ASCII, with a digest in place of other letters")},
         2,
         2,
         text("new takes a KIND and a NAME")},
        {text("build"), text("SOURCE OUT"),
         text("writes the whole tree OUT from the items in SOURCE and checks it as lint does; a "
              "tree that is there is replaced in one step"),
         treeOptions()
             + QList<QCommandLineOption>{flag("renew",
                                              "publish a new release even if nothing has "
                                              "changed"),
                                         jsonOption()},
         2, 2, text("build takes SOURCE and OUT")},
        {text("watch"), text("SOURCE OUT"),
         text("builds OUT, and again whenever something in SOURCE has changed, until it is "
              "interrupted"),
         treeOptions(), 2, 2, text("watch takes SOURCE and OUT")},
        {text("retire"),
         text("SOURCE ITEM"),
         text("takes an item (its folder or GUID) out of the source without deleting it, and keeps "
              "others from taking its GUID"),
         {},
         2,
         2,
         text("retire takes SOURCE and ITEM")},
    };
}

QVector<Command> releaseCommands()
{
    return {
        {text("keygen"),
         text("FILE"),
         text("writes a new key for releases: FILE, which is secret, and FILE.pub"),
         {passwordOption(), flag("no-password", "do not protect the secret key"),
          flag("force", "replace existing files")},
         1,
         1,
         text("keygen takes one FILE")},
        {text("sign"),
         text("TREE"),
         text("signs the release of a tree with the secret key of --key"),
         {option("key", "the secret key", "FILE"), passwordOption()},
         1,
         1,
         text("sign takes one TREE")},
        {text("verify"),
         text("TREE|URL"),
         text("checks that a tree, or a server, has exactly what its release says"),
         {option("key", "a public key that may have signed, a file or its line; can be repeated",
                 "FILE")},
         1,
         1,
         text("verify takes one TREE or URL")},
    };
}

QVector<Command> treeCommands()
{
    return {
        {text("lint"),
         text("TREE"),
         text("checks a server's tree or an installation the way it will be read"),
         {jsonOption()},
         1,
         1,
         text("lint takes one TREE")},
        {text("diff"),
         text("OLD NEW"),
         text("what a user of the tree OLD fetches when NEW is published"),
         {jsonOption()},
         2,
         2,
         text("diff takes OLD and NEW")},
        {text("serve"),
         text("TREE"),
         text("serves a tree on 127.0.0.1, to try it out"),
         {QCommandLineOption(text("port"), text("port; a free one by default"), text("N"),
                             text("0")),
          flag("quiet", "do not print requests")},
         1,
         1,
         text("serve takes one TREE")},
        {text("upload"),
         text("TREE REMOTE"),
         text("brings the release of a tree into force at an object store or web space, with the "
              "program rclone: REMOTE and the options after \"--\" are as rclone understands them"),
         {option("prune", "then remove the files that no release of the last DAYS days names",
                 "DAYS"),
          flag("dry-run", "print what would be sent and removed")},
         2,
         2,
         text("upload takes TREE and REMOTE")},
    };
}

QStringList kindWords()
{
    QStringList words;
    for (const SKindInfo& kind : KindTable::all())
        words.append(kind.word());
    return words;
}

QVector<ProgramTable::Value> values()
{
    QVector<ProgramTable::Value> all = {
        {text("KIND"), text("is one of ") + kindWords().join(text(", ")), Offer::Words,
         kindWords()},
        {text("EDITION"),
         {},
         Offer::Words,
         {text("standard"), text("1"), text("2"), text("3"), text("4"), text("5")}},
        {text("FILE"), {}, Offer::Files, {}},
    };
    for (const char* const folder : {"SOURCE", "OUT", "TREE", "OLD", "NEW", "ITEM"})
        all.append({text(folder), {}, Offer::Folders, {}});
    return all;
}

ProgramTable made()
{
    ProgramTable table;
    table.name = text("mvpublish");
    table.summary = text("makes, signs, checks and serves the tree of a resource server");
    table.description = text("Makes, signs, checks and serves the tree of a resource server.");
    table.commands = sourceCommands() + releaseCommands() + treeCommands();
    table.values = values();
    table.statuses = {{{},
                       {{0, text("success, nothing but warnings, no difference")},
                        {1, text("faults, errors, differences")},
                        {2, text("the work could not be done")}}}};
    table.seeAlso = QStringList{text("mvserve"), text("mvres"), text("mveditor")};
    return table;
}

} // namespace

const ProgramTable& programTable()
{
    static const ProgramTable table = made();
    return table;
}
