// SPDX-License-Identifier: GPL-3.0-or-later

#include "export/ExportFormats.h"

#include <algorithm>

// each in a file of its own
ExportFormat csvFormat();
ExportFormat xlsxFormat();
ExportFormat htmlFormat();
ExportFormat jsonFormat();
ExportFormat bibtexFormat();
ExportFormat risFormat();
ExportFormat calendarFormat();
ExportFormat kmlFormat();

const std::vector<ExportFormat>& exportFormats()
{
    // a line for each
    // clang-format off
    static const std::vector<ExportFormat> all{
        csvFormat(),
        xlsxFormat(),
        htmlFormat(),
        jsonFormat(),
        bibtexFormat(),
        risFormat(),
        calendarFormat(),
        kmlFormat(),
    };
    // clang-format on
    return all;
}

const ExportFormat* exportFormat(const QString& name)
{
    const std::vector<ExportFormat>& all = exportFormats();
    const auto found =
        std::find_if(all.begin(), all.end(), [&name](const ExportFormat& each) { return each.name == name; });
    return found == all.end() ? nullptr : &*found;
}
