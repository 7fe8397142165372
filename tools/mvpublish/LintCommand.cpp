#include "LintCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "lint/Lint.h"
#include "tree/ReadTree.h"

#include <QJsonDocument>
#include <QStringList>

namespace {

/// Returns "clean", "1 error", "2 errors, 1 warning" or "1 warning".
QString summary(int errors, int warnings)
{
    QStringList counts;
    if (errors > 0)
        counts.append(Console::counted(errors, QStringLiteral("error")));
    if (warnings > 0)
        counts.append(Console::counted(warnings, QStringLiteral("warning")));
    return counts.isEmpty() ? QStringLiteral("clean") : counts.join(QStringLiteral(", "));
}

} // namespace

int LintCommand::run(const Arguments& arguments)
{
    ReadTree tree;
    QString error;
    if (!tree.open(arguments.operands.constFirst(), &error))
        return Console::fail(ExitStatus::failure, error);
    const Findings findings = Lint::check(tree);
    const int errors = Lint::count(findings, Severity::Error);
    if (arguments.json) {
        Console::print(Lint::json(tree, findings));
    } else {
        for (const Finding& finding : findings) {
            Console::print(Lint::text(finding));
            Console::print(QStringLiteral("    ") + finding.advice);
        }
        Console::print(summary(errors, Lint::count(findings, Severity::Warning)));
    }
    return errors == 0 ? ExitStatus::success : ExitStatus::findings;
}
