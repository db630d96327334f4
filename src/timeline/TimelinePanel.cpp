// SPDX-License-Identifier: GPL-3.0-or-later

#include "timeline/TimelinePanel.h"

#include "timeline/EventMarker.h"
#include "timeline/RulerStrip.h"
#include "timeline/TimelineBand.h"
#include "timeline/TimelineColours.h"
#include "timeline/TimelineInput.h"
#include "timeline/TimelinePicture.h"
#include "timeline/frmGoToDate.h"
#include "widgets/IconSet.h"
#include "widgets/Paper.h"
#include "widgets/PictureLegend.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolButton>

TimelinePanel::TimelinePanel(DatabaseSession& session, ViewHistory& history, const Clock& clock,
                             Messages& messages, QWidget* parent)
    : QWidget(parent),
      m_timeline(
          session, history, clock, messages, [this](const QString& text) { return captionWidth(text); },
          [this](const QString& text, bool isDate) { return labelWidth(text, isDate); })
{
    setObjectName(QStringLiteral("pnlTimeline"));
    makeParts();
    showAll();
}

void TimelinePanel::makeParts()
{
    // from top to bottom, so that Tab takes them in this order
    m_band = new TimelineBand(m_timeline, this);
    m_ruler = new RulerStrip(m_timeline, this);
    m_picture = new TimelinePicture(m_timeline, this);
    m_scrollBar = new QScrollBar(Qt::Vertical, this);
    m_scrollBar->setObjectName(QStringLiteral("VScroll1"));
    m_scrollBar->setAccessibleName(tr("Lanes"));
    // the picture keeps its width if the bar is hidden
    QSizePolicy policy = m_scrollBar->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_scrollBar->setSizePolicy(policy);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeButtons(), 0, 0, 1, 2);
    layout->addWidget(m_band, 1, 0);
    layout->addWidget(m_ruler, 2, 0);
    layout->addWidget(m_picture, 3, 0);
    layout->addWidget(m_scrollBar, 3, 1);
    layout->setColumnStretch(0, 1);
    setFocusProxy(m_picture);
    connectParts();
}

void TimelinePanel::connectParts()
{
    auto* input = new TimelineInput(m_timeline, {m_ruler, m_picture}, *this);
    connect(input, &TimelineInput::moved, this, &TimelinePanel::showAll);
    connect(input, &TimelineInput::lanesScrolled, this, &TimelinePanel::scrollLanes);
    connect(input, &TimelineInput::eventChosen, this, [this](qint64 eventId) {
        showAll();
        Q_EMIT eventSelected(eventId);
        // the list has told them of its row, though it does not have the focus
        m_picture->announceSelected();
    });
    connect(m_band, &TimelineBand::periodChosen, this, [this](Moment leftEdge, int zoomFactor) {
        m_timeline.showPeriod(leftEdge, zoomFactor);
        showAll();
    });
    connect(m_scrollBar, &QScrollBar::valueChanged, this, [this](int value) {
        m_timeline.VScroll1_Change(value);
        showAll();
    });
    connect(m_picture, &TimelinePicture::resized, this, [this](int width, int height) {
        m_timeline.resize(width, height);
        showAll();
    });
    connect(m_picture, &TimelinePicture::eventClicked, this, &TimelinePanel::select);
    connect(m_picture, &TimelinePicture::eventDoubleClicked, this, &TimelinePanel::eventOpened);
    connect(m_picture, &TimelinePicture::eventMenuRequested, this,
            [this](qint64 eventId, const QPoint& position) {
                select(eventId);
                Q_EMIT eventMenuRequested(position);
            });
    connect(m_picture, &TimelinePicture::nearestChosen, this, [this](qint64 eventId) {
        chooseEvent(eventId);
        Q_EMIT eventSelected(eventId);
    });
}

void TimelinePanel::select(qint64 eventId)
{
    m_timeline.selectEvent(eventId);
    showAll();
    Q_EMIT eventSelected(eventId);
}

