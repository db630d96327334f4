// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/ChartPane.h"

#include "chart/ChartView.h"
#include "data/DatabaseSession.h"
#include "platform/Procedure.h"
#include "util/ReadableLine.h"
#include "views/ViewHistory.h"
#include "widgets/Paper.h"
#include "widgets/PictureLegend.h"

#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <memory>

ChartPane::ChartPane(DatabaseSession& session, ViewHistory& history, const StandardQueries& queries,
                     Messages& messages, QWidget* parent)
    : QWidget(parent),
      m_session(session),
      m_history(history),
      m_messages(messages),
      m_showOnly(session, queries),
      m_area(new QScrollArea(this)),
      m_chart(new ChartView(m_area)),
      m_more(new QLabel(this)),
      m_menu(new QMenu(this))
{
    setObjectName(QStringLiteral("ChartPane"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_area);
    layout->addWidget(m_more);
    m_more->setObjectName(QStringLiteral("lblMoreTypes"));
    m_more->setAlignment(Qt::AlignRight);
    m_more->setToolTip(tr("Types with fewer documents, of which the chart has no bars"));
    m_more->hide();
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setWidgetResizable(true);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setWidget(m_chart);
    // the title and the axis, which do not scroll, are drawn anew
    connect(m_area->horizontalScrollBar(), &QScrollBar::valueChanged, m_chart->viewport(),
            qOverload<>(&QWidget::update));
    setFocusProxy(m_chart);
    connect(m_chart, &ChartView::barSelected, this, &ChartPane::selectBar);

    m_menu->setObjectName(QStringLiteral("popDocTab"));
    m_showOnlyType = m_menu->addAction(QString(), this, &ChartPane::showOnlyType);
    m_showOnlyType->setObjectName(QStringLiteral("popDocTabShowOnlyType"));
}

ChartPane::~ChartPane() = default;

void ChartPane::drawCharts()
{
    m_selectedDocType.clear();
    std::vector<DocumentTypeCount> counts;
    try {
        counts = countDocumentTypes(m_session, *m_history.graphicQuery());
    } catch (const Error&) {
        // the list reports it
    }
    m_leftOut = keepReadable(counts);
    m_more->setText(tr("and %1 more", nullptr, static_cast<int>(m_leftOut))
                        .arg(QLocale(QLocale::English).toString(m_leftOut)));
    m_more->setVisible(m_leftOut > 0);
    m_chart->setEmptyText({});
    m_chart->setCounts(std::move(counts));
}

void ChartPane::explainEmpty(std::size_t documents)
{
    if (!m_chart->counts().empty()) return;
    m_chart->setEmptyText(documents == 0 ? tr("No documents to show.")
                                         : tr("None of these documents has a type."));
}

std::optional<GraphicPicture> ChartPane::picture() const
{
    if (m_chart->counts().empty()) return std::nullopt;
    // another chart of the same bars, since this one has the colours of the desktop
    const auto chart = std::make_shared<ChartView>(nullptr);
    chart->setPalette(Paper::palette());
    chart->setFont(Paper::font(m_chart->font()));
    chart->setCounts(m_chart->counts());
    chart->resizeUnseen(m_chart->size());
    PictureLegend legend(font(), m_chart->width());
    if (m_leftOut > 0) {
        const QString number = QLocale(QLocale::English).toString(m_leftOut);
        legend.add({}, tr("and %1 more types with fewer documents").arg(number));
    }
    const QSize size = chart->size() + QSize(0, legend.height());
    return GraphicPicture{tr("Chart"), size, [chart, legend](QPainter& painter) {
                              painter.save();
                              chart->draw(painter);
                              painter.translate(0, chart->height());
                              legend.draw(painter);
                              painter.restore();
                          }};
}

void ChartPane::selectBar(int bar, Qt::MouseButton button, const QPoint& position)
{
    m_mouse = {button, QGuiApplication::keyboardModifiers(), position};
    m_selectedDocType = m_chart->counts().at(static_cast<std::size_t>(bar)).name;
    const QPoint inArea = m_area->widget()->mapFromGlobal(position);
    if (button == Qt::NoButton) m_area->ensureVisible(inArea.x(), inArea.y());
    offerMenu();
}

void ChartPane::offerMenu()
{
    if (m_selectedDocType.isEmpty() || m_mouse.button != Qt::RightButton) return;
    // a menu takes a single ampersand as the mark of a mnemonic
    QString name = readableLine(m_selectedDocType);
    m_showOnlyType->setText(tr("Show Only %1 Documents").arg(name.replace(u'&', QStringLiteral("&&"))));
    m_menu->popup(m_mouse.position);
}

void ChartPane::showOnlyType()
{
    runProcedure(m_messages, QStringLiteral("popDocTabShowOnlyType"),
                 [this] { m_history.addView(m_showOnly.documentsOfType(m_selectedDocType)); });
}
