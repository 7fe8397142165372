// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProgramTable.h"

namespace {

QString text(const char* ascii)
{
    return QString::fromLatin1(ascii);
}

ProgramTable made()
{
    ProgramTable table;
    table.name = text("mvserve");
    table.summary = text("serves the tree of a resource server for testing");
    table.description =
        text("Serves the tree of a resource server on 127.0.0.1 until it is interrupted.");
    table.operands = text("TREE");
    table.options = {QCommandLineOption(text("port"),
                                        text("port to listen on; a free one by "
                                             "default"),
                                        text("N"), text("0")),
                     QCommandLineOption(text("quiet"), text("do not print requests"))};
    table.values = {
        {text("TREE"), text("is the folder to serve"), ProgramTable::Offer::Folders, {}}};
    table.statuses = {{{},
                       {{0, text("it was interrupted")},
                        {1, text("it could not serve")},
                        {2, text("bad arguments")}}}};
    table.seeAlso = QStringList{text("mvpublish"), text("mvres")};
    return table;
}

} // namespace

const ProgramTable& programTable()
{
    static const ProgramTable table = made();
    return table;
}
