// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "export/ExportTable.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

class DatabaseSession;
class ExportFile;

/// What the user can choose of an export.
struct ExportOptions
{
    FieldChoice fields = FieldChoice::All;
    bool forSpreadsheet = false; ///< of text alone: whether it is made for programs that calculate
    QString caption;             ///< of the view that is exported; may be empty
    QByteArray picture;          ///< of the view's graphic, as PNG; may be empty
    int pictureWidth = 0;        ///< at which the graphic has its size, in logical pixels
};

/// What is exported: records of one kind, their fields, and what the user chose.
struct ExportOrder
{
    RecordKind kind;
    const std::vector<ExportField>& fields;
    const ExportOptions& options;
    std::size_t count;        ///< of the records, none of which need be there any more
    DatabaseSession& session; ///< for what the records do not hold
};

/// Writes records in one format, one after the other. What it appends to the text of its file is written from
/// time to time. Every failure is an Error.
class RecordWriter
{
public:
    virtual ~RecordWriter() = default;
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;

    /// How often all records are handed over, in the same order each time.
    [[nodiscard]] virtual int passes() const { return 1; }
    virtual void beginPass(int pass) { Q_UNUSED(pass) }

    virtual void add(const ExportedRecord& record) = 0;

    /// Does the next part of what comes after the last record; returns false once there is nothing left to
    /// do.
    virtual bool finish() = 0;

    /// Ends what is still under way if the export is cancelled; returns false once nothing is. Never fails.
    virtual bool abandon() { return false; }

protected:
    RecordWriter() = default;
};

/// A format that records can be exported to.
struct ExportFormat
{
    QString name;            ///< what the settings and other programs call it, such as `csv`
    const char* title;       ///< for the user, to be translated by ExportTexts
    const char* remark = ""; ///< for the user too: a sentence that says what it is good for
    QString ending;          ///< of file names, with its point
    std::optional<RecordKind> kind = std::nullopt; ///< the only kind that it is for
    bool hasChoiceOfFields = false;
    bool hasChoiceOfSpreadsheet = false;
    bool hasPicture = false;

    /// Begins a file. The order and the file outlive the writer.
    std::unique_ptr<RecordWriter> (*begin)(const ExportOrder& order, ExportFile& file);

    [[nodiscard]] bool isFor(RecordKind any) const { return !kind || *kind == any; }
};
