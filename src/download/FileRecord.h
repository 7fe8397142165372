#pragma once

#include <QString>

struct SFileInfo;

/// A file record as download threads use it: every access under the record's mutex, if it has one.
/// Internal to the library; a view, it must not outlive the record.
class FileRecord
{
public:
    struct Counts
    {
        qint64 received = 0;
        qint64 total = 0;
    };

    explicit FileRecord(SFileInfo& info);

    /// Takes the file for this thread, with its counters at zero; false if another one has it.
    /// Looking and taking are one step.
    bool take();
    /// Gives the file back; only for the thread that took it.
    void release();
    bool isTaken() const;

    QString name() const; ///< on the server
    QString file() const; ///< on disk

    /// Address of the file on the server.
    QString url() const;

    void setCounts(qint64 received, qint64 total);
    Counts counts() const;

private:
    SFileInfo& m_info;
};
