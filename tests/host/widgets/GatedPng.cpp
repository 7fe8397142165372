// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/GatedPng.h"

#include "support/ThisProcess.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageIOHandler>
#include <QImageReader>
#include <QSet>
#include <QSize>
#include <QThread>
#include <QVariant>

#include <condition_variable>
#include <memory>
#include <mutex>

namespace {

struct Gate
{
    std::mutex mutex; // guards the others
    std::condition_variable opened;
    bool isClosed = false;
    QStringList begun;
    int ended = 0;
    QSet<const QThread*> threads;
};

Gate& gate()
{
    static Gate theGate;
    return theGate;
}

/// True while the decoder behind the gate is wanted.
thread_local bool isInside = false;

/// Returns the base name of a file that may have been opened by its descriptor.
QString nameOf(const QIODevice* device)
{
    const auto* const file = qobject_cast<const QFile*>(device);
    if (!file)
        return {};
    return QFileInfo(ThisProcess::pathOf(file->handle())).baseName();
}

QImage decodeInside(const QByteArray& content)
{
    QBuffer buffer;
    buffer.setData(content);
    isInside = true;
    QImageReader reader(&buffer, "png");
    QImage image = reader.read();
    isInside = false;
    return image;
}

QSize sizeInside(QIODevice& device)
{
    isInside = true;
    QImageReader reader(&device, "png");
    const QSize size = reader.size();
    isInside = false;
    return size;
}

class GatedPngHandler : public QImageIOHandler
{
public:
    bool canRead() const override { return true; }

    bool read(QImage* image) override
    {
        const QString name = nameOf(device());
        const QByteArray content = device()->readAll();
        {
            std::unique_lock<std::mutex> lock(gate().mutex);
            gate().begun.append(name);
            gate().threads.insert(QThread::currentThread());
            gate().opened.wait(lock, [] { return !gate().isClosed; });
        }
        *image = decodeInside(content);
        const std::lock_guard<std::mutex> lock(gate().mutex);
        ++gate().ended;
        return !image->isNull();
    }

    bool supportsOption(ImageOption option) const override { return option == Size; }
    QVariant option(ImageOption option) const override
    {
        return option == Size ? sizeInside(*device()) : QVariant();
    }
};

} // namespace

void GatedPng::close()
{
    const std::lock_guard<std::mutex> lock(gate().mutex);
    gate().isClosed = true;
}

void GatedPng::open()
{
    const std::lock_guard<std::mutex> lock(gate().mutex);
    gate().isClosed = false;
    gate().opened.notify_all();
}

void GatedPng::reset()
{
    const std::lock_guard<std::mutex> lock(gate().mutex);
    gate().begun.clear();
    gate().threads.clear();
    gate().ended = 0;
}

QStringList GatedPng::begun()
{
    const std::lock_guard<std::mutex> lock(gate().mutex);
    return gate().begun;
}

int GatedPng::ended()
{
    const std::lock_guard<std::mutex> lock(gate().mutex);
    return gate().ended;
}

bool GatedPng::wasUsedBy(const QThread* thread)
{
    const std::lock_guard<std::mutex> lock(gate().mutex);
    return gate().threads.contains(thread);
}

QImageIOPlugin::Capabilities GatedPngPlugin::capabilities(QIODevice* /*device*/,
                                                          const QByteArray& format) const
{
    return format == "png" && !isInside ? CanRead : Capabilities();
}

QImageIOHandler* GatedPngPlugin::create(QIODevice* device, const QByteArray& format) const
{
    auto handler = std::make_unique<GatedPngHandler>();
    handler->setDevice(device);
    handler->setFormat(format);
    return handler.release();
}
