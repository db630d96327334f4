// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/frmPicList.h"

#include "editors/PickListModel.h"
#include "editors/PickListView.h"
#include "editors/PickedLists.h"
#include "lists/NewEntries.h"
#include "platform/Messages.h"
#include "platform/Procedure.h"
#include "widgets/LineEdit.h"
#include "widgets/WindowSize.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize firstSize(560, 560);
constexpr int besideTheColumn = 750 / 15; // twips in pixels
constexpr int columnOfTwo = 200;

} // namespace

frmPicList::frmPicList(const Platform& platform, DatabaseSession& session, QWidget* parent,
                       const NewEntries* newEntries)
    : QDialog(parent),
      m_platform(platform),
      m_session(session),
      m_newEntries(newEntries),
      m_model(new PickListModel(this))
{
    setObjectName(QStringLiteral("frmPicList"));
    makeParts();
    layOut();
    connectParts();
    WindowSize::restore(*this, m_platform.settings, firstSize);
}

void frmPicList::makeParts()
{
    m_filter = new LineEdit(this);
    m_filter->setObjectName(QStringLiteral("txtFilter"));
    m_filter->setAccessibleName(tr("Filter"));
    m_filter->setPlaceholderText(tr("Show only rows with these words"));
    m_filter->setClearButtonEnabled(true);
    m_list = new PickListView(this);
    m_list->setObjectName(QStringLiteral("lvPicList"));
    m_list->setModel(m_model);
    m_count = new QLabel(this);
    m_count->setObjectName(QStringLiteral("lblCount"));
    m_new = new QPushButton(tr("&New…"), this);
    m_new->setObjectName(QStringLiteral("cmdNew"));
    m_new->setAutoDefault(false);
    m_new->hide();
    m_ok = new QPushButton(tr("OK"), this);
    m_ok->setObjectName(QStringLiteral("cmdOK"));
    m_ok->setDefault(true);
    m_cancel = new QPushButton(tr("Cancel"), this);
    m_cancel->setObjectName(QStringLiteral("cmdCancel"));
    m_cancel->setAutoDefault(false);
}

void frmPicList::layOut()
{
    auto* caption = new QLabel(tr("&Filter:"), this);
    caption->setBuddy(m_filter);
    auto* top = new QHBoxLayout;
    top->addWidget(caption);
    top->addWidget(m_filter);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(m_ok, QDialogButtonBox::AcceptRole);
    buttons->addButton(m_cancel, QDialogButtonBox::RejectRole);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_count, 1);
    bottom->addWidget(m_new);
    bottom->addWidget(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_list);
    layout->addLayout(bottom);
}

void frmPicList::connectParts()
{
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_model->setFilter(text);
        m_list->setCurrentIndex(m_model->index(0, 0));
        countTicks();
    });
    connect(m_list, &PickListView::spacePressed, this, &frmPicList::toggleSelected);
    connect(m_list->header(), &QHeaderView::sectionClicked, this, &frmPicList::sortBy);
    connect(m_model, &PickListModel::ticksChanged, this, &frmPicList::countTicks);
    connect(m_new, &QPushButton::clicked, this, &frmPicList::addEntry);
    connect(m_ok, &QPushButton::clicked, this, &frmPicList::cmdOK);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
}

bool frmPicList::showList(PickListKind kind, PickedItems& chosen)
{
    bool hasRows = false;
    if (!runProcedure(m_platform.messages, QStringLiteral("showList"),
                      [&] { hasRows = fill(kind, chosen); })) {
        return false;
    }
    if (!hasRows) {
        m_platform.messages.show(emptyPickListText(kind));
        return false;
    }
    if (exec() != Accepted) return false;
    chosen = std::move(m_picked);
    return true;
}

