#pragma once

#include <QString>
#include <QStringList>

struct SKindInfo;

/// The names that manifests and command lines give to kinds and theme types.
namespace Kinds {

/// Returns the kind of that word, or null for a word that names none.
const SKindInfo* byWord(const QString& word);
/// Returns "filter, transition, ..." for messages.
QString words();

/// Returns the types of themes, in the order in which catalogues list their groups.
QStringList themeTypes();
bool isThemeType(const QString& type);
/// Returns the last of them; a type that nobody knows counts as this one.
QString otherThemes();

} // namespace Kinds
