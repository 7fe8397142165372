// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/PictureLoader.h"

#include "host/widgets/PictureDecoder.h"
#include "host/widgets/PictureRequest.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QPixmap>
#include <QThread>

#include <atomic>

namespace {

constexpr int maxThreads = 3;

/// Destroyed by the application object, whose event loop its threads need.
std::unique_ptr<PictureLoader>& theLoader()
{
    static std::unique_ptr<PictureLoader> loader;
    return loader;
}

void destroyLoader()
{
    theLoader().reset();
}

} // namespace

PictureLoader* PictureLoader::instance()
{
    std::unique_ptr<PictureLoader>& loader = theLoader();
    if (!loader) {
        loader.reset(new PictureLoader); // the constructor is private
        qAddPostRoutine(&destroyLoader);
    }
    return loader.get();
}

bool PictureLoader::isIdle()
{
    return !theLoader() || theLoader()->m_undelivered == 0;
}

PictureLoader::PictureLoader()
{
    // Leaves one processor to the GUI thread.
    m_pool.setMaxThreadCount(qBound(1, QThread::idealThreadCount() - 1, maxThreads));
}

PictureLoader::~PictureLoader()
{
    m_pool.clear();
    m_pool.waitForDone();
}

std::shared_ptr<PictureRequest> PictureLoader::request(const QString& key, const QString& path,
                                                       const QSize& pixels, Sharing sharing)
{
    std::shared_ptr<PictureRequest> known = m_requests.value(key).lock();
    if (known && (sharing == Sharing::Any || !known->hasBegun()))
        return known;
    auto added = std::make_shared<PictureRequest>();
    m_requests.insert(key, added);
    ++m_undelivered;
    const auto decode = [this, key, path, pixels, state = added->m_pState,
                         wanted = std::weak_ptr<PictureRequest>(added)] {
        QImage image;
        auto expected = PictureRequest::State::Waiting;
        if (state->compare_exchange_strong(expected, PictureRequest::State::Begun))
            image = PictureDecoder::read(path, pixels);
        QMetaObject::invokeMethod(
            this, [this, key, wanted, image] { finish(key, wanted, image); }, Qt::QueuedConnection);
    };
    m_pool.start(decode, priority());
    return added;
}

/// Returns a number that grows with each pass of the event loop.
int PictureLoader::priority()
{
    if (!m_isPassOpen) {
        m_isPassOpen = true;
        ++m_pass;
        QMetaObject::invokeMethod(
            this, [this] { m_isPassOpen = false; }, Qt::QueuedConnection);
    }
    return m_pass;
}

void PictureLoader::finish(const QString& key, const std::weak_ptr<PictureRequest>& wanted,
                           const QImage& image)
{
    --m_undelivered;
    const std::shared_ptr<PictureRequest> request = wanted.lock();
    const auto known = m_requests.find(key);
    // A later request may have replaced it.
    if (known != m_requests.end() && known->lock() == request)
        m_requests.erase(known);
    if (request)
        emit request->decoded(QPixmap::fromImage(image));
}