QWidget* TimelinePanel::makeButtons()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    const auto add = [&](const char* name, const char* icon, const QString& text, const QString& key,
                         Handler handler) {
        QToolButton* button =
            makeButton(QString::fromLatin1(name), QString::fromLatin1(icon), text, key, handler);
        layout->addWidget(button);
        return button;
    };
    add("NavBeginning", "go-first", tr("Beginning of the timeline"), tr("Home"), &Timeline::NavBeginning);
    add("NavJumpBack", "arrow-left-double", tr("Jump back"), tr("Ctrl+Left"), &Timeline::NavJumpBack);
    add("NavStepBack", "go-previous", tr("Step back"), tr("Left"), &Timeline::NavStepBack);
    add("NavStepForward", "go-next", tr("Step forward"), tr("Right"), &Timeline::NavStepForward);
    add("NavJumpForward", "arrow-right-double", tr("Jump forward"), tr("Ctrl+Right"),
        &Timeline::NavJumpForward);
    add("NavEnd", "go-last", tr("End of the timeline"), tr("End"), &Timeline::NavEnd);
    layout->addStretch(1);
    m_moreBelow = makeMoreBelow();
    layout->addWidget(m_moreBelow);
    m_zoomIn = add("ZoomIn", "list-add", tr("Finer scale"), tr("+"), &Timeline::ZoomIn);
    m_zoomLabel = new QLabel(row);
    m_zoomLabel->setObjectName(QStringLiteral("uZoomLabel"));
    m_zoomLabel->setAccessibleName(tr("One step of the scale"));
    m_zoomLabel->setAlignment(Qt::AlignCenter);
    int widest = 0;
    for (int level = 0; level < TimelineScale::namedLevels; ++level) {
        const QString name = QStringLiteral("  %1  ").arg(TimelineScale::zoomName(level));
        widest = std::max(widest, m_zoomLabel->fontMetrics().horizontalAdvance(name));
    }
    m_zoomLabel->setMinimumWidth(widest);
    layout->addWidget(m_zoomLabel);
    m_zoomOut = add("ZoomOut", "list-remove", tr("Coarser scale"), tr("-"), &Timeline::ZoomOut);
    return row;
}

QToolButton* TimelinePanel::makeButton(const QString& name, const QString& icon, const QString& text,
                                       const QString& key, Handler handler)
{
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setAccessibleName(text);
    button->setToolTip(QStringLiteral("%1 (%2)").arg(text, key));
    button->setIcon(IconSet::themeIcon(icon));
    button->setAutoRaise(true);
    button->setAutoRepeat(true);
    // the buttons have keys of their own; a click leaves the focus where it is
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, this, [this, handler] { run(handler); });
    return button;
}

/// Says how many events of the window lie below the lanes, and scrolls to them.
QToolButton* TimelinePanel::makeMoreBelow()
{
    auto* button = new QToolButton(this);
    button->setObjectName(QStringLiteral("cmdMoreBelow"));
    button->setToolTip(tr("Scroll the lanes (Page Down)"));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, this, [this] { scrollLanes(m_timeline.laneCount()); });
    return button;
}

int TimelinePanel::captionWidth(const QString& text) const
{
    return m_picture->fontMetrics().horizontalAdvance(text) + 1;
}

int TimelinePanel::labelWidth(const QString& text, bool isDate) const
{
    return m_ruler->labelWidth(text, isDate);
}

void TimelinePanel::run(Handler handler)
{
    (m_timeline.*handler)();
    showAll();
}

void TimelinePanel::mainLoad()
{
    m_timeline.mainLoad();
    showAll();
}

void TimelinePanel::drawTimeline()
{
    m_timeline.drawTimeline();
    showAll();
}

void TimelinePanel::chooseEvent(qint64 eventId)
{
    m_timeline.chooseEvent(eventId);
    showAll();
}

