// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ItemStates.h"
#include "model/ItemTransfers.h"

#include <memory>

/// What all models of the process share; exists as long as any of them. Destroying it cancels
/// downloads and updates and waits for their threads. Internal to the library; GUI thread only.
struct ModelEngine
{
    static std::shared_ptr<ModelEngine> shared();

    const std::shared_ptr<ItemStates> sharedStates = ItemStates::shared(); // by lists, too
    ItemStates& states = *sharedStates;
    ItemTransfers transfers{states};
};
