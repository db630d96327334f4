#include "timeline/EmptyWindowNotice.h"

#include "browse/IconSet.h"

#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int margin = 8;
constexpr int iconRoom = 40;

} // namespace

EmptyWindowNotice::EmptyWindowNotice(QWidget* parent)
    : QWidget(parent),
      m_text(new QLabel(this)),
      m_before(makeLink(QStringLiteral("lnkBefore"), QStringLiteral("go-previous"))),
      m_after(makeLink(QStringLiteral("lnkAfter"), QStringLiteral("go-next")))
{
    setObjectName(QStringLiteral("pnlEmptyWindow"));
    m_text->setObjectName(QStringLiteral("lblEmptyWindow"));
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setForegroundRole(QPalette::PlaceholderText);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_text);
    layout->addWidget(m_before, 0, Qt::AlignHCenter);
    layout->addWidget(m_after, 0, Qt::AlignHCenter);
    // the lines of the grid do not run through the words
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
    connect(link, &QToolButton::clicked, this,
            [this, link] { Q_EMIT chosen(link->property("tag").toLongLong()); });
    return link;
}

void EmptyWindowNotice::fill(QToolButton& link, const std::optional<NearestEvent>& nearest,
                             const QString& words)
{
    link.setVisible(nearest.has_value());
    if (!nearest) return;
    const QString whole = words.arg(dateTimeText(nearest->start)) + nearest->eventName;
    const int room = parentWidget()->width() - 2 * margin - iconRoom;
    QString text = link.fontMetrics().elidedText(whole, Qt::ElideRight, room);
    // a button would take an ampersand for the mark of a key
    link.setText(text.replace(u'&', QStringLiteral("&&")));
    link.setAccessibleName(whole);
    link.setProperty("tag", nearest->eventId);
}

void EmptyWindowNotice::showNearest(const std::optional<NearestEvent>& before,
                                    const std::optional<NearestEvent>& after)
{
    m_text->setText(before || after ? tr("No events in this window.") : tr("No events to show."));
    fill(*m_before, before, tr("Before: %1  "));
    fill(*m_after, after, tr("After: %1  "));
    show();
    resize(sizeHint().boundedTo(parentWidget()->size()));
    move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
}
