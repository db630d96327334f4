// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/PictureCommands.h"

#include "browse/commands/MainCommands.h"
#include "browse/list/ListPane.h"
#include "browse/window/ShownView.h"
#include "files/UnfinishedFile.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "platform/SaveTarget.h"
#include "util/ReadableLine.h"
#include "widgets/PictureImage.h"
#include "widgets/WaitCursor.h"

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>

#include <memory>

PictureCommands::PictureCommands(const Platform& platform, const ShownView& view,
                                 const MainCommands& commands, QObject* parent)
    : QObject(parent), m_platform(platform), m_view(view)
{
    connect(commands.mnuViewCopyPicture, &QAction::triggered, this, &PictureCommands::copy);
    connect(commands.mnuViewSavePicture, &QAction::triggered, this, &PictureCommands::save);
}

/// The graphic under the caption and the number of records that the status bar shows. If the graphic shows
/// nothing, tells the user so.
std::optional<GraphicPicture> PictureCommands::picture() const
{
    const auto graphic = m_view.graphic();
    if (!graphic) {
        m_platform.messages.show(tr("The graphic shows nothing just now, so there is no picture of it."));
        return std::nullopt;
    }
    return PictureImage::captioned(*graphic, readableLine(m_view.caption()),
                                   RecordList::countText(m_view.kind(), m_view.list().count()),
                                   m_view.window().font());
}

QByteArray PictureCommands::svg(const GraphicPicture& picture) const
{
    return PictureImage::svg(picture, readableLine(m_view.caption()));
}

void PictureCommands::copy()
{
    QString outcome;
    runProcedure(m_platform.messages, QStringLiteral("copyPicture"), [&] {
        const auto copied = picture();
        if (!copied) return;
        const WaitCursor wait;
        auto content = std::make_unique<QMimeData>();
        content->setImageData(PictureImage::image(*copied));
        content->setData(QStringLiteral("image/svg+xml"), svg(*copied));
        QGuiApplication::clipboard()->setMimeData(content.release());
        outcome = tr("Picture copied");
    });
    Q_EMIT done(outcome);
}

void PictureCommands::save()
{
    QString outcome;
    runProcedure(m_platform.messages, QStringLiteral("savePicture"), [&] {
        const auto saved = picture();
        if (!saved) return;
        const QString png = QStringLiteral(".png");
        const QString vectors = QStringLiteral(".svg");
        const QString file =
            SaveTarget::choose(m_platform, tr("Save Picture"), SaveTarget::nameFor(m_view.caption()) + png,
                               QStringLiteral("PNG (*.png)|*.png|SVG (*.svg)|*.svg|"), {png, vectors});
        if (file.isEmpty()) return;
        const WaitCursor wait;
        const QByteArray content =
            file.endsWith(vectors, Qt::CaseInsensitive) ? svg(*saved) : PictureImage::png(*saved);
        UnfinishedFile target(file);
        target.write({content.constData(), static_cast<std::size_t>(content.size())});
        target.finish();
        outcome = tr("Saved: %1").arg(QFileInfo(file).fileName());
    });
    Q_EMIT done(outcome);
}
