// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "print/PrintedPages.h"
#include "widgets/GraphicPicture.h"

/// A graphic on one page, as large as fits.
class GraphicPages final : public PrintedPages
{
public:
    GraphicPages(const QString& caption, GraphicPicture picture)
        : PrintedPages(caption), m_picture(std::move(picture))
    {
    }

    [[nodiscard]] int count() const override { return 1; }

protected:
    void restart() override {}
    double measureMore() override { return 1; }
    void paintContent(QPainter& painter, int page) override;

private:
    GraphicPicture m_picture;
};
