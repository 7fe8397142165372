// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "tree/Finding.h"
#include "tree/ReadTree.h"

#include <QSet>

/// State shared by the checks of one tree: the tree, the findings, the files met so far.
class LintContext
{
public:
    explicit LintContext(const ReadTree& tree);

    const ReadTree& tree() const { return m_tree; }

    /// Adds an error.
    void report(const char* code, const QString& file, int line, const QString& item,
                const QString& message, const QString& advice);
    /// Adds a warning.
    void warn(const char* code, const QString& file, int line, const QString& item,
              const QString& message, const QString& advice);
    /// Adds what a check that does not know the context has found.
    void add(const Finding& finding) { m_findings.append(finding); }
    const Findings& findings() const { return m_findings; }

    /// Returns "{GUID} Name", for findings.
    QString label(const QString& guid) const;

    /// Marks a file of the tree as named by something.
    void use(const QString& file) { m_used.insert(file); }
    bool isUsed(const QString& file) const { return m_used.contains(file); }
    /// Returns true the first time, so that a file named by several items is checked once.
    bool isFirstLook(const QString& file);

    /// GUIDs that themes use; complete unless a theme cannot be read.
    QSet<QString> dependencies;
    bool allThemesRead = true;

private:
    const ReadTree& m_tree;
    Findings m_findings;
    QSet<QString> m_used;
    QSet<QString> m_looked;
    QHash<QString, QString> m_names;
};
