// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Bytes.h"

#include <array>
#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>

namespace accessimport {

inline constexpr std::size_t pageSize = 4096;
using Page = std::array<std::uint8_t, pageSize>;

/// The Access file, open for reading for as long as this object lives.
///
/// It is never written, and if the system allows it, its access time stays as it was. Pages are read one by
/// one into a small cache, so that memory does not grow with the file.
class SourceFile
{
public:
    /// Opens and judges the file. Throws ImportError: SourceUnreadable, Unsupported, Encrypted or Damaged.
    explicit SourceFile(const std::string& path);
    ~SourceFile();
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;

    const std::string& kind() const { return m_kind; }
    std::uint32_t pageCount() const { return m_pageCount; }
    int descriptor() const { return m_descriptor; }

    /// The page's content, valid until the next call. Throws ImportError(Damaged) beyond the end of the file.
    const Page& page(std::uint32_t number);

    /// Reads a page past the cache, for one walk over the whole file.
    void readPage(std::uint32_t number, Page& into) const;

private:
    struct CachedPage
    {
        std::uint32_t number = UINT32_MAX;
        Page content;
    };

    void judge(const std::string& path);

    int m_descriptor = -1;
    std::uint32_t m_pageCount = 0;
    std::string m_kind;
    std::vector<CachedPage> m_cache;
};

} // namespace accessimport
