// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/FolderCopy.h"

#include "files/FilesTexts.h"

#include <QLocale>

#include <algorithm>

namespace fs = std::filesystem;

FolderCopy::FolderCopy(const FolderList& list, const QString& target)
    : m_list(list), m_target(FileBlocks::pathOf(target))
{
}

bool FolderCopy::step()
{
    if (!m_file) {
        if (m_next == m_list.entries().size()) return false;
        begin(m_list.entries()[m_next++]);
        return true;
    }
    const std::size_t copied = m_file->step();
    m_done.bytes += static_cast<qint64>(copied);
    if (copied > 0) return true;
    m_file.reset();
    ++m_done.files;
    return true;
}

void FolderCopy::skipFile()
{
    m_file.reset();
    std::error_code ignored;
    const FolderList::Entry& entry = m_list.entries()[m_next - 1];
    if (!entry.isFolder) fs::remove(m_target / entry.to, ignored);
}

void FolderCopy::begin(const FolderList::Entry& entry)
{
    const fs::path target = m_target / entry.to;
    if (!entry.isFolder) {
        m_file.emplace(entry.from, target);
        return;
    }
    std::error_code code;
    fs::create_directory(target, code);
    FileBlocks::require(code, target);
}

/// A folder comes before what it holds, so that it is empty when its turn comes.
bool FolderCopy::undoStep()
{
    m_file.reset();
    if (m_next == 0) return false;
    std::error_code ignored;
    fs::remove(m_target / m_list.entries()[--m_next].to, ignored);
    return true;
}

QString FolderCopy::title() const
{
    return m_list.title();
}

QString FolderCopy::remark() const
{
    return m_list.remark();
}

QString FolderCopy::text() const
{
    const QLocale locale;
    const FolderList::Amount all = m_list.amount();
    return FilesTexts::tr("Copying the files (%1 of %2, %3 of %4) …")
        .arg(locale.toString(m_done.files), locale.toString(all.files), m_done.sizeText(), all.sizeText());
}

std::optional<WorkBytes> FolderCopy::bytes() const
{
    return WorkBytes{m_done.bytes, m_list.amount().bytes};
}

std::optional<int> FolderCopy::percent() const
{
    // many small files take as long as a few large ones
    constexpr qint64 worthOfFile = 1 << 16;
    const auto worth = [](const FolderList::Amount& amount) {
        return amount.bytes + amount.files * worthOfFile;
    };
    const qint64 all = worth(m_list.amount());
    if (all == 0) return 100;
    return static_cast<int>(std::min(qint64(100), worth(m_done) * 100 / all));
}
