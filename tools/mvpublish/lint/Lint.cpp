// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "lint/Lint.h"

#include "Console.h"
#include "lint/Checks.h"
#include "lint/LintContext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <algorithm>
#include <tuple>

namespace Lint {

Findings check(const ReadTree& tree)
{
    LintContext context(tree);
    for (const auto run : {&Checks::versions, &Checks::configGuids, &Checks::displays,
                           &Checks::editions, &Checks::itemFiles, &Checks::previews,
                           &Checks::themes, &Checks::themeTypes, &Checks::release, &Checks::unused})
        run(context);
    return sorted(context.findings());
}

Findings sorted(Findings findings)
{
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return std::tie(a.file, a.line) < std::tie(b.file, b.line);
    });
    return findings;
}

int count(const Findings& findings, Severity severity)
{
    return static_cast<int>(
        std::count_if(findings.cbegin(), findings.cend(),
                      [severity](const Finding& finding) { return finding.severity == severity; }));
}

QString summary(const Findings& findings)
{
    const int errors = count(findings, Severity::Error);
    const int warnings = count(findings, Severity::Warning);
    QStringList counts;
    if (errors > 0)
        counts.append(Console::counted(errors, QStringLiteral("error")));
    if (warnings > 0)
        counts.append(Console::counted(warnings, QStringLiteral("warning")));
    return counts.isEmpty() ? QStringLiteral("clean") : counts.join(QStringLiteral(", "));
}

QString text(const Finding& finding)
{
    const QString warning =
        finding.severity == Severity::Warning ? QStringLiteral("warning: ") : QString();
    const QString line =
        finding.line > 0 ? QLatin1Char(':') + QString::number(finding.line) : QString();
    const QString item = finding.item.isEmpty() ? QString() : finding.item + QStringLiteral(": ");
    return QStringLiteral("%1%2: %3%4%5 [%6]")
        .arg(finding.file, line, item, warning, finding.message, finding.code);
}

QJsonArray json(const Findings& findings)
{
    QJsonArray list;
    for (const Finding& finding : findings) {
        const bool isError = finding.severity == Severity::Error;
        QJsonObject object{{QStringLiteral("severity"),
                            isError ? QStringLiteral("error") : QStringLiteral("warning")},
                           {QStringLiteral("code"), finding.code},
                           {QStringLiteral("file"), finding.file},
                           {QStringLiteral("message"), finding.message},
                           {QStringLiteral("advice"), finding.advice}};
        if (finding.line > 0)
            object.insert(QStringLiteral("line"), finding.line);
        if (!finding.item.isEmpty())
            object.insert(QStringLiteral("item"), finding.item);
        list.append(object);
    }
    return list;
}

QJsonDocument json(const ReadTree& tree, const Findings& findings)
{
    return QJsonDocument(QJsonObject{
        {QStringLiteral("tree"), tree.folder()},
        {QStringLiteral("kind"),
         tree.isInstallation() ? QStringLiteral("installation") : QStringLiteral("server")},
        {QStringLiteral("findings"), json(findings)}});
}

} // namespace Lint
