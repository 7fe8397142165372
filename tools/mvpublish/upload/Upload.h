// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "upload/Rclone.h"
#include "upload/RemoteNames.h"
#include "upload/UploadPlace.h"
#include "upload/UploadRecord.h"

#include <QSet>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

class TreeRelease;

/// Brings the release of a tree into force at a remote, one step after the other: clients see the
/// release that was in force, or the new one, both with all their files.
class Upload
{
public:
    /// One step: files that are sent in any order, once all files of the step before are there.
    struct Step
    {
        QString title;
        QString cacheControl;
        QStringList files;    ///< to be sent
        qint64 bytes = 0;     ///< of these
        int presentCount = 0; ///< files of this step that are there already

        void add(const QString& name, qint64 sizeBytes, bool isPresent);
    };

    /// All arguments must outlive this object.
    Upload(Rclone& rclone, const TreeRelease& tree, const QString& remote);

    /// Reads what is at the remote and decides what to send. On false see errorText().
    bool prepare();
    /// Returns the steps before release.json, which is the last one.
    const QVector<Step>& steps() const { return m_steps; }
    /// Returns the remote as prepare() has found it.
    const UploadPlace& remote() const { return m_remote; }
    /// Returns whether prepare() has found the release in force already.
    bool isInForce() const;

    /// Is called before each step.
    using StepBegins = std::function<void(const Step& step)>;
    /// Sends all; `progress` takes the bytes of the step. On false see errorText(), unless it was
    /// cancelled, and outcome().
    bool run(const StepBegins& stepBegins, const Rclone::Progress& progress);

    enum class Outcome {
        Unchanged, ///< clients see what they saw before
        Overtaken, ///< another upload decides what clients see
        Unknown,   ///< it broke while release.json was sent
        Switched   ///< clients see the new release, whatever failed afterwards
    };
    Outcome outcome() const { return m_outcome; }

    QString errorText() const { return m_error; }

private:
    bool checkSerial();
    void addContents();
    bool addNamed();
    void addList();
    bool findChanged(QSet<QString>& changed);
    bool isThere(const QString& name, qint64 bytes) const;
    bool writeRecords();
    bool writeRecord(const UploadRecord& record);
    UploadRecord ownRecord() const;
    bool checkRemote();
    bool switchOver();
    bool fail(const QString& text);
    bool failed();

    Rclone& m_rclone;
    const TreeRelease& m_tree;
    UploadPlace m_remote;
    RemoteNames m_names;
    QVector<Step> m_steps;
    Outcome m_outcome = Outcome::Unchanged;
    QString m_error;
};
