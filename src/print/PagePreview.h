// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QWidget>

#include <limits>

class PrintedPages;

/// Shows a page as large as there is room for it. It is white also on a dark desktop.
class PagePreview final : public QWidget
{
    Q_OBJECT

public:
    explicit PagePreview(QWidget* parent);

    /// Paints a page anew. Throws Error.
    void show(PrintedPages& pages, int page);

    /// Shows no page.
    void clear();

    [[nodiscard]] QSize sizeHint() const override { return {480, 560}; }

    /// As many pages further on as lead to the last one from any.
    static constexpr int toTheEnd = std::numeric_limits<int>::max() / 2;

Q_SIGNALS:
    /// The page has to be painted anew, for another size.
    void outdated();

    /// The user wants a page so many further on.
    void turned(int pages);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QImage m_page;
    int m_wheel = 0; ///< how far the wheel was turned since the last page
};
