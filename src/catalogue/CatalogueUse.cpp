// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueUse.h"

#include <atomic>

namespace {

std::atomic<int> uses{0};

} // namespace

CatalogueUse::CatalogueUse()
{
    ++uses;
}

CatalogueUse::~CatalogueUse()
{
    --uses;
}

int CatalogueUse::count()
{
    return uses;
}
