// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "lint/LintContext.h"

LintContext::LintContext(const ReadTree& tree)
    : m_tree(tree)
{
    for (const DisplayCatalogue& display : tree.displays()) {
        for (const DisplayEntry& entry : display.entries) {
            if (entry.known && !m_names.contains(entry.guid))
                m_names.insert(entry.guid, entry.item.m_qsName);
        }
    }
}

void LintContext::report(const char* code, const QString& file, int line, const QString& item,
                         const QString& message, const QString& advice)
{
    m_findings.append(
        {Severity::Error, QString::fromLatin1(code), file, line, item, message, advice});
}

void LintContext::warn(const char* code, const QString& file, int line, const QString& item,
                       const QString& message, const QString& advice)
{
    m_findings.append(
        {Severity::Warning, QString::fromLatin1(code), file, line, item, message, advice});
}

QString LintContext::label(const QString& guid) const
{
    const QString name = m_names.value(guid);
    return name.isEmpty() ? guid : guid + QLatin1Char(' ') + name;
}

bool LintContext::isFirstLook(const QString& file)
{
    if (m_looked.contains(file))
        return false;
    m_looked.insert(file);
    return true;
}
