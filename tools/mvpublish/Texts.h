#pragma once

#include <QString>

/// Which texts can be published.
namespace Texts {

/// Whether users can read all of it: no control characters, nothing that is no character.
bool isShowable(const QString& text);
/// Whether an XML document can hold it.
bool isXml(const QString& text);
/// Whether it can be the name of an attribute of ours.
bool isAttributeName(const QString& text);

} // namespace Texts
