#pragma once

#include <QString>

/// GUIDs as catalogues hold them: "{0154B5E5-D1A0-4BBB-B9A9-6BF233A7DBDA}".
namespace Guids {

/// Stands for "no filter" and "no background"; no item of its own.
extern const QString none;

/// A GUID in braces, in whatever case, and nothing else; not all zeros.
bool isGuid(const QString& text);
/// The same, in capitals.
bool isProper(const QString& text);
QString fresh();

} // namespace Guids
