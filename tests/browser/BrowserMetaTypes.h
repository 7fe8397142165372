// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/EUIItemType.h"
#include "browser/SListFilter.h"

#include <QMetaType>

// Types in the rows of test data. Qt allows one declaration of each in a program.
Q_DECLARE_METATYPE(EListOrder)
Q_DECLARE_METATYPE(EUIItemType)
Q_DECLARE_METATYPE(Qt::MouseButton)
