// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/PictureImage.h"

#include "util/Error.h"
#include "widgets/Paper.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgGenerator>

#include <algorithm>
#include <cerrno>

namespace {

constexpr int times = 2; ///< the size of an image

// pixels
constexpr int margin = 12;
constexpr int narrowestCaption = 300;

/// The dots per inch, or per metre, for which logical pixels are made.
constexpr int dotsPerInch = 96;
constexpr int dotsPerMetre = 3780;

/// The caption of a picture: lines in bold, then the note.
struct Caption
{
    QFont bold;
    QFont plain;
    QStringList lines;
    QStringList note;

    [[nodiscard]] int height() const
    {
        return static_cast<int>(lines.size()) * QFontMetrics(bold).height() +
               static_cast<int>(note.size()) * QFontMetrics(plain).height() + margin;
    }

    void draw(QPainter& painter) const
    {
        int top = 0;
        const auto write = [&](const QStringList& texts, const QFont& font, const QColor& colour) {
            const QFontMetrics metrics(font);
            painter.setFont(font);
            painter.setPen(colour);
            for (const QString& text : texts) {
                painter.drawText(QPointF(0, top + metrics.ascent()), text);
                top += metrics.height();
            }
        };
        write(lines, bold, Qt::black);
        write(note, plain, Paper::faint);
    }
};

[[noreturn]] void failTooLarge()
{
    throw Error(ENOMEM, QCoreApplication::translate("PictureImage", "The picture is too large."));
}

/// Takes out the groups that hold nothing, which are most, and the characters of a document's text that XML
/// must not have; names other fonts in case that one is missing.
QByteArray tidied(const QByteArray& svg)
{
    static const QRegularExpression forbidden(
        QStringLiteral("[^\\x{9}\\x{A}\\x{D}\\x{20}-\\x{FFFD}\\x{10000}-\\x{10FFFF}]"));
    static const QRegularExpression empty(QStringLiteral("<g [^>]*>\\s*</g>\\s*"));
    static const QRegularExpression family(QStringLiteral("font-family=\"([^\"]*)\""));
    QString text = QString::fromUtf8(svg);
    text.remove(forbidden).remove(empty);
    return text.replace(family, QStringLiteral("font-family=\"'\\1', sans-serif\"")).toUtf8();
}

} // namespace

GraphicPicture PictureImage::captioned(const GraphicPicture& picture, const QString& caption,
                                       const QString& note, const QFont& font)
{
    constexpr int mostLines = 4;
    constexpr double larger = 1.25;
    const int width = std::max(picture.size.width(), narrowestCaption);
    Caption above{Paper::font(font), Paper::font(font), {}, {}};
    above.bold.setBold(true);
    above.bold.setPixelSize(static_cast<int>(above.plain.pixelSize() * larger));
    above.lines = Paper::lines(caption, above.bold, width, mostLines);
    above.note = Paper::lines(note, above.plain, width, 1);
    const int indent = (width - picture.size.width()) / 2;
    const QSize size(width + 2 * margin, picture.size.height() + above.height() + 2 * margin);
    return {picture.name, size, [=](QPainter& painter) {
                painter.save();
                painter.fillRect(QRect(QPoint(), size), Qt::white);
                painter.translate(margin, margin);
                above.draw(painter);
                painter.translate(indent, above.height());
                picture.draw(painter);
                painter.restore();
            }};
}

QImage PictureImage::image(const GraphicPicture& picture)
{
    QImage image(picture.size * times, QImage::Format_RGB32);
    image.setDevicePixelRatio(times);
    image.fill(Qt::white);
    QPainter painter;
    if (!painter.begin(&image)) failTooLarge();
    painter.setRenderHint(QPainter::TextAntialiasing);
    picture.draw(painter);
    painter.end();
    // programs that know the density show it at the size of the graphic
    image.setDevicePixelRatio(1);
    image.setDotsPerMeterX(dotsPerMetre * times);
    image.setDotsPerMeterY(dotsPerMetre * times);
    return image;
}

QByteArray PictureImage::png(const GraphicPicture& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image(picture).save(&buffer, "PNG")) failTooLarge();
    return bytes;
}

QByteArray PictureImage::svg(const GraphicPicture& picture, const QString& description)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(dotsPerInch);
    generator.setSize(picture.size);
    generator.setViewBox(QRect(QPoint(), picture.size));
    generator.setTitle(picture.name);
    generator.setDescription(description);
    QPainter painter(&generator);
    picture.draw(painter);
    painter.end();
    return tidied(bytes);
}
