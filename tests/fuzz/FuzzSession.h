// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/TestMain.h"

#include <memory>

class FuzzTarget;
class QByteArray;

/// The one run of a target in this process, in a home of its own. A warning of Qt that the target
/// does not allow ends the process. Create it as a static object: the catalogue saves favourites
/// when the process exits.
class FuzzSession
{
public:
    /// Creates the target with this function.
    explicit FuzzSession(std::unique_ptr<FuzzTarget> (*makeTarget)());
    ~FuzzSession();
    Q_DISABLE_COPY_MOVE(FuzzSession)

    /// Feeds one input to the target.
    void feed(const QByteArray& input);

private:
    TestHome m_home;
    std::unique_ptr<FuzzTarget> m_target;
};