void TimelinePanel::showSelected()
{
    m_timeline.showSelected();
    showAll();
}

void TimelinePanel::updateTimeline(std::optional<Moment> savedStart)
{
    m_timeline.updateTimeline(savedStart);
    showAll();
}

void TimelinePanel::goToDate()
{
    frmGoToDate dialog(m_timeline, this);
    if (dialog.exec() == QDialog::Accepted) showAll();
}

void TimelinePanel::showAll()
{
    const QSignalBlocker blocker(m_scrollBar);
    const LaneScroll& scroll = m_timeline.scroll();
    m_scrollBar->setRange(0, scroll.max);
    m_scrollBar->setPageStep(std::max(1, m_timeline.laneCount()));
    m_scrollBar->setValue(scroll.value);
    m_scrollBar->setVisible(scroll.isShown);

    const TimeWindow& window = m_timeline.window();
    const int below = scroll.max - scroll.value;
    m_moreBelow->setText(tr("%1 more below", nullptr, below).arg(QLocale(QLocale::English).toString(below)));
    m_moreBelow->setVisible(below > 0);
    m_zoomLabel->setText(TimelineScale::zoomName(window.zoomFactor()));
    m_zoomIn->setEnabled(window.canZoomIn());
    m_zoomOut->setEnabled(window.canZoomOut());
    m_band->showWindow();
    m_ruler->showRuler();
    m_picture->showLanes();
}

std::optional<GraphicPicture> TimelinePanel::picture() const
{
    const auto lanes = static_cast<int>(m_timeline.lanes().size());
    if (lanes == 0) return std::nullopt;
    const int lanesHeight = lanes * TimelineLanes::laneHeight;
    const PictureLegend legend = this->legend();
    const QSize size(m_picture->width(), m_ruler->height() + lanesHeight + legend.height());
    return GraphicPicture{tr("Timeline"), size, [this, lanesHeight, legend](QPainter& painter) {
                              const QPalette colours = Paper::palette();
                              painter.save();
                              painter.setFont(Paper::font(m_ruler->font()));
                              m_ruler->draw(painter, colours);
                              painter.translate(0, m_ruler->height());
                              painter.setFont(Paper::font(m_picture->font()));
                              m_picture->draw(painter, colours, lanesHeight);
                              painter.translate(0, lanesHeight);
                              legend.draw(painter);
                              painter.restore();
                          }};
}

/// What the signs of the lanes mean and, if some events of the window have no lane in sight, how many have.
PictureLegend TimelinePanel::legend() const
{
    using Picture = EventMarker::Picture;
    const std::vector<Lane>& lanes = m_timeline.lanes();
    PictureLegend legend(font(), m_picture->width());
    const auto markerAs = [](Picture picture) {
        return [picture](QPainter& painter, QPointF middle) {
            EventMarker::draw(painter, picture, middle, middle.x() * 2, Qt::black);
        };
    };
    legend.add(
        [](QPainter& painter, QPointF middle) {
            painter.fillRect(QRectF(middle - QPointF(8, 5), QSizeF(16, 10)), TimelineColours::event);
        },
        tr("Event"));
    legend.add(markerAs(Picture::imgDefault), tr("Event that takes no time"));
    legend.add(markerAs(Picture::imgDefaultKey), tr("Key event"));
    if (lanes.size() < m_timeline.hitCount()) {
        const QLocale english(QLocale::English);
        legend.add({}, tr("%1 of %2 events of this period")
                           .arg(english.toString(lanes.size()), english.toString(m_timeline.hitCount())));
    }
    return legend;
}

void TimelinePanel::scrollLanes(int lanes)
{
    if (m_timeline.scroll().isShown) m_scrollBar->setValue(m_scrollBar->value() + lanes);
}

void TimelinePanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::FontChange || m_picture == nullptr) return;
    // captions and labels are measured anew in the new font
    m_picture->chooseFont();
    m_timeline.resize(m_picture->width(), m_picture->height());
    showAll();
}
