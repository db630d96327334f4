// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/FileByHash.h"

#include "check/CheckTexts.h"
#include "files/FileBlocks.h"
#include "util/Error.h"

#include <QFileInfo>
#include <QLocale>

#include <utility>

FileByHash::FileByHash(const QString& folder, QByteArray sha256, std::optional<qint64> size)
    : m_sha256(std::move(sha256)),
      m_size(size),
      m_files(folder, QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDirIterator::Subdirectories)
{
}

bool FileByHash::step()
{
    constexpr int portion = 50;
    if (m_found) return false;
    try {
        if (!m_file.isEmpty()) {
            readBlock();
            return !m_found;
        }
        for (int i = 0; i < portion && m_file.isEmpty(); ++i) {
            if (!m_files.hasNext()) return false;
            beginNext();
        }
    } catch (const Error&) {
        m_source.close();
        m_file.clear();
    }
    return true;
}

void FileByHash::beginNext()
{
    const QString file = m_files.next();
    ++m_looked;
    if (m_size && m_files.fileInfo().size() != *m_size) return;
    m_path = FileBlocks::pathOf(file);
    m_source = FileBlocks::open(m_path);
    m_hash = Sha256();
    m_file = file;
}

void FileByHash::readBlock()
{
    const std::string_view block = FileBlocks::read(m_source, m_buffer, m_path);
    if (!block.empty()) return m_hash.add(block);
    m_source.close();
    const QString file = std::exchange(m_file, QString());
    if (m_hash.result() == m_sha256) m_found = file;
}

QString FileByHash::title() const
{
    return CheckTexts::tr("Find File");
}

QString FileByHash::text() const
{
    return CheckTexts::tr("Comparing the files (%1) …").arg(QLocale().toString(m_looked));
}
