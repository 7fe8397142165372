// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ProgramTable.h"

/// The manual page of a program, in section 1.
namespace ManPage {

/// Returns the page in the man macros of roff. `version` is that of the whole package.
QString of(const ProgramTable& table, const QString& version);

} // namespace ManPage
