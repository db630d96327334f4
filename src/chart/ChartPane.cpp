// SPDX-License-Identifier: GPL-3.0-or-later

#include "chart/ChartPane.h"

#include "chart/ChartView.h"
#include "data/DatabaseSession.h"
#include "platform/Procedure.h"
#include "platform/StdREG.h"
#include "util/ReadableLine.h"
#include "views/ViewHistory.h"
#include "widgets/Paper.h"
#include "widgets/PictureLegend.h"

#include <QActionGroup>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace {

QString section()
{
    return QStringLiteral("Window");
}

QString barsName()
{
    return QStringLiteral("ChartBars");
}

QString horizontalBars()
{
    return QStringLiteral("Horizontal");
}

QString orderName()
{
    return QStringLiteral("ChartOrder");
}

} // namespace

ChartPane::ChartPane(DatabaseSession& session, ViewHistory& history, const StandardQueries& queries,
                     SettingsStore& settings, Messages& messages, QWidget* parent)
    : QWidget(parent),
      m_session(session),
      m_history(history),
      m_settings(settings),
      m_messages(messages),
      m_showOnly(session, queries),
      m_tools(new QToolBar(this)),
      m_orders(new QActionGroup(this)),
      m_area(new QScrollArea(this)),
      m_chart(new ChartView(m_area)),
      m_more(new QLabel(this)),
      m_menu(new QMenu(this))
{
    setObjectName(QStringLiteral("ChartPane"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tools);
    layout->addWidget(m_area);
    layout->addWidget(m_more);
    m_more->setObjectName(QStringLiteral("lblMoreTypes"));
    m_more->setAlignment(Qt::AlignRight);
    m_more->setToolTip(tr("Types with fewer documents, of which the chart has no bars"));
    m_more->hide();
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setWidgetResizable(true);
    m_area->setWidget(m_chart);
    // the title and the axis, which do not scroll, are drawn anew
    connect(m_area->horizontalScrollBar(), &QScrollBar::valueChanged, m_chart->viewport(),
            qOverload<>(&QWidget::update));
    makeTools();
    setFocusProxy(m_chart);
    connect(m_chart, &ChartView::barSelected, this, &ChartPane::selectBar);

    m_menu->setObjectName(QStringLiteral("popDocTab"));
    m_showOnlyType = m_menu->addAction(QString(), this, &ChartPane::showOnlyType);
    m_showOnlyType->setObjectName(QStringLiteral("popDocTabShowOnlyType"));
}

ChartPane::~ChartPane() = default;

void ChartPane::makeTools()
{
    m_tools->setObjectName(QStringLiteral("tbChart"));
    QAction* horizontal = addTool(QStringLiteral("chartHorizontal"), tr("Horizontal Bars"),
                                  tr("Lay the bars down, with their names whole beside them"));
    connect(horizontal, &QAction::triggered, this, [this](bool isHorizontal) {
        StdREG(m_settings).WriteRegString(section(), barsName(), isHorizontal ? horizontalBars() : QString());
        layBars(isHorizontal);
    });
    m_tools->addSeparator();
    m_orders->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    addOrder(TypeOrder::ByNumber, QStringLiteral("ByNumber"), tr("By Number"),
             tr("Sort the bars: types with the most documents first"));
    addOrder(TypeOrder::ByName, QStringLiteral("ByName"), tr("By Name"),
             tr("Sort the bars by the names of the types"));
    horizontal->setChecked(StdREG(m_settings).GetRegString(section(), barsName()) == horizontalBars());
    layBars(horizontal->isChecked());
}

QAction* ChartPane::addTool(const QString& name, const QString& text, const QString& tip)
{
    QAction* action = m_tools->addAction(text);
    action->setObjectName(name);
    action->setToolTip(tip);
    action->setCheckable(true);
    QWidget* button = m_tools->widgetForAction(action);
    button->setFocusPolicy(Qt::TabFocus);
    setTabOrder(button, m_chart);
    return action;
}

/// Adds the tool of an order, which is kept under its name. Pressed again, it leaves the bars as they were
/// read.
void ChartPane::addOrder(TypeOrder order, const QString& name, const QString& text, const QString& tip)
{
    QAction* action = addTool(QStringLiteral("chart") + name, text, tip);
    m_orders->addAction(action);
    if (StdREG(m_settings).GetRegString(section(), orderName()) == name) {
        action->setChecked(true);
        m_order = order;
    }
    connect(action, &QAction::triggered, this, [this, order, name](bool isChosen) {
        StdREG(m_settings).WriteRegString(section(), orderName(), isChosen ? name : QString());
        setOrder(isChosen ? order : TypeOrder::AsRead);
    });
}

void ChartPane::layBars(bool horizontal)
{
    m_area->setVerticalScrollBarPolicy(horizontal ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    m_area->setHorizontalScrollBarPolicy(horizontal ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    m_chart->setHorizontal(horizontal);
    showCurrentBar();
}

/// The bar that is the current one stays it.
void ChartPane::setOrder(TypeOrder order)
{
    m_order = order;
    const std::optional<int> current = m_chart->currentBar();
    const qint64 type = current ? m_chart->counts().at(static_cast<std::size_t>(*current)).type : 0;
    showBars();
    if (!current) return;
    const auto bar = std::ranges::find(m_chart->counts(), type, &DocumentTypeCount::type);
    m_chart->setCurrentBar(static_cast<int>(bar - m_chart->counts().begin()));
    showCurrentBar();
}

void ChartPane::showBars()
{
    std::vector<DocumentTypeCount> counts = m_counts;
    sortTypes(counts, m_order);
    m_chart->setCounts(std::move(counts));
}

void ChartPane::showCurrentBar()
{
    const std::optional<int> bar = m_chart->currentBar();
    if (!bar) return;
    const QRect place = m_chart->barRect(*bar);
    constexpr int around = 50;
    m_area->ensureVisible(place.center().x(), place.center().y(), around, std::max(around, place.height()));
}

void ChartPane::drawCharts()
{
    m_selectedDocType.clear();
    m_counts.clear();
    try {
        m_counts = countDocumentTypes(m_session, *m_history.graphicQuery());
    } catch (const Error&) {
        // the list reports it
    }
    m_leftOut = keepReadable(m_counts);
    m_more->setText(tr("and %1 more", nullptr, static_cast<int>(m_leftOut))
                        .arg(QLocale(QLocale::English).toString(m_leftOut)));
    m_more->setVisible(m_leftOut > 0);
    m_chart->setEmptyText({});
    showBars();
}

void ChartPane::describe(std::size_t documents)
{
    const auto highest = std::ranges::max_element(m_chart->counts(), {}, &DocumentTypeCount::documents);
    if (highest == m_chart->counts().end()) {
        const QString text =
            documents == 0 ? tr("No documents to show.") : tr("None of these documents has a type.");
        m_chart->setEmptyText(text);
        m_chart->setAccessibleDescription(text);
        return;
    }
    const QLocale english(QLocale::English);
    const auto bar = static_cast<int>(highest - m_chart->counts().begin());
    m_chart->setAccessibleDescription(tr("Types: %1. Documents in the list: %2. The longest bar is %3. The "
                                         "arrow keys go from bar to bar, the "
                                         "menu key opens a bar's menu")
                                          .arg(english.toString(m_counts.size() + m_leftOut),
                                               english.toString(documents),
                                               m_chart->accessibleItemName(bar)));
}

std::optional<GraphicPicture> ChartPane::picture() const
{
    if (m_chart->counts().empty()) return std::nullopt;
    // another chart of the same bars, since this one has the colours of the desktop
    const auto chart = std::make_shared<ChartView>(nullptr);
    chart->setPalette(Paper::palette());
    chart->setFont(Paper::font(m_chart->font()));
    chart->setHorizontal(m_chart->isHorizontal());
    chart->setCounts(m_chart->counts());
    chart->resizeUnseen(m_chart->size());
    PictureLegend legend(font(), chart->width());
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
    if (button == Qt::NoButton) showCurrentBar();
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
