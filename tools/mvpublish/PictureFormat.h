#pragma once

#include <QString>

/// The formats of pictures that clients decode: PNG, JPEG and GIF, told by their content.
namespace PictureFormat {

/// Returns why a file cannot be published as a picture, to follow its name: clients do not decode
/// it, or its name has the suffix of another format. Empty if it can.
QString fault(const QString& file);

/// Whether a file of that name has to be such a picture.
bool isPictureName(const QString& name);

/// Whether the content begins as that of a GIF.
bool isGif(const QString& file);

} // namespace PictureFormat
