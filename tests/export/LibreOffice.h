// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

/// A cell as LibreOffice understood it.
struct SheetCell
{
    QString text;
    bool isText = false; ///< and no number, date or time
};

using SheetRows = std::vector<std::vector<SheetCell>>;

/// Has LibreOffice read files, without a window, and returns the rows of each sheet by the file's name
/// without its ending, `-` and the name of the sheet. Each call takes some seconds. `importFilter` is what it
/// is told of the files, as the option --infilter takes it. Throws if it does not read all of them.
[[nodiscard]] QMap<QString, SheetRows> readByLibreOffice(const QStringList& files,
                                                         const QString& importFilter = {});
