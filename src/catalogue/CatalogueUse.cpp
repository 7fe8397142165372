// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueUse.h"

#include <atomic>

namespace {

std::atomic<int> useCount{0};

} // namespace

CatalogueUse::CatalogueUse()
{
    ++useCount;
}

CatalogueUse::~CatalogueUse()
{
    --useCount;
}

int CatalogueUse::count()
{
    return useCount;
}
