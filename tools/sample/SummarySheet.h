// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "FigureTable.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

/// What a summary sheet says, whatever the kind of file: a title, what it is and is not, the data of the
/// publication, sections of paragraphs, and figures if there are any.
struct SummarySheet
{
    struct Section
    {
        QString heading;
        QStringList paragraphs;
    };

    QString title;
    QString notice;
    std::vector<std::pair<QString, QString>> data; ///< label and value
    std::vector<Section> sections;
    const FigureTable* figures = nullptr;
};

/// What every made file says of itself.
QString sampleNotice();

/// The sheet as plain text, with lines of at most 78 characters.
QString sheetAsText(const SummarySheet& sheet);

/// The sheet as the body of an HTML page. `picture` is the address of a picture of the figures; empty for
/// none.
QString sheetAsHtmlBody(const SummarySheet& sheet, const QString& picture);

/// The sheet as RTF in plain ASCII, for word processors; without the figures.
QByteArray sheetAsRtf(const SummarySheet& sheet);

/// The figures as CSV: lines with `#` that say what they are, a line of column names, and the rows.
QString figuresAsCsv(const FigureTable& figures);
