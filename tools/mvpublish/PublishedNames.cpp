// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "PublishedNames.h"

void PublishedNames::reserve(const QString& name, const QString& owner)
{
    m_claims.insert(name.toLower(), {name, owner, QString()});
}

void PublishedNames::claim(const QString& name, const QString& owner, const QString& source)
{
    const auto known = m_claims.constFind(name.toLower());
    if (known == m_claims.constEnd())
        m_claims.insert(name.toLower(), {name, owner, source});
    else if (source.isEmpty() || known->source != source || known->name != name)
        m_faults.append(QStringLiteral("%1: publishes %2, as %3 does; give it another name")
                            .arg(owner, name, known->owner));
}

QStringList PublishedNames::faults() const
{
    QStringList faults = m_faults;
    for (auto it = m_claims.cbegin(); it != m_claims.cend(); ++it) {
        for (int at = it.key().indexOf(QLatin1Char('/')); at > 0;
             at = it.key().indexOf(QLatin1Char('/'), at + 1)) {
            const auto file = m_claims.constFind(it.key().left(at));
            if (file != m_claims.constEnd())
                faults.append(
                    QStringLiteral("%1: publishes the file %2, but %3 publishes %4 in a folder of "
                                   "that name; give it another name")
                        .arg(file->owner, file->name, it->owner, it->name));
        }
    }
    return faults;
}
