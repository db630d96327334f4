// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// What the system knows of a file beside its content.
class FileAttributes
{
public:
    virtual ~FileAttributes() = default;

    /// Clears the read-only attribute, as a file copied from a disc may carry it. Failures are ignored.
    virtual void makeWritable(const QString& file) = 0;

protected:
    FileAttributes() = default;
    FileAttributes(const FileAttributes&) = default;
    FileAttributes& operator=(const FileAttributes&) = default;
};

/// The attributes of the machine's own files.
class SystemFileAttributes final : public FileAttributes
{
public:
    void makeWritable(const QString& file) override;
};
