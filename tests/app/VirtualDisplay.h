#pragma once

#include <QProcess>
#include <QSize>
#include <QString>

/// An X display without a screen, for the life of this object.
class VirtualDisplay
{
public:
    explicit VirtualDisplay(const QSize& size = {1280, 1024});
    ~VirtualDisplay();
    Q_DISABLE_COPY_MOVE(VirtualDisplay)

    /// ":7"; empty if it could not be started.
    QString name() const { return m_name; }

private:
    QProcess m_server;
    QString m_name;
};
