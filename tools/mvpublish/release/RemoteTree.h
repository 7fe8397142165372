// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CancelToken.h"
#include "host/STransferOutcome.h"
#include "release/PublishedTree.h"

#include <QTemporaryDir>

#include <functional>

class TransferPool;

/// The tree at an address, fetched as the library fetches it. What is fetched is kept only until it
/// has been compared.
class RemoteTree : public PublishedTree
{
public:
    /// `root` is the server root, an address of http or https. A cancelled token ends the running
    /// operation as a failure.
    RemoteTree(const QString& root, const CancelToken& cancel);

    /// Sets a function called at least ten times a second while something is being fetched.
    void setWaiting(std::function<void()> waiting) { m_waiting = std::move(waiting); }

    Document read(const QString& name, qint64 maxBytes) override;
    QVector<Deviation> compare(const QVector<Expected>& files, const Progress& progress) override;

private:
    struct Comparison;

    QString addressOf(const QString& name) const;
    void start(Comparison& comparison, const Expected& expected);
    void end(Comparison& comparison, const Expected& expected, const QString& file,
             const STransferOutcome& outcome);
    bool isFailure(const STransferOutcome& outcome);
    void step(TransferPool& pool) const;
    void wait(TransferPool& pool) const;

    QString m_root;
    CancelToken m_cancel;
    std::function<void()> m_waiting;
    QTemporaryDir m_folder;
};
