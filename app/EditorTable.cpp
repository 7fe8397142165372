// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostOptions.h"
#include "ProgramTable.h"

namespace {

QString text(const char* ascii)
{
    return QString::fromLatin1(ascii);
}

ProgramTable made()
{
    ProgramTable table;
    table.name = text("mveditor");
    table.summary = text("browses and applies the resources of a slideshow editor");
    table.description = text(
        "Browses, previews, collects, downloads and applies the resources of a slideshow editor.");
    table.operands = text("[PROJECT]");
    table.options = HostOptions::options();
    table.values = {
        {text("PROJECT"),
         text("is a project file to open, see README.md"),
         ProgramTable::Offer::Files,
         {}},
        {text("FILE"), {}, ProgramTable::Offer::Files, {}},
        {text("DIR"), {}, ProgramTable::Offer::Folders, {}},
        {text("POLICY"),
         {},
         ProgramTable::Offer::Words,
         {text("ignore"), text("use"), text("require")}},
    };
    table.statuses = {
        {{}, {{0, text("success")}, {1, text("it could not start")}, {2, text("bad arguments")}}}};
    table.seeAlso = QStringList{text("mvres"), text("mvpublish")};
    return table;
}

} // namespace

const ProgramTable& programTable()
{
    static const ProgramTable table = made();
    return table;
}
