// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "LintCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "lint/Lint.h"
#include "tree/ReadTree.h"

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
        Console::print(Lint::summary(findings));
    }
    return Lint::count(findings, Severity::Error) == 0 ? ExitStatus::success : ExitStatus::findings;
}
