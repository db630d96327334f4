// SPDX-License-Identifier: GPL-3.0-or-later

// Draws a picture in several sizes, each into the place of an icon theme.
//
// orvik-icons SVG FOLDER NAME SIZE...: writes FOLDER/SIZExSIZE/apps/NAME for every size, in pixels.

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

namespace {

bool draw(QSvgRenderer& picture, int size, const QString& file)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    picture.render(&painter);
    painter.end();
    return QDir().mkpath(QFileInfo(file).path()) && image.save(file);
}

} // namespace

int main(int argc, char** argv)
{
    constexpr int firstSize = 4;
    if (argc <= firstSize) {
        std::fputs("Usage: orvik-icons SVG FOLDER NAME SIZE...\n", stderr);
        return EXIT_FAILURE;
    }
    QSvgRenderer picture(QString::fromLocal8Bit(argv[1]));
    if (!picture.isValid()) {
        std::fprintf(stderr, "%s is not a picture.\n", argv[1]);
        return EXIT_FAILURE;
    }
    for (int argument = firstSize; argument < argc; ++argument) {
        const int size = QByteArray(argv[argument]).toInt();
        const QString file = QStringLiteral("%1/%2x%2/apps/%3")
                                 .arg(QString::fromLocal8Bit(argv[2]))
                                 .arg(size)
                                 .arg(QString::fromLocal8Bit(argv[3]));
        if (size <= 0 || !draw(picture, size, file)) {
            std::fprintf(stderr, "%s cannot be written.\n", qPrintable(file));
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
