// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/FileView.h"

/// Changes a file record that other threads may be reading, under the same rules as FileView.
class MVRESOURCE_EXPORT FileRecord : public FileView
{
public:
    /// One thread's claim to fetch a file. The destructor releases the file.
    class MVRESOURCE_EXPORT Taken
    {
    public:
        /// Takes over the claim; `other` then holds nothing.
        Taken(Taken&& other) noexcept;
        Taken(const Taken&) = delete;
        Taken& operator=(const Taken&) = delete;
        Taken& operator=(Taken&&) = delete;
        ~Taken();

        /// Returns whether this object holds the file; if not, another thread does.
        explicit operator bool() const { return m_info != nullptr; }

    private:
        friend class FileRecord;
        explicit Taken(SFileInfo* info)
            : m_info(info)
        {
        }

        SFileInfo* m_info; // not owned; null once released
    };

    /// Gives access to `info`, which must outlive this object.
    explicit FileRecord(SFileInfo& info);

    /// Atomically takes the file for the calling thread and resets its counters. The claim must not
    /// outlive the record.
    Taken take();

    /// Setters write only changed values, so threads that read other fields are not disturbed.
    void setKind(ECfgItemType kind, bool isDisplayHalf);
    /// Sets the name on the server.
    void setName(const QString& name);
    /// Sets the absolute path on disk.
    void setFile(const QString& file);
    /// Sets the bytes received and expected.
    void setCounts(const Counts& counts);

private:
    SFileInfo& m_info;
};
