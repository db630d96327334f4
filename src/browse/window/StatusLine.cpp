// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/StatusLine.h"

#include "util/ReadableLine.h"
#include "widgets/ElidedLabel.h"
#include "widgets/LinkButton.h"
#include "widgets/PlainToolTip.h"

#include <QHBoxLayout>
#include <QMainWindow>
#include <QStatusBar>

namespace {

constexpr int gap = 16; ///< pixels between two counts

} // namespace

StatusLine::StatusLine(QMainWindow& window)
    : QObject(&window),
      m_view(new QLabel(&window)),
      m_change(new QWidget(&window)),
      m_saved(new ElidedLabel(m_change)),
      m_undo(new LinkButton(m_change)),
      m_notice(new ElidedLabel(&window)),
      m_reading(new QWidget(&window)),
      m_progress(new QLabel(m_reading)),
      m_readingLink(new LinkButton(m_reading)),
      m_selection(new QLabel(&window)),
      m_status(new QLabel(&window))
{
    m_view->setObjectName(QStringLiteral("pnlView"));
    m_view->setTextFormat(Qt::PlainText);
    m_view->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_change->setObjectName(QStringLiteral("pnlChange"));
    m_saved->setObjectName(QStringLiteral("pnlSaved"));
    m_undo->setObjectName(QStringLiteral("cmdUndo"));
    m_undo->setLink(tr("Undo"));
    connect(m_undo, &LinkButton::clicked, this, &StatusLine::undoAsked);
    m_notice->setObjectName(QStringLiteral("pnlNotice"));
    m_selection->setObjectName(QStringLiteral("pnlSelection"));
    m_status->setObjectName(QStringLiteral("pnlStatus"));
    auto* change = new QHBoxLayout(m_change);
    change->setContentsMargins(0, 0, 0, 0);
    change->addWidget(m_saved, 1);
    change->addWidget(m_undo);
    change->addStretch();
    QStatusBar& bar = *window.statusBar();
    bar.addWidget(m_view, 1);
    m_selection->setContentsMargins(0, 0, gap, 0);
    bar.addPermanentWidget(m_change, 3); // mostly longer than the caption of the view
    bar.addPermanentWidget(m_notice, 1);
    addReading(bar);
    bar.addPermanentWidget(m_selection);
    bar.addPermanentWidget(m_status);
    m_change->hide();
    m_notice->hide();
    m_selection->hide();
    // while a menu is open, the line tells what its commands do
    connect(&bar, &QStatusBar::messageChanged, this,
            [this](const QString& tip) { m_change->setVisible(tip.isEmpty() && m_hasChange); });
}

void StatusLine::addReading(QStatusBar& bar)
{
    m_reading->setObjectName(QStringLiteral("pnlReading"));
    m_progress->setObjectName(QStringLiteral("pnlProgress"));
    m_progress->setTextFormat(Qt::PlainText);
    m_readingLink->setObjectName(QStringLiteral("cmdReading"));
    // it goes by itself, and the focus must not go with it from where the user is
    m_readingLink->setFocusPolicy(Qt::TabFocus);
    connect(m_readingLink, &LinkButton::clicked, this, &StatusLine::readingLinkFollowed);
    auto* reading = new QHBoxLayout(m_reading);
    reading->setContentsMargins(0, 0, gap, 0);
    reading->addWidget(m_progress);
    reading->addWidget(m_readingLink);
    bar.addPermanentWidget(m_reading);
    m_reading->hide();
}

void StatusLine::showView(const QString& caption, const QString& count)
{
    m_view->setText(caption);
    m_status->setText(count);
    showChange({});
    m_notice->clear();
    m_notice->hide();
}

void StatusLine::showCount(const QString& count)
{
    m_status->setText(count);
}

void StatusLine::showNotice(const QString& text)
{
    m_notice->setLine(text);
    m_notice->show();
}

void StatusLine::showSaved(RecordKind kind, const QString& name, bool isHidden)
{
    const QString text = kind == RecordKind::Document ? tr("Saved: Document \"%1\"")
                         : kind == RecordKind::Event  ? tr("Saved: Event \"%1\"")
                                                      : tr("Saved: Organization \"%1\"");
    const QString line = text.arg(readableLine(name));
    showChange(isHidden ? tr("%1 (hidden by the filter)").arg(line) : line);
}

void StatusLine::showDeleted(RecordKind kind, const QStringList& names, const QString& undo)
{
    const int count = static_cast<int>(names.size());
    const auto one = [&](const QString& text) { return text.arg(readableLine(names.front())); };
    switch (kind) {
    case RecordKind::Document:
        showChange(count == 1 ? one(tr("Deleted: Document \"%1\""))
                              : tr("%n Documents deleted.", nullptr, count));
        break;
    case RecordKind::Event:
        showChange(count == 1 ? one(tr("Deleted: Event \"%1\"")) : tr("%n Events deleted.", nullptr, count));
        break;
    case RecordKind::Organization:
        showChange(count == 1 ? one(tr("Deleted: Organization \"%1\""))
                              : tr("%n Organizations deleted.", nullptr, count));
        break;
    }
    m_undo->setAccessibleName(undo);
    m_undo->setToolTip(PlainToolTip::text(undo));
    m_undo->show();
}

void StatusLine::showChange(const QString& text)
{
    m_undo->hide();
    m_saved->setLine(text);
    // so wide that the link follows the text at once
    m_saved->setMaximumWidth(m_saved->sizeHint().width());
    m_hasChange = !text.isEmpty();
    m_change->setVisible(m_hasChange);
}

void StatusLine::showSelected(std::size_t rows)
{
    m_selection->setText(rows == 1 ? tr("1 row selected")
                                   : tr("%n rows selected", nullptr, static_cast<int>(rows)));
    m_selection->setVisible(rows > 0);
}

void StatusLine::showReading(const QString& text, const QString& link, const QString& explanation)
{
    m_progress->setText(text);
    m_readingLink->setLink(link);
    m_readingLink->setToolTip(PlainToolTip::text(explanation));
    m_readingLink->setAccessibleDescription(text);
    m_reading->setVisible(!text.isEmpty());
}
