#pragma once

#include <QByteArray>
#include <QList>

/// The parts of an input that stands for several files: a line of "=====" parts them.
class Parts
{
public:
    explicit Parts(const QByteArray& input);

    int count() const { return m_parts.size(); }
    /// Empty behind the last one.
    QByteArray at(int index) const { return m_parts.value(index); }

private:
    QList<QByteArray> m_parts;
};