bool frmPicList::fill(PickListKind kind, const PickedItems& chosen)
{
    std::vector<PickListRow> rows = readPickList(m_session, kind);
    if (rows.empty()) return false;
    m_kind = kind;
    if (const auto list = listOf(kind); list && m_newEntries != nullptr) {
        m_new->setToolTip(tr("Adds an entry to the list: %1").arg(listTitle(*list)));
        m_new->show();
    }
    m_model->setRows(std::move(rows), kind, chosen);
    const QString header = pickListHeaders(kind).join(QStringLiteral(", "));
    setWindowTitle(tr("Choose: %1").arg(header));
    m_list->setAccessibleName(header);
    giveColumnsTheirWidths(kind);
    m_list->setCurrentIndex(m_model->index(0, 0));
    return true;
}

void frmPicList::giveColumnsTheirWidths(PickListKind kind)
{
    layout()->activate();
    if (kind == PickListKind::CityLocations) {
        m_list->setColumnWidth(0, columnOfTwo);
        m_list->setColumnWidth(1, columnOfTwo);
    } else {
        m_list->setColumnWidth(0, m_list->width() - besideTheColumn);
    }
}

/// A new entry is ticked; the other ticks stay.
void frmPicList::addEntry()
{
    runProcedure(m_platform.messages, QStringLiteral("addEntry"), [this] {
        PickedItems chosen = m_model->ticked();
        const auto added = m_newEntries->add(*listOf(m_kind), {}, this);
        if (!added) return;
        chosen.push_back(clsPickListItem::of(added->key, added->name));
        m_filter->clear();
        m_model->setRows(readPickList(m_session, m_kind), m_kind, chosen);
        if (m_sortColumn >= 0) m_model->sort(m_sortColumn, m_sortOrder);
        for (int row = 0; row < m_model->rowCount(); ++row) {
            const QModelIndex index = m_model->index(row, 0);
            if (index.data(Qt::UserRole).toString() == chosen.back().key()) m_list->setCurrentIndex(index);
        }
    });
}

void frmPicList::cmdOK()
{
    // all of the ticked rows are handed back, or none
    if (runProcedure(m_platform.messages, QStringLiteral("cmdOK"),
                     [this] { m_picked = m_model->ticked(); })) {
        accept();
    }
}

void frmPicList::done(int result)
{
    WindowSize::save(*this, m_platform.settings);
    QDialog::done(result);
}

/// A filtered list can be worked through by keyboard: Enter ticks, Ctrl+Enter is OK.
void frmPicList::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && takeEnter(event->modifiers())) return;
    if (event->key() == Qt::Key_Down && m_filter->hasFocus()) {
        m_list->setFocus();
        return;
    }
    QDialog::keyPressEvent(event);
}

bool frmPicList::takeEnter(Qt::KeyboardModifiers modifiers)
{
    if (modifiers.testFlag(Qt::ControlModifier)) {
        m_ok->click();
        return true;
    }
    const bool isPicking = m_filter->hasFocus() || m_list->hasFocus();
    if (!isPicking || m_filter->text().isEmpty()) return false;
    toggleSelected();
    // so that typing replaces the filter
    m_filter->selectAll();
    return true;
}

void frmPicList::toggleSelected()
{
    m_model->toggle(m_list->selectionModel()->selectedRows());
}

void frmPicList::sortBy(int column)
{
    const bool again = column == m_sortColumn;
    m_sortOrder = again && m_sortOrder == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_sortColumn = column;
    m_list->header()->setSortIndicatorShown(true);
    m_list->header()->setSortIndicator(column, m_sortOrder);
    m_model->sort(column, m_sortOrder);
    m_list->scrollTo(m_list->currentIndex());
}

void frmPicList::countTicks()
{
    const auto shown = static_cast<std::size_t>(m_model->rowCount());
    const QString ticked = tr("%1 of %2 ticked").arg(m_model->tickedCount()).arg(m_model->count());
    m_count->setText(shown < m_model->count() ? tr("%1, %2 shown").arg(ticked).arg(shown) : ticked);
}
