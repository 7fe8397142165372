// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// Waits for the signals that ask the process to end: SIGINT and SIGTERM, and ^C, ^Break and the
/// end of a console of Windows.
namespace EndSignals {

/// Keeps the signals back for wait(). Call it before the process has a second thread.
void keepBack();
/// Waits for one of them.
void wait();

} // namespace EndSignals
