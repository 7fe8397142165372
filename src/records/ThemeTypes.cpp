// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "records/ThemeTypes.h"

#include <algorithm>

namespace {

template <class Predicate>
const ThemeTypes::Type& firstOrOthers(const Predicate& predicate)
{
    const ThemeTypes::Types& types = ThemeTypes::all();
    const auto* const found = std::find_if(types.begin(), types.end(), predicate);
    return found == types.end() ? ThemeTypes::others() : *found;
}

} // namespace

const ThemeTypes::Types& ThemeTypes::all()
{
    static const Types types{{{QLatin1String("festivals"), 2},
                              {QLatin1String("travel"), 3},
                              {QLatin1String("banquets"), 4},
                              {QLatin1String("others"), 0}}};
    return types;
}

int ThemeTypes::code(const QString& name)
{
    return firstOrOthers([&name](const Type& type) { return type.name == name; }).code;
}

QString ThemeTypes::name(int code)
{
    return firstOrOthers([code](const Type& type) { return type.code == code; }).name;
}
