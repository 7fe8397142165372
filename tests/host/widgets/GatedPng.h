// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QImageIOPlugin>
#include <QStringList>

class QThread;

/// Qt's decoder of PNG files behind a gate, at which a decoding waits after it has read its file.
/// It is a plugin of Qt, and so replaces the one that every program has. Any thread.
namespace GatedPng {

void close();
void open();

/// Forgets what has been decoded. No decoding may be running.
void reset();
/// Returns the base names of the files whose decoding has begun, in that order.
QStringList begun();
/// Returns how many decodings have ended.
int ended();
/// Returns whether a thread has decoded a picture.
bool wasUsedBy(const QThread* thread);

} // namespace GatedPng

/// Creates the decoders, see GatedPng.
class GatedPngPlugin : public QImageIOPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "gatedpng.json")

public:
    Capabilities capabilities(QIODevice* device, const QByteArray& format) const override;
    QImageIOHandler* create(QIODevice* device, const QByteArray& format) const override;
};
