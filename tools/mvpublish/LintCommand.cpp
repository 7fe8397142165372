#include "LintCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "lint/Lint.h"
#include "ReadTree.h"

#include <QJsonDocument>

int LintCommand::run(const Arguments& arguments)
{
    ReadTree tree;
    QString error;
    if (!tree.open(arguments.operands.constFirst(), &error))
        return Console::fail(ExitStatus::failure, error);
    const Findings findings = Lint::check(tree);
    if (arguments.json) {
        Console::print(Lint::json(tree, findings));
    } else {
        for (const Finding& finding : findings) {
            Console::print(Lint::text(finding));
            Console::print(QStringLiteral("    ") + finding.advice);
        }
        Console::print(findings.isEmpty()
                           ? QStringLiteral("clean")
                           : Console::counted(findings.size(), QStringLiteral("finding")));
    }
    return findings.isEmpty() ? ExitStatus::success : ExitStatus::findings;
}
