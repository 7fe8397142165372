// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/CatalogueUpdate.h"
#include "model/MvModelExport.h"

#include <QObject>
#include <QString>
#include <QTimer>

/// Opens the catalogue and keeps it current: checks it, loads it again when new content has
/// arrived, and saves favourites. With ResourceModel it is all that a program without widgets
/// needs, in C++ or QML, and tells everything by signals.
///
///     ResourceCatalogue catalogue;
///     catalogue.open(downloadFolder);
///     catalogue.check();
///
/// A host with a list of widgets reloads the catalogue itself (see CatalogueUpdate) and has no use
/// for this class. Create it after QCoreApplication and HostSettings, on the GUI thread, which
/// needs an event loop. Destroying it lets a running check go on, unheard, until the application
/// ends.
class MVMODEL_EXPORT ResourceCatalogue : public QObject
{
    Q_OBJECT
    /// The phase of the check; Idle if none is running.
    Q_PROPERTY(ResourceCatalogue::Phase phase READ phase NOTIFY phaseChanged)
    /// True while a check is waiting, checking or fetching previews.
    Q_PROPERTY(bool busy READ isBusy NOTIFY phaseChanged)
    /// The share of the phase that is done, in per cent; -1 while unknown.
    Q_PROPERTY(int progress READ progress NOTIFY progressChanged)

public:
    /// The phases of a check, see CatalogueUpdate::Phase.
    enum Phase { Idle, Waiting, Checking, FetchingPreviews };
    Q_ENUM(Phase)

    /// The outcomes of a check, see ECatalogueUpdateEnd.
    enum Outcome { Complete, PreviewsMissing, Failed, Cancelled };
    Q_ENUM(Outcome)

    /// Creates an object that open() connects with the catalogue.
    explicit ResourceCatalogue(QObject* parent = nullptr);
    /// Saves favourites that have not been saved yet.
    ~ResourceCatalogue() override;

    /// Sets the download folder and loads the catalogue, from disk only. Returns whether there are
    /// items.
    Q_INVOKABLE bool open(const QString& downloadFolder);

    /// Asks the server for a newer catalogue, then fetches previews; checkEnded() follows. Returns
    /// false and does nothing while a check is running, and if the process can run no other.
    Q_INVOKABLE bool check() { return m_update.start(); }
    /// Does the same after a random time, for a program that checks by itself, see
    /// CatalogueUpdate::startSpread().
    Q_INVOKABLE bool checkSpread() { return m_update.startSpread(); }
    /// Cancels the check; checkEnded() follows within 200 ms, unless files are being stored.
    Q_INVOKABLE void cancel() { m_update.cancel(); }

    /// Saves the favourites and reads the catalogue again. While a download that no model has begun
    /// works on an item it returns false, and does it when that has ended.
    Q_INVOKABLE bool reload();

    /// Returns the property of that name.
    Phase phase() const;
    /// Returns the property busy.
    bool isBusy() const { return phase() != Idle; }
    /// Returns the property of that name.
    int progress() const;

signals:
    /// The phase has changed.
    void phaseChanged();
    /// The progress has changed.
    void progressChanged();
    /// The catalogue has been loaded again; models have followed.
    void reloaded();
    /// The check has ended, and what it has brought is loaded. `reason` is an English line for a
    /// check that failed or lacks previews; otherwise empty.
    void checkEnded(ResourceCatalogue::Outcome outcome, const QString& reason);
    /// The server's catalogue needs a newer application.
    void appUpdateNeeded();
    /// Favourites could not be saved; the next change, or the end of the process, tries again.
    void favouritesNotSaved(const QString& reason);

private:
    void saveFavourites();
    void reloadLater();
    void endCheck(const SCatalogueUpdateResult& result);

    CatalogueUpdate m_update;
    QTimer m_save;              // runs while favourites wait to be saved
    bool m_isReloadDue = false; // when the downloads of others have ended
};
