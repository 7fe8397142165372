// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <chrono>
#include <memory>

/// Tells all workers of one operation (a check, a preview run, an item download) to stop.
///
/// A value with shared state: copies are the same token. The initiator of the operation creates the
/// token and hands copies to the workers; a cancelled token stays cancelled, so no cancel is lost,
/// however early or late. All functions may be called from any thread.
class MVHOST_EXPORT CancelToken
{
public:
    /// Creates a token of its own, which is not cancelled.
    CancelToken();

    /// Cancels the operation and ends all waiting. Idempotent.
    void cancel();
    /// Returns whether cancel() has been called on this token or a copy.
    bool isCancelled() const;

    /// Waits until the token is cancelled, but at most for `duration`. Returns isCancelled().
    bool waitFor(std::chrono::milliseconds duration) const;

private:
    struct State;
    std::shared_ptr<State> m_state;
};
