// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>

/// Splits an input that represents several files at lines of "=====".
class Parts
{
public:
    explicit Parts(const QByteArray& input);

    int count() const { return m_parts.size(); }
    /// Returns the part at `index`; empty beyond the last one.
    QByteArray at(int index) const { return m_parts.value(index); }

private:
    QList<QByteArray> m_parts;
};
