// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "MvresScenario.h"

/// `mvres favourite`: adds a mark to those of earlier runs, or sets the first one.
class FavouriteScenario : public MvresScenario
{
public:
    enum class Favourites { None, Some };
    explicit FavouriteScenario(Favourites before)
        : m_before(before)
    {
    }

    QString prepare() override;

protected:
    QStringList command() const override;

private:
    Favourites m_before;
};
