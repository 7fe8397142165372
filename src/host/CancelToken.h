#pragma once

#include "host/MvHostExport.h"

#include <chrono>
#include <memory>

/// Tells everybody who works on one operation (a check, a preview run, an item download) that it
/// is to stop.
///
/// A value with shared state: copies are the same token. Whoever starts the operation creates the
/// token and hands copies to those who work on it; a token that is cancelled stays cancelled, so no
/// cancel is lost, whenever it comes. Every operation may be called from every thread.
class MVHOST_EXPORT CancelToken
{
public:
    CancelToken();

    /// Cancels the operation and ends all waiting. Calling it again does nothing.
    void cancel();
    bool isCancelled() const;

    /// Waits until the token is cancelled, but at most for `duration`. Returns isCancelled().
    bool waitFor(std::chrono::milliseconds duration) const;

private:
    struct State;
    std::shared_ptr<State> m_state;
};
