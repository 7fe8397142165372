#include "DiffCommand.h"

#include "Arguments.h"
#include "Output.h"
#include "ReadTree.h"
#include "TreeDiff.h"

namespace {

void printItems(const char* change, const QStringList& items)
{
    for (const QString& item : items)
        Output::print(QLatin1String(change) + QLatin1Char(' ') + item);
}

void printFiles(const char* change, const QVector<TreeDiff::File>& files)
{
    for (const TreeDiff::File& file : files)
        Output::print(QStringLiteral("%1 %2 (%3)")
                          .arg(QLatin1String(change), file.name, Output::size(file.size)));
}

void print(const TreeDiff& diff)
{
    printItems("added", diff.added);
    printItems("removed", diff.removed);
    printItems("renamed", diff.renamed);
    printFiles("catalogue", diff.catalogues);
    printFiles("new file", diff.newFiles);
    printFiles("changed file", diff.changedFiles);
    printFiles("removed file", diff.removedFiles);
    if (!diff.changedFiles.isEmpty())
        Output::print(QStringLiteral("note: whoever has a changed file keeps the old one; publish "
                                     "it under another name to replace it"));
    const qint64 check = TreeDiff::bytes(diff.catalogues);
    const qint64 files = TreeDiff::bytes(diff.newFiles);
    Output::print(QStringLiteral("to transfer: %1 (%2 of catalogues, %3 of new files)")
                      .arg(Output::size(check + files), Output::size(check), Output::size(files)));
}

} // namespace

int DiffCommand::run(const Arguments& arguments)
{
    ReadTree before;
    ReadTree after;
    QString error;
    if (!before.open(arguments.operands.at(0), &error)
        || !after.open(arguments.operands.at(1), &error))
        return Output::fail(Output::exitFailure, error);
    const TreeDiff diff = TreeDiff::between(before, after);
    if (diff.isEmpty()) {
        Output::print(QStringLiteral("no difference"));
        return Output::exitSuccess;
    }
    print(diff);
    return Output::exitFindings;
}
