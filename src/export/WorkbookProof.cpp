// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/WorkbookProof.h"

#include "files/Archive.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <string>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view beforeRows = "<sheetData>";
constexpr std::string_view afterRows = "</sheetData>";
constexpr std::string_view endOfSheet = "</worksheet>";
constexpr std::size_t mostBeforeRows = 1 << 20; ///< bytes

/// Whether all of the rows stand between their tags: what is lost makes them shorter.
bool isWholeSheet(ArchiveReader& archive, std::size_t rowBytes)
{
    std::string text;
    std::size_t rows = std::string::npos;
    while (rows == std::string::npos && text.size() < mostBeforeRows) {
        const std::string_view more = archive.read();
        if (more.empty()) return false;
        text += more;
        rows = text.find(beforeRows);
    }
    if (rows == std::string::npos) return false;
    text.erase(0, rows + beforeRows.size());
    std::size_t missing = rowBytes;
    while (true) {
        const std::size_t ofRows = std::min(missing, text.size());
        text.erase(0, ofRows);
        missing -= ofRows;
        const std::string_view more = archive.read();
        if (more.empty()) break;
        text += more;
    }
    return missing == 0 && text.starts_with(afterRows) && text.ends_with(endOfSheet);
}

bool isWholeDocument(ArchiveReader& archive)
{
    QByteArray text;
    for (std::string_view part = archive.read(); !part.empty(); part = archive.read())
        text.append(part.data(), static_cast<qsizetype>(part.size()));
    QXmlStreamReader document(text);
    while (!document.atEnd())
        document.readNext();
    return !document.hasError();
}

} // namespace

bool isWholeWorkbook(const QString& file, const std::vector<qint64>& rowBytes)
{
    ArchiveReader archive(file);
    std::size_t sheets = 0;
    while (const auto entry = archive.next()) {
        if (!entry->name.startsWith(u"xl/worksheets/sheet"_s)) {
            if (!isWholeDocument(archive)) return false;
        } else if (sheets == rowBytes.size() ||
                   !isWholeSheet(archive, static_cast<std::size_t>(rowBytes[sheets++]))) {
            return false;
        }
    }
    return sheets == rowBytes.size();
}
