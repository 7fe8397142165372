// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostOptions.h"
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

QVector<Command> readingCommands()
{
    return {
        {text("list"),
         text("[KIND]"),
         text("items of the catalogue: GUID, kind, name, theme type, favourite, size on disk or to "
              "fetch, and \"ready\", \"outdated\", \"damaged\" or the number of missing files"),
         {},
         0,
         1,
         text("list takes at most one KIND")},
        {text("search"),
         text("WORD..."),
         text("the items of all kinds whose name has every WORD, in any order and without regard "
              "to case and accents, as list prints them"),
         {},
         1,
         ProgramTable::anyNumber,
         text("search takes at least one WORD")},
        {text("show"),
         text("GUID"),
         text("one item, its files and what it depends on"),
         {},
         1,
         1,
         text("show takes one GUID")},
    };
}

QVector<Command> fetchingCommands()
{
    const QCommandLineOption dryRun = flag("dry-run", "change nothing, only list");
    return {
        {text("fetch"),
         text("GUID..."),
         text("downloads what the items lack, with progress; an item can be given by its name, "
              "too, or by words of it, if no other item has them"),
         {flag("all", "every item of the catalogue"), dryRun},
         1,
         ProgramTable::anyNumber,
         text("fetch takes at least one GUID")},
        {text("need"),
         text("FILE|GUID..."),
         text("what of a set of items is to be fetched, with bytes; FILE is JSON, an array of "
              "GUIDs or {\"items\": [{\"guid\": \"...\", \"name\": \"...\"}]}"),
         {flag("fetch", "download the items")},
         1,
         ProgramTable::anyNumber,
         text("need takes a FILE or at least one GUID")},
        {text("update"),
         text("[GUID...]"),
         text("fetches what differs from the server's release, for outdated and damaged items on "
              "disk, or for these"),
         {flag("all", "every item on disk"), dryRun},
         0,
         ProgramTable::anyNumber,
         {}},
        {text("verify"),
         text("[GUID...]"),
         text("states of the items on disk, or of these, with the files that are not the published "
              "ones"),
         {flag("deep", "read every file"), flag("repair", "fetch the published files")},
         0,
         ProgramTable::anyNumber,
         {}},
    };
}

QVector<Command> keepingCommands()
{
    const QCommandLineOption dryRun = flag("dry-run", "change nothing, only list");
    return {
        {text("remove"),
         text("GUID..."),
         text("removes the items' files that no other item on disk needs"),
         {dryRun},
         1,
         ProgramTable::anyNumber,
         text("remove takes at least one GUID")},
        {text("du"),
         {},
         text("disk space of the items on disk, largest first: of files that they alone need, of "
              "files that they share, and both"),
         {},
         0,
         0,
         text("du takes no arguments")},
        {text("clean"),
         {},
         text("removes files that no catalogue names and what interrupted commands have left"),
         {dryRun},
         0,
         0,
         text("clean takes no arguments")},
        {text("favourite"),
         text("GUID"),
         text("marks an item as a favourite"),
         {flag("off", "take the mark away")},
         1,
         1,
         text("favourite takes one GUID")},
    };
}

QVector<Command> otherCommands()
{
    return {
        {text("check"),
         {},
         text("asks the server for a newer catalogue and fetches it, then the previews that are "
              "missing, counting them on a terminal"),
         {flag("wait", "return when the threads that did it have ended")},
         0,
         0,
         text("check takes no arguments")},
        {text("builtin"),
         text("DIR"),
         text("extracts what ships with the application out of the full resource tree DIR (its "
              "last component is \"Resource\") into DIR/config_local"),
         {},
         1,
         1,
         text("builtin takes one DIR")},
        {text("paths"),
         {},
         text("folders and addresses in use"),
         {},
         0,
         0,
         text("paths takes no arguments")},
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
    return {
        {text("GUID"),
         text("is the GUID of an item; braces and case do not matter"),
         Offer::Nothing,
         {}},
        {text("KIND"), text("is one of ") + kindWords().join(text(", ")), Offer::Words,
         kindWords()},
        {text("FILE"), {}, Offer::Files, {}},
        {text("DIR"), {}, Offer::Folders, {}},
        {text("POLICY"), {}, Offer::Words, {text("ignore"), text("use"), text("require")}},
    };
}

QVector<ProgramTable::StatusGroup> statuses()
{
    return {
        {{}, {{0, text("success")}, {1, text("failure")}, {2, text("bad arguments")}}},
        {{text("fetch"), text("update"), text("verify"), text("need")},
         {{14, text("cancelled")},
          {31, text("the disk is full")},
          {32, text("no permission to write")},
          {33, text("a local file cannot be written")},
          {34, text("the server cannot be reached")},
          {35, text("the connection was lost")},
          {36, text("a file is not on the server")},
          {37, text("the server reports an error")},
          {38, text("no usable address")},
          {39, text("a file is too large")},
          {40, text("a file is damaged")}}},
        {{text("verify")},
         {{50, text("files are outdated")}, {51, text("files are damaged or missing")}}},
        {{text("need")}, {{52, text("items are to be fetched")}, {53, text("items are unknown")}}},
        {{text("check")},
         {{0, text("the catalogue is current")},
          {20, text("it has changed and was fetched")},
          {21, text("the server's needs a newer application")},
          {22, text("the server's is older")},
          {23, text("the server could not be reached")},
          {24, text("the server's was rejected")},
          {25, text("cancelled")},
          {26, text("the new one could not be stored")},
          {27, text("the catalogue is in order, but previews could not be fetched")}}},
    };
}

ProgramTable made()
{
    ProgramTable table;
    table.name = text("mvres");
    table.summary = text("lists, inspects, fetches and updates the resources of a catalogue");
    table.description =
        text("Lists, inspects, fetches and updates the resources of a catalogue.\n"
             "Where several files are fetched, the exit status tells the cause of the first "
             "failure. With --json, a failure is an object on standard output, too: "
             "{\"error\": {\"status\": N, \"text\": \"...\"}}; its text is on standard error in "
             "any case.");
    table.commands = readingCommands() + fetchingCommands() + keepingCommands() + otherCommands();
    table.options = HostOptions::options();
    table.options.append(flag("json", "print one JSON document"));
    table.values = values();
    table.statuses = statuses();
    table.seeAlso = QStringList{text("mveditor"), text("mvpublish"), text("mvserve")};
    return table;
}

} // namespace

const ProgramTable& programTable()
{
    static const ProgramTable table = made();
    return table;
}
