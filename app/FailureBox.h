#pragma once

#include "host/STransferFailure.h"
#include "records/ECfgItemType.h"

#include <QFrame>
#include <QString>

class QLabel;
class QPlainTextEdit;
class QPushButton;

/// Tells why the last download that failed did: the cause in the user's language, and behind a
/// button the details (address, reason, bytes and local path) to be read and copied. Hidden while
/// there is nothing to tell.
class FailureBox : public QFrame
{
    Q_OBJECT

public:
    explicit FailureBox(QWidget* parent);

    void showFailure(ECfgItemType kind, const QString& guid, const QString& name,
                     const STransferFailure& failure);
    /// Hides it if it tells of this item.
    void forget(ECfgItemType kind, const QString& guid);

signals:
    void retryWanted(ECfgItemType kind, const QString& guid);

protected:
    void changeEvent(QEvent* event) override;

private:
    void createLayout();
    void retranslate();
    void copy() const;

    QLabel* m_title;
    QPlainTextEdit* m_text;
    QPushButton* m_retry;
    QPushButton* m_details;
    QPushButton* m_copy;
    QPushButton* m_close;
    QString m_name;
    QString m_guid;
    STransferFailure m_failure;
    ECfgItemType m_kind = eCfgItem_Filter;
};
