#pragma once

#include "records/FileView.h"

/// Changes a file record that other threads may be reading, under the same rules as FileView.
class MVRESOURCE_EXPORT FileRecord : public FileView
{
public:
    /// The claim of one thread to fetch a file. Gives the file back when it is destroyed.
    class MVRESOURCE_EXPORT Taken
    {
    public:
        Taken(Taken&& other) noexcept;
        Taken(const Taken&) = delete;
        Taken& operator=(const Taken&) = delete;
        Taken& operator=(Taken&&) = delete;
        ~Taken();

        /// True if this object holds the file; false if another thread had it.
        explicit operator bool() const { return m_info != nullptr; }
        /// Gives the file back now.
        void release();

    private:
        friend class FileRecord;
        explicit Taken(SFileInfo* info)
            : m_info(info)
        {
        }

        SFileInfo* m_info; // not owned; null once given back
    };

    explicit FileRecord(SFileInfo& info);

    /// Takes the file for the calling thread and sets its counters to zero, in one step. The claim
    /// must not outlive the record.
    Taken take();

    /// Setters write only what changes, so threads that read other fields are not disturbed.
    void setKind(ECfgItemType kind, bool isDisplayHalf);
    void setName(const QString& name);
    void setFile(const QString& file);
    void setCounts(const Counts& counts);

private:
    SFileInfo& m_info;
};
