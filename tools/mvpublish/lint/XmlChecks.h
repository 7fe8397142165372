#pragma once

class LintContext;
class QString;

/// Helper of the checks that read XML files.
namespace XmlChecks {

/// Reports an XML file that the library cannot read; true if it can. `file` exists.
bool isReadable(LintContext& context, const QString& file, const QString& item);

} // namespace XmlChecks
