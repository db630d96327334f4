// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "export/frmExport.h"
#include "platform/Platform.h"

#include <QObject>

#include <vector>

class MainCommands;
class ShownView;

/// The command that exports the records of a view. Lives as long as the window.
class ExportCommand final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    ExportCommand(const Platform& platform, const ShownView& view, const MainCommands& commands,
                  QObject* parent);

    /// The list must have been read to its end.
    void run();

Q_SIGNALS:
    /// Says what was exported; the text is empty if nothing was.
    void done(const QString& text);

private:
    [[nodiscard]] std::size_t countAll(RecordKind kind) const;
    [[nodiscard]] std::vector<qint64> allRecords(RecordKind kind) const;
    [[nodiscard]] QString captionOf(frmExport::Records records) const;
    [[nodiscard]] QString chooseFile(const ExportFormat& format, frmExport::Records records) const;
    [[nodiscard]] QString write(const frmExport& asked, std::vector<qint64> records);
    [[nodiscard]] static QString doneText(const QString& file, std::size_t count, std::size_t wanted);

    Platform m_platform;
    const ShownView& m_view;
};
