// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Rules for published texts.
namespace Texts {

/// Returns whether users can read all of it: no control characters, noncharacters or replacement
/// characters.
bool isShowable(const QString& text);
/// Returns why a text cannot be an item's name, phrased to follow that name; empty if it can: users
/// can read all of it, and it has at most 200 characters.
QString nameFault(const QString& name);
/// Returns whether an XML document can contain it.
bool isXml(const QString& text);
/// Returns whether it can name an attribute in our documents.
bool isAttributeName(const QString& text);

} // namespace Texts
