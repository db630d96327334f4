// SPDX-License-Identifier: GPL-3.0-or-later

// orvik-page FILE WIDTH HEIGHT: writes a PNG picture of a PDF's first page, or of a picture, to the standard
// output. It fits into so many pixels; a picture is never enlarged. The exit status is 1 if the file is
// neither, or is damaged or locked.

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <iostream>
#include <memory>
#include <poppler-qt6.h>

namespace {

constexpr int longestSide = 10'000;
constexpr int mostMegabytes = 512; ///< that a picture may take in memory

bool isPdf(const QString& path)
{
    // what comes before may be of another program, such as a mail
    constexpr qint64 farthestBegin = 1024;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(farthestBegin).contains("%PDF-");
}

QImage firstPage(const QString& path, const QSize& room)
{
    const std::unique_ptr<Poppler::Document> document = Poppler::Document::load(path);
    if (document == nullptr) return {};
    if (document->isLocked()) {
        std::cerr << "Incorrect password\n";
        return {};
    }
    document->setRenderHint(Poppler::Document::Antialiasing);
    document->setRenderHint(Poppler::Document::TextAntialiasing);
    const std::unique_ptr<Poppler::Page> page = document->page(0);
    if (page == nullptr) return {};
    const QSizeF size = page->pageSizeF();
    if (!(size.width() > 0 && size.height() > 0)) return {};
    constexpr double pointsPerInch = 72;
    const double scale = std::min(room.width() / size.width(), room.height() / size.height());
    const double resolution = pointsPerInch * scale;
    return page->renderToImage(resolution, resolution, 0, 0, std::max(1, qRound(size.width() * scale)),
                               std::max(1, qRound(size.height() * scale)));
}

QImage picture(const QString& path, QSize room)
{
    QImageReader::setAllocationLimit(mostMegabytes);
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (reader.transformation().testFlag(QImageIOHandler::TransformationRotate90)) room.transpose();
    // read at once in the size that is needed, a photo takes a fraction of the time
    const QSize whole = reader.size();
    const bool isTooLarge = whole.width() > room.width() || whole.height() > room.height();
    if (isTooLarge) reader.setScaledSize(whole.scaled(room, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    return reader.read();
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) return EXIT_FAILURE;
    const QString& path = arguments[1];
    const QSize room(arguments[2].toInt(), arguments[3].toInt());
    const bool isPossible = !room.isEmpty() && std::max(room.width(), room.height()) <= longestSide;
    // a pipe would never end
    if (!isPossible || !QFileInfo(path).isFile()) return EXIT_FAILURE;
    const QImage image = isPdf(path) ? firstPage(path, room) : picture(path, room);
    QFile output;
    const bool isWritten = !image.isNull() && output.open(stdout, QIODevice::WriteOnly) &&
                           image.save(&output, "PNG") && output.flush();
    return isWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}
