#pragma once

#include <QString>

/// Letters of a text that no font of the tests has. Qt draws a box in their place, so that whatever
/// is measured of such a text says nothing.
QString lettersWithoutFont(const QString& text);

/// Fails the running test when a text has such letters, and says what to do about it.
void verifyHasFont(const QString& text);
