// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "GifFile.h"

namespace {

constexpr int colourBits = 2; // a table of four colours, of which only the first is used
constexpr int clearCode = 1 << colourBits;
constexpr int endCode = clearCode + 1;
constexpr int largestBlock = 255;

QByteArray word(int value)
{
    return QByteArray(1, static_cast<char>(value & 0xff))
        + QByteArray(1, static_cast<char>(value >> 8));
}

QByteArray colourTable(const QColor& colour)
{
    QByteArray table(3 << colourBits, '\0');
    table[0] = static_cast<char>(colour.red());
    table[1] = static_cast<char>(colour.green());
    table[2] = static_cast<char>(colour.blue());
    return table;
}

/// Writes fixed-width codes, clearing the table before a code would need another bit.
class CodeStream
{
public:
    void add(int code)
    {
        m_bits |= code << m_count;
        m_count += colourBits + 1;
        while (m_count >= 8)
            takeByte();
    }
    QByteArray finish()
    {
        if (m_count > 0)
            takeByte();
        return m_bytes;
    }

private:
    void takeByte()
    {
        m_bytes.append(static_cast<char>(m_bits & 0xff));
        m_bits >>= 8;
        m_count -= 8;
    }

    QByteArray m_bytes;
    int m_bits = 0;
    int m_count = 0;
};

QByteArray pixels(int count)
{
    CodeStream codes;
    for (int i = 0; i < count; ++i) {
        if (i % 2 == 0)
            codes.add(clearCode);
        codes.add(0);
    }
    codes.add(endCode);
    const QByteArray bytes = codes.finish();

    QByteArray blocks(1, static_cast<char>(colourBits));
    for (int at = 0; at < bytes.size(); at += largestBlock) {
        const QByteArray block = bytes.mid(at, largestBlock);
        blocks += QByteArray(1, static_cast<char>(block.size())) + block;
    }
    return blocks + QByteArray(1, '\0');
}

} // namespace

QByteArray GifFile::plain(const QSize& size, const QVector<QColor>& colours, int delayMs)
{
    const QByteArray area = word(size.width()) + word(size.height());
    QByteArray file = "GIF89a" + area + QByteArray(3, '\0');
    file += QByteArray::fromHex("21ff0b") + "NETSCAPE2.0" + QByteArray::fromHex("0301000000");
    for (const QColor& colour : colours) {
        file += QByteArray::fromHex("21f90404") + word(delayMs / 10) + QByteArray(2, '\0');
        file += ',' + word(0) + word(0) + area;
        file += static_cast<char>(0x80 | (colourBits - 1));
        file += colourTable(colour) + pixels(size.width() * size.height());
    }
    return file + ';';
}
