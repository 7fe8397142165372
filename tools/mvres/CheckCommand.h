// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/CatalogueUpdate.h"
#include "PreviewsDisplay.h"

#include <QJsonObject>

class Arguments;

/// Implements "mvres check [--wait]".
///
/// Checks the server's catalogue and fetches the missing parts of it and of the previews. The exit
/// status tells how the catalogue's check ended and, if that succeeded, whether previews could not
/// be fetched.
class CheckCommand
{
public:
    static int run(const Arguments& arguments);

private:
    explicit CheckCommand(bool json);

    void check();
    void say(const QString& line);
    void announce(CatalogueUpdate::Phase phase);
    void showProgress(const SUpdateProgress& progress);
    int status() const;
    QString errorText() const;
    QString catalogueReason() const;
    int report();
    void print();
    QJsonObject toJson() const;

    bool m_json;
    CatalogueUpdate m_update;
    PreviewsDisplay m_previews;
};
