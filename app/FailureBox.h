#pragma once

#include <QFrame>
#include <QString>

class QLabel;
class QPlainTextEdit;
class QPushButton;

/// Tells of the download that failed last: address, reason, bytes and local path, to be read and
/// copied. Hidden while there is nothing to tell.
class FailureBox : public QFrame
{
    Q_OBJECT

public:
    explicit FailureBox(QWidget* parent);

    void showFailure(int kind, const QString& guid, const QString& name, const QString& errorText);
    /// Hides it if it tells of this item.
    void forget(int kind, const QString& guid);

signals:
    void retryWanted(int kind, const QString& guid);

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
    void copy() const;

    QLabel* m_title;
    QPlainTextEdit* m_text;
    QPushButton* m_retry;
    QPushButton* m_copy;
    QPushButton* m_close;
    QString m_name;
    QString m_guid;
    int m_kind = 0;
};
