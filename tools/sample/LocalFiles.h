// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "DocumentRecords.h"
#include "EventRecords.h"
#include "FigurePainter.h"
#include "FigureTable.h"
#include "OrganizationRecords.h"
#include "SummarySheet.h"

#include <QDir>
#include <QTextDocument>

/// Makes the local files of documents: summary sheets, charts, maps, tables and a recording. Nothing that
/// it writes is a copy of a publication, and each file but the recording says so. Keeps references to what
/// it is given and must not outlive it.
class LocalFiles
{
public:
    LocalFiles(const FigureTables& figures, const FigurePainter& painter, const EventRecords& events,
               const OrganizationRecords& organizations, const QDir& folder);

    /// Throws SourceError if the document's figures are missing, or have no places for its map.
    void check(const DocumentFacts& document) const;

    /// Writes the file of a document that was checked, and for a web page its companion folder. Throws
    /// SourceError if a file cannot be written.
    void write(const DocumentFacts& document) const;

private:
    [[nodiscard]] const FigureTable* figuresOf(const DocumentFacts& document) const;
    [[nodiscard]] SummarySheet sheetOf(const DocumentFacts& document) const;
    [[nodiscard]] QStringList agenciesOf(const DocumentFacts& document) const;
    [[nodiscard]] QImage pictureOf(const FigureTable& figures) const;
    [[nodiscard]] QImage pictureOf(const SummarySheet& sheet) const;
    void layOut(const SummarySheet& sheet, QTextDocument& text) const;
    void writeSheet(const DocumentFacts& document) const;
    void writePdf(const SummarySheet& sheet, const QString& path) const;
    void writePage(const SummarySheet& sheet, const DocumentFacts& document) const;
    void writeImage(const QImage& image, const QString& name) const;
    void writeBytes(const QByteArray& bytes, const QString& name) const;

    const FigureTables& m_figures;
    const FigurePainter& m_painter;
    const EventRecords& m_events;
    const OrganizationRecords& m_organizations;
    QDir m_folder;
};
