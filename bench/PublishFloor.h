// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The least that publishing a tree with its release takes: each of its files is read, hashed,
/// written, and linked under its digest, each picture is decoded once, and the tree of the run
/// before is removed.
class PublishFloor
{
public:
    /// Publishes the files of `tree` into `folder`.
    PublishFloor(QString tree, QString folder);

    /// Returns an error; empty: success.
    QString run();

private:
    bool publish(const QString& name);

    QString m_tree;
    QString m_folder;
};
