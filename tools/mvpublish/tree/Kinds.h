// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

struct SKindInfo;

/// The names of kinds and theme types in manifests and on command lines.
namespace Kinds {

/// Returns the kind with that word, or null.
const SKindInfo* byWord(const QString& word);
/// Returns "filter, transition, ..." for messages.
QString words();

/// Returns the types of themes in the order of the catalogues' groups.
QStringList themeTypes();
bool isThemeType(const QString& type);
/// Returns the last of them; unknown types count as this one.
QString otherThemes();

} // namespace Kinds
