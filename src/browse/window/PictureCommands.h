// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Platform.h"
#include "widgets/GraphicPicture.h"

#include <QByteArray>
#include <QObject>

#include <optional>

class MainCommands;
class ShownView;

/// The commands that copy and save the picture of a graphic. Lives as long as the window.
class PictureCommands final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    PictureCommands(const Platform& platform, const ShownView& view, const MainCommands& commands,
                    QObject* parent);

    void copy();
    void save();

Q_SIGNALS:
    /// Says which picture was copied or saved; the text is empty if none was.
    void done(const QString& text);

private:
    [[nodiscard]] std::optional<GraphicPicture> picture() const;
    [[nodiscard]] QByteArray svg(const GraphicPicture& picture) const;

    Platform m_platform;
    const ShownView& m_view;
};
