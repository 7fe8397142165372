#pragma once

class QLabel;

/// Whether the label has room for its whole text, as its font draws it.
bool holdsItsText(const QLabel& label);
