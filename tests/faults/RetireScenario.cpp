// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "RetireScenario.h"

#include "tools/Mvpublish.h"
#include "tools/SmallSource.h"

QString RetireScenario::prepare()
{
    const SmallSource written(source());
    return {};
}

QString RetireScenario::program() const
{
    return Mvpublish::program();
}

QStringList RetireScenario::arguments() const
{
    return {QStringLiteral("retire"), source(), QStringLiteral("paper")};
}
