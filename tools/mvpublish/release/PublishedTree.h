// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <functional>

/// A server's tree as its clients see it: in a folder, or at an address. One thread.
class PublishedTree
{
public:
    /// A small file.
    struct Document
    {
        enum class State { Present, Missing, Unusable };

        State state = State::Missing;
        QByteArray bytes;
        QString reason; ///< why it is unusable, phrased to follow its name

        bool isPresent() const { return state == State::Present; }
    };
    /// What a file should be.
    struct Expected
    {
        QString name; ///< relative to the tree
        QByteArray digest;
        qint64 sizeBytes = 0;
    };
    /// A file that is not as expected.
    struct Deviation
    {
        QString name;
        bool isMissing = false;
        QString reason; ///< phrased to follow the name
    };
    /// Takes the number of bytes compared so far.
    using Progress = std::function<void(qint64 bytes)>;

    PublishedTree() = default;
    virtual ~PublishedTree() = default;
    Q_DISABLE_COPY_MOVE(PublishedTree)

    /// Reads a file of at most `maxBytes`.
    virtual Document read(const QString& name, qint64 maxBytes) = 0;
    /// Compares files with what they should be, whole. `progress` may be empty.
    virtual QVector<Deviation> compare(const QVector<Expected>& files,
                                       const Progress& progress) = 0;

    /// Returns why the tree as such could not be read, which makes all results worthless; empty if
    /// it could.
    const QString& failureText() const { return m_failure; }

protected:
    static QString otherSize(qint64 found, qint64 expected);
    static QString otherContent();

    QString m_failure;
};
