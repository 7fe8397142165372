// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "VerifyCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "host/CancelToken.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "InterruptFlag.h"
#include "lint/Lint.h"
#include "ProgressLine.h"
#include "release/LocalTree.h"
#include "release/ReleaseCheck.h"
#include "release/RemoteTree.h"
#include "release/TreeBytes.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <memory>

namespace {

/// Reads the keys, each a file or the line of one. Returns false with the reason in `error`.
bool readKeys(const QStringList& texts, QVector<ReleaseKey>& keys, QString* error)
{
    constexpr qint64 maxBytes = 4 * 1024;
    for (const QString& text : texts) {
        QByteArray content = text.toUtf8();
        if (QFileInfo::exists(text) && !TreeBytes::read(text, maxBytes, content, error))
            return false;
        ReleaseKey key;
        QString reason;
        if (!ReleaseKey::parse(QString::fromUtf8(content), key, reason)) {
            *error = QStringLiteral("--key %1: %2").arg(text, reason);
            return false;
        }
        keys.append(key);
    }
    return true;
}

std::unique_ptr<PublishedTree> openTree(const QString& place, const CancelToken& cancel)
{
    if (!Arguments::isAddress(place))
        return std::make_unique<LocalTree>(place);
    setLogSink([](const QByteArray&, int, const QByteArray&) {});
    hostSettings().maxDownloadBytes = std::numeric_limits<qint64>::max();
    auto tree = std::make_unique<RemoteTree>(place, cancel);
    tree->setWaiting([token = cancel]() mutable {
        if (InterruptFlag::isSet())
            token.cancel();
    });
    return tree;
}

QString description(const ReleaseCheck& check, bool hasKeys)
{
    qint64 bytes = 0;
    for (const ReleaseList::Entry& entry : check.list().entries())
        bytes += entry.sizeBytes;
    const QString signature = check.signer().isEmpty()
        ? (hasKeys ? QStringLiteral("not signed by a given key")
                   : QStringLiteral("signature not verified, without --key"))
        : QStringLiteral("signed by key ") + check.signer();
    return QStringLiteral("release %1, published %2, %3, %4, %5")
        .arg(QString::number(check.release().m_serial),
             check.release().m_published.toString(Qt::ISODate),
             Console::counted(check.list().entries().size(), QStringLiteral("file")),
             Console::size(bytes), signature);
}

/// Checks documents and files.
void examine(ReleaseCheck& check)
{
    if (!check.readDocuments())
        return;
    ProgressLine line(stderr, ProgressLine::Elsewhere::Nothing);
    const auto show = [&](qint64 bytes) {
        const int percent = ProgressLine::percentOf(bytes, check.filesBytes());
        line.show(percent, QStringLiteral("verifying: %1%").arg(percent));
    };
    show(0);
    check.checkFiles(show);
    line.clear();
}

} // namespace

int VerifyCommand::run(const Arguments& arguments)
{
    const QString place = arguments.operands.constFirst();
    if (!Arguments::isAddress(place) && !QFileInfo(place).isDir())
        return Console::fail(ExitStatus::failure, QStringLiteral("no such folder: %1").arg(place));
    QVector<ReleaseKey> keys;
    QString error;
    if (!readKeys(arguments.keys, keys, &error))
        return Console::fail(ExitStatus::failure, error);
    CancelToken cancel;
    const std::unique_ptr<PublishedTree> tree = openTree(place, cancel);
    // The first interrupt ends the command in an orderly way, which removes what was fetched.
    if (Arguments::isAddress(place))
        InterruptFlag::install();
    ReleaseCheck check(*tree, QDateTime::currentDateTimeUtc());
    check.setKeys(keys);
    examine(check);
    if (!tree->failureText().isEmpty())
        return Console::fail(ExitStatus::failure, tree->failureText());
    const Findings findings = Lint::sorted(check.findings());
    for (const Finding& finding : findings) {
        Console::print(Lint::text(finding));
        Console::print(QStringLiteral("    ") + finding.advice);
    }
    if (check.release().m_serial > 0)
        Console::print(description(check, !keys.isEmpty()));
    Console::print(Lint::summary(findings));
    return Lint::count(findings, Severity::Error) == 0 ? ExitStatus::success : ExitStatus::findings;
}
