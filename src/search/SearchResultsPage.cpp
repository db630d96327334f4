// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/SearchResultsPage.h"

#include "widgets/LinkButton.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int contentWidth = 640;
constexpr int searchIconSize = 48;
constexpr int kindIconSize = 40;
constexpr int spacing = 20;
constexpr double summarySize = 1.15;
constexpr double linkSize = 1.3;

QFont larger(const QFont& font, double factor)
{
    QFont result = font;
    result.setPointSizeF(font.pointSizeF() * factor);
    return result;
}

QString pictureOf(RecordKind kind)
{
    return kind == RecordKind::Document ? QStringLiteral("home-documents")
           : kind == RecordKind::Event  ? QStringLiteral("home-events")
                                        : QStringLiteral("home-organizations");
}

} // namespace

SearchResultsPage::SearchResultsPage(QWidget* parent)
    : QWidget(parent),
      m_summary(new QLabel(this)),
      m_search(new QToolButton(this)),
      m_record(new LinkButton(this))
{
    setObjectName(QStringLiteral("pnlSearchResults"));
    setAccessibleName(tr("Search results"));
    m_summary->setObjectName(QStringLiteral("lblSummary"));
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setWordWrap(true);
    m_summary->setFont(larger(font(), summarySize));
    m_summary->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    m_search->setObjectName(QStringLiteral("imgSearch"));
    m_search->setText(tr("Search"));
    m_search->setToolTip(tr("Search again"));
    m_search->setIcon(QIcon(QStringLiteral(":/pictures/home-search.svg")));
    m_search->setIconSize(QSize(searchIconSize, searchIconSize));
    m_search->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    m_search->setAutoRaise(true);
    m_search->setFocusPolicy(Qt::StrongFocus);
    m_record->setObjectName(QStringLiteral("lblRecord"));
    m_record->setFont(larger(font(), summarySize));
    layOut();
    connect(m_search, &QToolButton::clicked, this, &SearchResultsPage::searchPressed);
    connect(m_record, &LinkButton::clicked, this, [this] {
        if (m_results.single) Q_EMIT recordChosen(m_results.single->kind, m_results.single->identifier);
    });
}

void SearchResultsPage::layOut()
{
    auto* content = new QWidget(this);
    content->setMaximumWidth(contentWidth);
    auto* column = new QVBoxLayout(content);
    column->setSpacing(spacing);
    auto* top = new QHBoxLayout;
    top->setSpacing(spacing);
    top->addWidget(m_search, 0, Qt::AlignTop);
    top->addWidget(m_summary, 1);
    column->addStretch(1);
    column->addLayout(top);
    for (std::size_t i = 0; i < recordKinds.size(); ++i)
        makeKind(i, *column);
    makeFiles(*column);
    column->addWidget(m_record);
    column->addStretch(2);

    // a very long search text must not make the window larger
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    auto* middle = new QWidget(area);
    auto* row = new QHBoxLayout(middle);
    row->addStretch(1);
    row->addWidget(content, 100);
    row->addStretch(1);
    area->setWidget(middle);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
}

/// Makes a picture and, beside it, a link, which is returned.
LinkButton* SearchResultsPage::makeRow(const QString& picture, QWidget& row)
{
    auto* layout = new QHBoxLayout(&row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    auto* label = new QLabel(&row);
    const QIcon icon(QStringLiteral(":/pictures/%1.svg").arg(picture));
    label->setAlignment(Qt::AlignCenter);
    label->setFixedWidth(m_search->sizeHint().width());
    label->setPixmap(icon.pixmap(QSize(kindIconSize, kindIconSize), devicePixelRatioF()));
    auto* link = new LinkButton(&row);
    link->setFont(larger(font(), linkSize));
    layout->addWidget(label);
    layout->addWidget(link);
    layout->addStretch();
    return link;
}

void SearchResultsPage::makeKind(std::size_t index, QVBoxLayout& layout)
{
    m_rows[index] = new QWidget(this);
    m_links[index] = makeRow(pictureOf(recordKinds[index]), *m_rows[index]);
    m_links[index]->setObjectName(QStringLiteral("lblResult(%1)").arg(index));
    layout.addWidget(m_rows[index]);
    connect(m_links[index], &LinkButton::clicked, this,
            [this, index] { Q_EMIT listChosen(m_results.listView(m_results.kinds[index])); });
}

void SearchResultsPage::makeFiles(QVBoxLayout& layout)
{
    m_filesRow = new QWidget(this);
    m_files = makeRow(pictureOf(RecordKind::Document), *m_filesRow);
    m_files->setObjectName(QStringLiteral("lblFiles"));
    layout.addWidget(m_filesRow);
    m_filesNote = new QLabel(this);
    m_filesNote->setObjectName(QStringLiteral("lblFilesNote"));
    m_filesNote->setTextFormat(Qt::PlainText);
    m_filesNote->setWordWrap(true);
    m_filesNote->setIndent(m_search->sizeHint().width() + spacing);
    layout.addWidget(m_filesNote);
    connect(m_files, &LinkButton::clicked, this, [this] { Q_EMIT filesChosen(m_results); });
}

void SearchResultsPage::showResults(const SearchResults& results)
{
    m_results = results;
    m_summary->setText(results.sentence());
    for (std::size_t i = 0; i < results.kinds.size(); ++i) {
        m_links[i]->setLink(results.kinds[i].label());
        m_links[i]->setEnabled(results.kinds[i].count > 0);
        m_rows[i]->show();
    }
    showFiles();
    m_record->setVisible(results.single.has_value());
    if (results.single) m_record->setLink(results.single->name);
    focusFirst();
}

void SearchResultsPage::showFailure(const QString& keywords)
{
    m_results = {};
    m_summary->setText(tr("Your keyword search for \"%1\" could not be made. Click on the Search icon to try "
                          "again.")
                           .arg(keywords));
    for (QWidget* row : m_rows)
        row->hide();
    showFiles();
    m_record->hide();
    focusFirst();
}

void SearchResultsPage::showFiles()
{
    const auto& files = m_results.inFiles;
    m_filesRow->setVisible(files.has_value());
    m_filesNote->setVisible(files && !files->note.isEmpty());
    if (!files) return;
    m_files->setLink(files->label());
    m_files->setEnabled(files->count > 0);
    m_filesNote->setText(files->note);
}

/// Gives the keyboard focus to what the user most likely wants next.
void SearchResultsPage::focusFirst()
{
    if (m_results.single) {
        m_record->setFocus();
        return;
    }
    for (std::size_t i = 0; i < m_results.kinds.size(); ++i) {
        if (m_results.kinds[i].count > 0) {
            m_links[i]->setFocus();
            return;
        }
    }
    if (m_results.inFiles && m_results.inFiles->count > 0) {
        m_files->setFocus();
    } else {
        m_search->setFocus();
    }
}
