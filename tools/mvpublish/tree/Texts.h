#pragma once

#include <QString>

/// Rules for published texts.
namespace Texts {

/// Returns whether users can read all of it: no control characters, nothing that is no character or
/// stands for one that could not be decoded.
bool isShowable(const QString& text);
/// Returns why a text cannot be an item's name, to follow that name; empty if it can: users
/// can read all of it, and it has at most 200 characters.
QString nameFault(const QString& name);
/// Returns whether an XML document can hold it.
bool isXml(const QString& text);
/// Returns whether it can be the name of an attribute of ours.
bool isAttributeName(const QString& text);

} // namespace Texts
