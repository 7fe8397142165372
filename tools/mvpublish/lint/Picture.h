#pragma once

#include <QString>

/// Looks at preview pictures the way the browser will show them.
namespace Picture {

struct Verdict
{
    QString broken;  ///< why it cannot be decoded; empty if it can
    QString oddSize; ///< what is odd about its size; empty if nothing is
};

/// A still picture, decoded whole.
Verdict thumbnail(const QString& file);
/// A GIF, every frame of it decoded.
Verdict animation(const QString& file);

} // namespace Picture
