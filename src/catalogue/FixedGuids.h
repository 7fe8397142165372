// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

/// Returns the 126 GUIDs of the items in every installation, in their fixed order: the own config
/// file of such an item is part of the application and is never fetched.
QList<QString> fixedGuids();
