// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "export/ExportFile.h"
#include "export/ExportFormat.h"
#include "export/RecordReader.h"
#include "platform/SteppedWork.h"

#include <memory>
#include <vector>

/// Exports records of one kind into a file, in the order of their identifiers as given. Nothing is left of it
/// if it fails or is cancelled.
class ExportWork final : public SteppedWork
{
public:
    /// The session and the format must outlive the work. Throws Error if the file cannot be written.
    ExportWork(DatabaseSession& session, RecordKind kind, std::vector<qint64> identifiers,
               const ExportFormat& format, ExportOptions options, const QString& file);

    bool step() override;
    bool undoStep() override;
    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString text() const override;
    [[nodiscard]] std::optional<int> percent() const override;

    /// How many records were written.
    [[nodiscard]] std::size_t count() const { return m_written; }

    /// The identifiers of all records of a kind that are not deleted, in the order of their list. Throws
    /// Error.
    [[nodiscard]] static std::vector<qint64> every(DatabaseSession& session, RecordKind kind,
                                                   const QString& statement);

private:
    [[nodiscard]] std::size_t done() const;

    RecordReader m_reader;
    std::vector<qint64> m_identifiers;
    ExportOptions m_options;
    std::unique_ptr<ExportFile> m_file;
    ExportOrder m_order;
    std::unique_ptr<RecordWriter> m_writer; ///< goes before the file does
    int m_pass = 0;
    std::size_t m_next = 0; ///< the first identifier that was not handed over in this pass
    std::size_t m_written = 0;
};
