// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class Arguments;

/// Sets up mvres as a host: settings, product parameters, download root, and the loaded catalogue,
/// which may be empty.
class Session
{
public:
    /// Applies the arguments and loads the catalogue, unless the command is a check. On false see
    /// errorText().
    bool open(const Arguments& arguments);
    QString errorText() const { return m_error; }

    /// Returns the download root in use.
    QString root() const { return m_root; }
    /// Returns a readable reason why the catalogue has no items; empty if it has, or was not
    /// loaded.
    QString emptyText() const { return m_emptyText; }

private:
    bool applySettings(const Arguments& arguments);
    bool checkFolders(const Arguments& arguments);
    void loadCatalogue();
    bool fail(const QString& text);

    QString m_root;
    QString m_emptyText;
    QString m_error;
};
