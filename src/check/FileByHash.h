// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/SteppedWork.h"
#include "util/Sha256.h"

#include <QByteArray>
#include <QDirIterator>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

/// Looks for the file of a content in a folder and all folders in it, whatever the file is called. What
/// cannot be read is passed over, and links are not followed. The files are only read.
class FileByHash final : public SteppedWork
{
public:
    /// `sha256` has 32 bytes. If the size in bytes is known, only files of that size are read.
    FileByHash(const QString& folder, QByteArray sha256, std::optional<qint64> size = std::nullopt);

    bool step() override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString text() const override;
    [[nodiscard]] std::optional<int> percent() const override { return std::nullopt; }

    /// The first file found; std::nullopt if there is none, or none yet.
    [[nodiscard]] const std::optional<QString>& found() const { return m_found; }

private:
    void beginNext();
    void readBlock();

    QByteArray m_sha256;
    std::optional<qint64> m_size;
    QDirIterator m_files;
    int m_looked = 0;
    QString m_file; ///< that is being read; empty for none
    std::filesystem::path m_path;
    std::ifstream m_source;
    std::string m_buffer;
    Sha256 m_hash;
    std::optional<QString> m_found;
};
