// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QComboBox>

/// A choice that screen readers announce with its accessible name and the chosen value. Qt's own
/// announces the value as its name where names come from labels.
class NamedComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit NamedComboBox(QWidget* parent);
};
