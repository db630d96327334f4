// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/ExportCommand.h"

#include "browse/commands/MainCommands.h"
#include "browse/list/ListPane.h"
#include "browse/window/ShownView.h"
#include "export/ExportFormat.h"
#include "export/ExportTexts.h"
#include "export/ExportWork.h"
#include "files/FolderList.h"
#include "platform/Procedure.h"
#include "platform/SaveTarget.h"
#include "platform/WorkRunner.h"
#include "state/ProgramState.h"
#include "widgets/PictureImage.h"
#include "widgets/WaitCursor.h"

#include <QFileInfo>
#include <QLocale>
#include <QWidget>

namespace {

/// Such as `Table as text (CSV) (*.csv)|*.csv|`.
QString filterOf(const ExportFormat& format)
{
    return QStringLiteral("%1 (*%2)|*%2|").arg(ExportTexts::tr(format.title), format.ending);
}

} // namespace

ExportCommand::ExportCommand(const Platform& platform, const ShownView& view, const MainCommands& commands,
                             QObject* parent)
    : QObject(parent), m_platform(platform), m_view(view)
{
    connect(commands.mnuRecordExport, &QAction::triggered, this, &ExportCommand::run);
}

void ExportCommand::run()
{
    using Records = frmExport::Records;
    QString outcome;
    runProcedure(m_platform.messages, QStringLiteral("exportRecords"), [&] {
        const RecordKind kind = m_view.kind();
        const frmExport::Offer offer{kind,
                                     m_view.caption(),
                                     m_view.list().count(),
                                     m_view.list().selectedCount(),
                                     countAll(kind),
                                     m_view.graphic() ? QString() : m_view.noGraphic()};
        frmExport dialog(
            offer, ExportChoices::read(m_platform.settings, kind),
            [this](const ExportFormat& format, Records records) { return chooseFile(format, records); },
            &m_view.window());
        if (dialog.exec() != QDialog::Accepted) return;
        dialog.choices().write(m_platform.settings, kind);
        const Records records = dialog.records();
        outcome = write(dialog, records == Records::OfList     ? m_view.records()
                                : records == Records::Selected ? m_view.selected()
                                                               : allRecords(kind));
    });
    Q_EMIT done(outcome);
}

std::size_t ExportCommand::countAll(RecordKind kind) const
{
    ProgramState& state = m_view.state();
    return static_cast<std::size_t>(StandardQueries::count(state.session, kind, *state.queries.of(kind)));
}

std::vector<qint64> ExportCommand::allRecords(RecordKind kind) const
{
    const WaitCursor wait;
    ProgramState& state = m_view.state();
    return ExportWork::every(state.session, kind, state.queries.of(kind)->sqlStr());
}

QString ExportCommand::captionOf(frmExport::Records records) const
{
    return records == frmExport::Records::All ? m_view.state().queries.all(m_view.kind()).Caption
                                              : m_view.caption();
}

/// Returns the file that the user wants to be written; an empty text if there is none.
QString ExportCommand::chooseFile(const ExportFormat& format, frmExport::Records records) const
{
    return SaveTarget::choose(m_platform, tr("Export"),
                              SaveTarget::nameFor(captionOf(records)) + format.ending, filterOf(format),
                              {format.ending});
}

/// Returns what was exported, for the user; an empty text if the user cancelled it.
QString ExportCommand::write(const frmExport& asked, std::vector<qint64> records)
{
    const ExportFormat& format = asked.format();
    const ExportChoices choices = asked.choices();
    ExportOptions options;
    if (format.hasChoiceOfFields) options.fields = choices.fields;
    options.forSpreadsheet = format.hasChoiceOfSpreadsheet && choices.forSpreadsheet;
    options.caption = captionOf(asked.records());
    const bool hasPicture =
        format.hasPicture && choices.hasPicture && asked.records() != frmExport::Records::All;
    if (const auto graphic = hasPicture ? m_view.graphic() : std::nullopt) {
        options.picture = PictureImage::png(*graphic);
        options.pictureWidth = graphic->size.width();
    }
    const std::size_t wanted = records.size();
    ExportWork work(m_view.state().session, m_view.kind(), std::move(records), format, std::move(options),
                    asked.file());
    return m_platform.works.run(work) ? doneText(asked.file(), work.count(), wanted) : QString();
}

QString ExportCommand::doneText(const QString& file, std::size_t count, std::size_t wanted)
{
    const QFileInfo written(file);
    const QString size = FolderList::Amount{1, written.size()}.sizeText();
    const auto number = [](std::size_t records) { return QLocale().toString(static_cast<qint64>(records)); };
    QString text = count == 1
                       ? tr("Exported: %1 (1 record, %2)").arg(written.fileName(), size)
                       : tr("Exported: %1 (%2 records, %3)").arg(written.fileName(), number(count), size);
    if (count == wanted) return text;
    return text + u' ' +
           (wanted - count == 1 ? tr("1 record is no longer there.")
                                : tr("%1 records are no longer there.").arg(number(wanted - count)));
}
