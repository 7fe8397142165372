#pragma once

#include <QObject>

struct SCfg_Item;
struct STransferFailure;

/// The callbacks of the library's cells as signals. Cells share one set of callbacks, so there is
/// one object of this class. The signals come after the cell has finished with the event, so that
/// a receiver may do anything to the lists; items are named by kind and GUID, as the catalogue may
/// have been read again by then.
class HostSignals : public QObject
{
    Q_OBJECT

public:
    explicit HostSignals(QObject* parent);
    ~HostSignals() override;

signals:
    void downloadStarted(int kind, const QString& guid);
    /// After downloadFailed(), if that comes.
    void downloadEnded(int kind, const QString& guid);
    void downloadFailed(int kind, const QString& guid, const STransferFailure& failure);
    void moreWanted();
};
