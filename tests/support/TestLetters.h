// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Returns the letters of a text that none of the tests' fonts has. Qt draws boxes for them, which
/// makes measurements of the text meaningless.
QString lettersWithoutFont(const QString& text);

/// Fails the running test if a text has such letters, and says what to do about it.
void verifyHasFont(const QString& text);
