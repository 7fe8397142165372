#pragma once

#include "records/ECfgItemType.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// Properties of a kind of items that matter to publishing.
struct Kind
{
    ECfgItemType type;
    QString word;       ///< in manifests and on the command line
    QString group;      ///< its element in the catalogue files
    QString folder;     ///< its folder in both halves of a tree
    QString definition; ///< root element of a definition that is written for an item
    bool hasList;       ///< its folder holds a list of its definitions
};

namespace Kinds {

/// In the order of the catalogue files.
const QVector<Kind>& all();
const Kind& of(ECfgItemType type);
/// Null for a word that names no kind.
const Kind* byWord(const QString& word);
/// "filter, transition, ..." for messages.
QString words();

/// The types of themes, in the order in which catalogues list their groups.
const QStringList& themeTypes();
/// The last of them; a type that nobody knows counts as this one.
inline const QString otherThemes = QStringLiteral("others");

/// Returns whether items of the kind are shown with a thumbnail file.
bool needsThumbnail(ECfgItemType type);
/// Returns whether items of the kind are shown only with an animated preview.
bool needsAnimation(ECfgItemType type);
/// Returns whether the kind's list begins with the "none" entry.
bool hasNoneEntry(ECfgItemType type);

} // namespace Kinds
