// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ReleasedTree.h"

#include <QMetaType>
#include <QString>

#include <functional>

/// Changes a signed tree so that its release does not fit any more.
using ReleaseChange = std::function<void(const ReleasedTree&)>;
Q_DECLARE_METATYPE(ReleaseChange)

/// Rows of changes, with the findings that lint and verify make of them.
namespace ReleaseFaults {

/// Returns the secret key that signs the trees.
QString key();
/// Makes the key. Returns an error; empty: success.
QString makeKey();
/// Builds and signs a tree. Returns an error; empty: success.
QString makeSigned(const ReleasedTree& tree, const QStringList& options = {});

/// Adds the columns "change" (ReleaseChange) and "expected" (QStringList): "CODE FILE" of every
/// finding, sorted.
void columns();
/// Adds rows with one fault each.
void rows();
/// Returns the name of the content of a listed file.
QString contentOf(const ReleasedTree& tree, const char* path);
/// Replaces a file, and no other that is a link to it.
void replace(const ReleasedTree& tree, const QString& name, const QByteArray& content);

/// Returns "CODE FILE" for every finding in the output of a command.
QStringList findings(const QByteArray& output);

} // namespace ReleaseFaults
