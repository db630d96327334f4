// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/TableScan.h"

#include <QSet>
#include <QString>

#include <utility>
#include <vector>

class DatabaseSession;

/// The names of the files that a database's records lay claim to: those of its documents, whatever their
/// status and in former versions too, the folders of its web pages, and its organizations' charts.
class RecordFiles
{
public:
    /// Every file: for a database whose records cannot be read.
    RecordFiles() : m_isAll(true) {}

    /// Reads the names from the open database. Throws Error.
    explicit RecordFiles(DatabaseSession& session);

    /// Without names as long as `readMore` was not called.
    [[nodiscard]] static RecordFiles begun(const DatabaseSession& session);

    /// Reads the next names. Returns false once there are no more. Throws Error.
    bool readMore(DatabaseSession& session);

    /// Whether a file in the documents folder is named, in any letter case; `.htm` and `.html` are one.
    [[nodiscard]] bool hasDocument(const QString& fileName) const;

    /// Whether a folder beside the documents belongs to a page that is named.
    [[nodiscard]] bool hasPageFolder(const QString& folderName) const;

    /// Whether a file in the charts folder may be the chart of an organization that has one.
    [[nodiscard]] bool hasChart(const QString& fileName) const;

    /// Whether a file in the folder of former charts belongs to an organization whose journal tells of them.
    [[nodiscard]] bool hasFormerChart(const QString& fileName) const;

private:
    void addDocument(const QString& fileLocation);
    void addChart(qint64 organization, const QString& chosenPath);

    using Handler = void (RecordFiles::*)(const HeldRow&);
    void addDocumentOf(const HeldRow& row);
    void addChartOf(const HeldRow& row);
    void addFormerChartsOf(const HeldRow& row);

    bool m_isAll = false;
    std::vector<std::pair<TableScan, Handler>> m_toRead; ///< the next one last
    QSet<QString> m_documents;
    QSet<QString> m_pageFolders;
    QSet<QString> m_charts;
    QSet<QString> m_withFormerCharts; ///< identifiers of organizations
};
