// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/EmptyWindowNotice.h"

#include "widgets/IconSet.h"
#include "widgets/PlainToolTip.h"

#include <QBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace {

constexpr int margin = 8;
constexpr int iconRoom = 40;

} // namespace

EmptyWindowNotice::EmptyWindowNotice(QWidget* parent)
    : QWidget(parent),
      m_layout(new QBoxLayout(QBoxLayout::TopToBottom, this)),
      m_text(new QLabel(this)),
      m_before(makeLink(QStringLiteral("lnkBefore"), QStringLiteral("go-previous"))),
      m_after(makeLink(QStringLiteral("lnkAfter"), QStringLiteral("go-next")))
{
    setObjectName(QStringLiteral("pnlEmptyWindow"));
    m_text->setObjectName(QStringLiteral("lblEmptyWindow"));
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setForegroundRole(QPalette::Text);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(2);
    m_layout->addWidget(m_text);
    m_layout->addWidget(m_before, 0, Qt::AlignCenter);
    m_layout->addWidget(m_after, 0, Qt::AlignCenter);
    // hides the grid behind the text
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    hide();
}

QToolButton* EmptyWindowNotice::makeLink(const QString& name, const QString& icon)
{
    auto* link = new QToolButton(this);
    link->setObjectName(name);
    link->setIcon(IconSet::themeIcon(icon));
    link->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    link->setAutoRaise(true);
    link->setCursor(Qt::PointingHandCursor);
    connect(link, &QToolButton::clicked, this, [this, link] {
        // the link is about to be hidden; the focus goes back to the timeline
        if (link->hasFocus()) parentWidget()->setFocus();
        Q_EMIT chosen(link->property("tag").toLongLong());
    });
    return link;
}

void EmptyWindowNotice::fill(QToolButton& link, const std::optional<NearestEvent>& nearest,
                             const QString& words, int room)
{
    link.setVisible(nearest.has_value());
    if (!nearest) return;
    const QString whole = words.arg(dateTimeText(nearest->start), nearest->eventName);
    QString text = link.fontMetrics().elidedText(whole, Qt::ElideRight, room - iconRoom);
    // a button takes a single ampersand as the mark of a mnemonic
    link.setText(text.replace(u'&', QStringLiteral("&&")));
    link.setAccessibleName(whole);
    link.setToolTip(PlainToolTip::text(whole));
    link.setProperty("tag", nearest->eventId);
}

void EmptyWindowNotice::showNearest(const std::optional<NearestEvent>& before,
                                    const std::optional<NearestEvent>& after)
{
    const QSize whole = parentWidget()->size() - QSize(2 * margin, 0);
    m_text->setText(before || after ? tr("No events in this window.") : tr("No events to show."));
    const auto fillBoth = [&](int room) {
        fill(*m_before, before, tr("Before: %1  %2"), room);
        fill(*m_after, after, tr("After: %1  %2"), room);
    };
    m_layout->setDirection(QBoxLayout::TopToBottom);
    fillBoth(whole.width());
    if (m_layout->sizeHint().height() > whole.height()) {
        m_layout->setDirection(QBoxLayout::LeftToRight);
        const int links = before && after ? 2 : 1;
        fillBoth((whole.width() - m_text->sizeHint().width()) / links - m_layout->spacing());
    }
    show();
    resize(m_layout->sizeHint().boundedTo(whole));
    move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
}
