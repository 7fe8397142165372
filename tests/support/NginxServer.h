#pragma once

#include <QByteArrayList>
#include <QProcess>
#include <QString>

/// A real nginx on a free port of loopback that serves a folder, with a configuration of its own,
/// run by the user who runs the program, and ended with this object or with the program.
class NginxServer
{
public:
    NginxServer() = default;
    ~NginxServer();
    Q_DISABLE_COPY_MOVE(NginxServer)

    /// Where nginx is installed; empty: it is not.
    static QString program();

    /// A file with directives for the server, beside those of its own. Call it before start().
    void include(const QString& file) { m_include = file; }

    /// Serves `tree`; writes its own files into `work`, which is created. False: errorText().
    bool start(const QString& tree, const QString& work);
    QString errorText() const { return m_error; }

    /// "http://127.0.0.1:PORT/".
    QString url() const;
    /// The request lines and statuses so far, "GET /a.xml HTTP/1.1 200"; each is written after its
    /// answer.
    QByteArrayList requests() const;

private:
    /// Does not outlive the program, however that ends.
    class Process : public QProcess
    {
    protected:
        void setupChildProcess() override;
    };

    bool startOn(quint16 port, const QString& tree, const QString& work);

    Process m_process;
    quint16 m_port = 0;
    QString m_include;
    QString m_work;
    QString m_error;
};
