// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

class LintContext;
class QString;

/// Helper for the checks that read XML files.
namespace XmlChecks {

/// Reports an XML file that the library cannot read; returns whether it can. `file` exists.
bool isReadable(LintContext& context, const QString& file, const QString& item);

} // namespace XmlChecks
