// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/STransferFailure.h"
#include "records/ECfgItemType.h"

#include <QFrame>
#include <QString>

class QLabel;
class QPlainTextEdit;
class QPushButton;

/// Shows why the most recent failed download failed: the cause in the user's language and, behind a
/// button, the details (address, reason, bytes and local path), which can be copied. Hidden while
/// there is no failure.
class FailureBox : public QFrame
{
    Q_OBJECT

public:
    explicit FailureBox(QWidget* parent);

    void showFailure(ECfgItemType kind, const QString& guid, const QString& name,
                     const STransferFailure& failure);
    /// Hides the box if it shows this item's failure.
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
