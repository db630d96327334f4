// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "widgets/GraphicPicture.h"

#include <QByteArray>
#include <QFont>
#include <QImage>

/// What is made of a picture. Throws Error if it is too large for that.
namespace PictureImage {

/// Returns the picture on a white sheet with a caption above, and a note below that, in that font.
[[nodiscard]] GraphicPicture captioned(const GraphicPicture& picture, const QString& caption,
                                       const QString& note, const QFont& font);

/// At twice the size.
[[nodiscard]] QImage image(const GraphicPicture& picture);

/// A PNG file of that image.
[[nodiscard]] QByteArray png(const GraphicPicture& picture);

/// An SVG file that is called like the picture, with a description.
[[nodiscard]] QByteArray svg(const GraphicPicture& picture, const QString& description);

} // namespace PictureImage
