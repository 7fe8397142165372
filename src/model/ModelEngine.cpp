// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "model/ModelEngine.h"

std::shared_ptr<ModelEngine> ModelEngine::shared()
{
    static std::weak_ptr<ModelEngine> existing;
    std::shared_ptr<ModelEngine> engine = existing.lock();
    if (!engine) {
        engine = std::make_shared<ModelEngine>();
        existing = engine;
    }
    return engine;
}
