// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/TransferPool.h"

#include "host/AddressEncoder.h"
#include "host/FileTransfer.h"
#include "host/HostSettings.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <deque>
#include <utility>
#include <vector>

using std::chrono::milliseconds;

namespace {

CURLM* createConnections(int maxTransfers)
{
    static const CURLcode once = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(once)
    CURLM* const connections = curl_multi_init();
    curl_multi_setopt(connections, CURLMOPT_MAX_HOST_CONNECTIONS, long{maxTransfers});
    // By default, libcurl keeps four for each transfer that is running now, and closes the rest.
    curl_multi_setopt(connections, CURLMOPT_MAXCONNECTS, 4L * maxTransfers);
    return connections;
}

} // namespace

class TransferPool::Private
{
public:
    struct FreeMulti
    {
        void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
    };

    Private(int atOnce, CancelToken token)
        : maxTransfers(
            static_cast<std::size_t>(std::clamp(atOnce, 1, HostSettings::maxTransfersSideBySide)))
        , cancelToken(std::move(token))
        , connections(createConnections(static_cast<int>(maxTransfers)))
    {
    }

    void begin(Job job);
    bool work();
    void wait(milliseconds longest) const;

    const std::size_t maxTransfers;
    const CancelToken cancelToken;
    std::atomic<bool> isCancelled{false};          // by cancel(), until endCancelled()
    std::unique_ptr<CURLM, FreeMulti> connections; // outlives the transfers
    std::vector<std::unique_ptr<FileTransfer>> running;
    std::deque<Job> waiting;

private:
    FileTransfer& add(Job job);
    bool sweepBeside(const QString& file);
    void endCancelled();
    void confirmNew();
    void takeMessages();
    void tickAll();
    std::vector<std::unique_ptr<FileTransfer>> takeEnded();

    AddressEncoder m_addresses;
    QHash<QString, bool> m_sweptFolders; // whether they had folders or links when swept
};

void TransferPool::Private::begin(Job job)
{
    const auto check =
        sweepBeside(job.file) ? PartFile::FolderCheck::AtOnce : PartFile::FolderCheck::AtCommit;
    const FileTransfer::Addresses addresses = {
        m_addresses.encoded(job.url),
        job.contentUrl.isEmpty() ? QByteArray() : m_addresses.encoded(job.contentUrl)};
    add(std::move(job)).begin(addresses, check);
}

FileTransfer& TransferPool::Private::add(Job job)
{
    const auto version =
        maxTransfers > 1 ? HttpTransfer::Version::Http2OverTls : HttpTransfer::Version::Http11;
    running.push_back(std::make_unique<FileTransfer>(connections.get(), version, std::move(job)));
    return *running.back();
}

/// Removes the remains of a kill, once per folder. Returns whether the folder then had folders or
/// links in it.
bool TransferPool::Private::sweepBeside(const QString& file)
{
    const QString folder = file.left(file.lastIndexOf(QLatin1Char('/')) + 1);
    const auto swept = m_sweptFolders.constFind(folder);
    if (swept != m_sweptFolders.cend())
        return swept.value();
    return *m_sweptFolders.insert(folder, PartFile::removeLeftovers(QFileInfo(file).path()));
}

/// Returns whether a transfer has ended and been reported.
bool TransferPool::Private::work()
{
    endCancelled(); // first, so that no further request is sent
    confirmNew();
    int unfinished = 0;
    curl_multi_perform(connections.get(), &unfinished);
    takeMessages();
    tickAll();
    const std::vector<std::unique_ptr<FileTransfer>> ended = takeEnded();
    for (const auto& transfer : ended)
        transfer->report();
    while (running.size() < maxTransfers && !waiting.empty()) {
        Job job = std::move(waiting.front());
        waiting.pop_front();
        begin(std::move(job));
    }
    return !ended.empty();
}

/// Ends what has been started so far. What a callback starts afterwards is not affected, unless
/// the token is cancelled.
void TransferPool::Private::endCancelled()
{
    if (!isCancelled.exchange(false) && !cancelToken.isCancelled())
        return;
    for (Job& job : std::exchange(waiting, {}))
        add(std::move(job));
    for (const auto& transfer : running)
        transfer->cancel();
}

void TransferPool::Private::confirmNew()
{
    // Not by iterators: a progress callback may start further transfers.
    for (std::size_t i = 0; i < running.size(); ++i)
        running[i]->confirm();
}

void TransferPool::Private::takeMessages()
{
    int left = 0;
    while (const CURLMsg* message = curl_multi_info_read(connections.get(), &left)) {
        if (message->msg != CURLMSG_DONE)
            continue;
        // The message is gone as soon as its request is removed.
        const CURLcode code = message->data.result;
        char* owner = nullptr;
        curl_easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &owner);
        reinterpret_cast<FileTransfer*>(owner)->requestEnded(code);
    }
}

void TransferPool::Private::tickAll()
{
    // Not by iterators: a progress callback may start further transfers.
    for (std::size_t i = 0; i < running.size(); ++i)
        running[i]->tick(static_cast<int>(running.size()));
}

std::vector<std::unique_ptr<FileTransfer>> TransferPool::Private::takeEnded()
{
    const auto goesOn = [](const auto& transfer) { return !transfer->hasEnded(); };
    // Most steps end no transfer, and a partition takes memory.
    if (std::all_of(running.cbegin(), running.cend(), goesOn))
        return {};
    const auto firstEnded = std::stable_partition(running.begin(), running.end(), goesOn);
    std::vector<std::unique_ptr<FileTransfer>> ended(std::make_move_iterator(firstEnded),
                                                     std::make_move_iterator(running.end()));
    running.erase(firstEnded, running.end());
    return ended;
}

void TransferPool::Private::wait(milliseconds longest) const
{
    milliseconds time = std::clamp(longest, milliseconds(0), maxStep);
    for (const auto& transfer : running)
        time = transfer->pauseLeft(time);
    curl_multi_poll(connections.get(), nullptr, 0, static_cast<int>(time.count()), nullptr);
}

TransferPool::TransferPool(int maxTransfers, CancelToken cancel)
    : d(std::make_unique<Private>(maxTransfers, std::move(cancel)))
{
}

TransferPool::~TransferPool() = default;

void TransferPool::start(Job job)
{
    if (!isBusy())
        d->isCancelled = false;
    if (hasRoom())
        d->begin(std::move(job));
    else
        d->waiting.push_back(std::move(job));
}

bool TransferPool::hasRoom() const
{
    return d->running.size() < d->maxTransfers;
}

bool TransferPool::isBusy() const
{
    return !d->running.empty() || !d->waiting.empty();
}

bool TransferPool::isFetching(const QString& file) const
{
    return std::any_of(d->running.cbegin(), d->running.cend(),
                       [&](const auto& transfer) { return transfer->file() == file; });
}

void TransferPool::step(milliseconds longest)
{
    if (isBusy() && !d->work())
        d->wait(longest);
}

void TransferPool::cancel()
{
    d->isCancelled = true;
    curl_multi_wakeup(d->connections.get());
}
