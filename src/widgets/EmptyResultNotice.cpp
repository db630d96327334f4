// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/EmptyResultNotice.h"

#include "widgets/LinkButton.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int largestWidth = 520;
constexpr int margin = 12;

} // namespace

EmptyResultNotice::EmptyResultNotice(QAbstractScrollArea& area)
    : QWidget(&area), m_viewport(*area.viewport()), m_text(new QLabel(this)), m_link(new LinkButton(this))
{
    setObjectName(QStringLiteral("EmptyResultNotice"));
    m_text->setObjectName(QStringLiteral("lblEmptyResult"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setAlignment(Qt::AlignHCenter);
    m_link->setObjectName(QStringLiteral("lblSearchAgain"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addWidget(m_link, 0, Qt::AlignHCenter);
    hide();
    m_viewport.installEventFilter(this);
    connect(m_link, &LinkButton::clicked, this, &EmptyResultNotice::linkFollowed);
}

void EmptyResultNotice::showNotice(const QString& text, const QString& link)
{
    m_text->setText(text);
    m_link->setLink(link);
    m_link->setVisible(!link.isEmpty());
    placeInMiddle();
    show();
    raise();
}

bool EmptyResultNotice::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &m_viewport && event->type() == QEvent::Resize) placeInMiddle();
    return QWidget::eventFilter(watched, event);
}

void EmptyResultNotice::placeInMiddle()
{
    const int width = std::clamp(m_viewport.width() - 2 * margin, 0, largestWidth);
    const int height = std::min(layout()->totalHeightForWidth(width), m_viewport.height());
    const QPoint middle = m_viewport.geometry().center();
    setGeometry(middle.x() - width / 2, middle.y() - height / 2, width, height);
}
