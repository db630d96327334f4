// SPDX-License-Identifier: GPL-3.0-or-later

#include "details/FilePicture.h"

#include <QDateTime>
#include <QFileInfo>
#include <QResizeEvent>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto delay = 150ms; ///< longer than that between the repeats of a key that is held down

/// A page takes a fraction of a second; what takes this long is not worth waiting for.
constexpr ProcessLimits limits{.time = 10s};

QString versionOf(const QFileInfo& file)
{
    return u"%1 %2"_s.arg(file.lastModified().toMSecsSinceEpoch()).arg(file.size());
}

} // namespace

FilePicture::FilePicture(const QString& programs, QWidget* parent) : QLabel(parent), m_process(limits)
{
    if (!programs.isEmpty()) m_program = programs + u"/orvik-page"_s;
    setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    setWordWrap(true);
    // the picture follows the room that there is, not the other way round
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_pause.setSingleShot(true);
    m_pause.setInterval(delay);
    m_pause.callOnTimeout(this, &FilePicture::make);
}

bool FilePicture::canShow(const QString& file)
{
    static const QStringList endings{u"pdf"_s, u"png"_s, u"jpg"_s,  u"jpeg"_s, u"gif"_s,
                                     u"bmp"_s, u"tif"_s, u"tiff"_s, u"webp"_s, u"svg"_s};
    return endings.contains(QFileInfo(file).suffix(), Qt::CaseInsensitive);
}

void FilePicture::showFile(const QString& file)
{
    const QString version = versionOf(QFileInfo(file));
    if (file == m_file && version == m_version) return;
    m_process.stop();
    m_pause.stop();
    clear();
    m_file = file;
    m_version = version;
    const bool isShown = !m_program.isEmpty() && canShow(file);
    setVisible(isShown);
    if (isShown) m_pause.start();
}

void FilePicture::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    if (isVisibleTo(parentWidget()) && event->size() != event->oldSize()) m_pause.start();
}

void FilePicture::make()
{
    const QSize room = (QSizeF(contentsRect().size()) * devicePixelRatioF()).toSize();
    if (room.isEmpty()) return;
    m_process.stop();
    m_process.start(m_program, {m_file, QString::number(room.width()), QString::number(room.height())},
                    [this](const LimitedProcess::Result& result) { take(result); });
}

void FilePicture::take(const LimitedProcess::Result& result)
{
    QPixmap picture;
    if (!result.failure.isEmpty() || !picture.loadFromData(result.output, "PNG"))
        return setText(tr("The first page of this file cannot be shown.") + u'\n' + result.failure);
    picture.setDevicePixelRatio(devicePixelRatioF());
    setPixmap(picture);
}
