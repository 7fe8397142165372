#include "LintCommand.h"

#include "Arguments.h"
#include "lint/Lint.h"
#include "Output.h"
#include "ReadTree.h"

#include <QJsonDocument>

int LintCommand::run(const Arguments& arguments)
{
    ReadTree tree;
    QString error;
    if (!tree.open(arguments.operands.constFirst(), &error))
        return Output::fail(Output::exitFailure, error);
    const Findings findings = Lint::check(tree);
    if (arguments.json) {
        Output::print(Lint::json(tree, findings));
    } else {
        for (const Finding& finding : findings) {
            Output::print(Lint::text(finding));
            Output::print(QStringLiteral("    ") + finding.advice);
        }
        Output::print(findings.isEmpty()
                          ? QStringLiteral("clean")
                          : Output::counted(findings.size(), QStringLiteral("finding")));
    }
    return findings.isEmpty() ? Output::exitSuccess : Output::exitFindings;
}
