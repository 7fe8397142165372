#pragma once

#include <QString>

/// Which texts can be published.
namespace Texts {

/// Whether users can read all of it: no control characters, nothing that is no character or stands
/// for one that could not be decoded.
bool isShowable(const QString& text);
/// Why a text cannot be the name of an item, to follow what it is called; empty if it can: users
/// can read all of it, and it has at most 200 characters.
QString nameFault(const QString& name);
/// Whether an XML document can hold it.
bool isXml(const QString& text);
/// Whether it can be the name of an attribute of ours.
bool isAttributeName(const QString& text);

} // namespace Texts
