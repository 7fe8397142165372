// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/STransferFailure.h"
#include "ItemKey.h"

#include <QFrame>
#include <QString>

class QLabel;
class QPlainTextEdit;
class QPushButton;

/// Shows why one download failed: the cause in the user's language and, behind a button, the
/// details (address, reason, bytes and local path), which can be copied.
class FailureBox : public QFrame
{
    Q_OBJECT

public:
    FailureBox(ItemKey item, QString name, const STransferFailure& failure, QWidget* parent);

    const ItemKey& item() const { return m_item; }

signals:
    void retryWanted(ECfgItemType kind, const QString& guid);
    void closed();
    /// The box needs another height.
    void resized();

protected:
    void changeEvent(QEvent* event) override;

private:
    void createLayout();
    void retranslate();
    void copy() const;

    ItemKey m_item;
    QString m_name;
    STransferFailure m_failure;
    QLabel* m_title;
    QPlainTextEdit* m_text;
    QPushButton* m_retry;
    QPushButton* m_details;
    QPushButton* m_copy;
    QPushButton* m_close;
};
