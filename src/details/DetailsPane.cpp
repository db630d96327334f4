// SPDX-License-Identifier: GPL-3.0-or-later

#include "details/DetailsPane.h"

#include "details/FilePicture.h"
#include "export/SheetColumns.h"
#include "widgets/IconSet.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int captionPadding = 12; ///< pixels, of the style below and of the table
constexpr int smallestWidth = 240;
constexpr double widestCaptions = smallestWidth / 2.0; ///< of other languages, too, since values need room

QString pageStyle()
{
    return QStringLiteral("h2 { font-size: large; margin-top: 2px }"
                          "table { margin-top: 8px }"
                          "p { margin-top: 0px; margin-bottom: 4px }"
                          "th { text-align: left; font-weight: bold }"
                          "th, td { padding-right: 6px; padding-bottom: 4px; vertical-align: top }");
}

/// The width of the longest word in the captions of a page, which would be broken if it had less.
double widestCaption(const QTextDocument& page, QFont font)
{
    font.setBold(true);
    const QFontMetricsF metrics(font);
    double widest = 0;
    for (const QTextFrame* frame : page.rootFrame()->childFrames()) {
        const auto* fields = qobject_cast<const QTextTable*>(frame);
        for (int row = 0; fields != nullptr && row < fields->rows(); ++row) {
            const QString caption = fields->cellAt(row, 0).firstCursorPosition().block().text();
            for (const QString& word : caption.split(u' '))
                widest = std::max(widest, metrics.horizontalAdvance(word));
        }
    }
    return widest;
}

/// A page whose marked text can be copied, although the window has a command with the same key.
class PageText final : public QTextBrowser
{
public:
    using QTextBrowser::QTextBrowser;

protected:
    bool event(QEvent* event) override
    {
        const bool isTaken = event->type() == QEvent::ShortcutOverride && textCursor().hasSelection() &&
                             static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy);
        if (isTaken) event->accept();
        return isTaken || QTextBrowser::event(event);
    }
};

} // namespace

DetailsPane::DetailsPane(const QString& programs, QWidget* parent)
    : QWidget(parent),
      m_text(new PageText(this)),
      m_picture(new FilePicture(programs, this)),
      m_openFile(new QPushButton(IconSet::themeIcon(QStringLiteral("document-open")), tr("Open &File"), this))
{
    setMinimumWidth(smallestWidth);
    m_text->setObjectName(QStringLiteral("txtDetails"));
    m_text->setAccessibleName(tr("Details"));
    m_text->setOpenLinks(false);
    m_text->setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    m_text->document()->setDefaultStyleSheet(pageStyle());
    m_picture->setObjectName(QStringLiteral("imgDetails"));
    m_picture->setAccessibleName(tr("First page of the file"));
    m_openFile->setObjectName(QStringLiteral("cmdDetailsFile"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_picture, 1);
    layout->addWidget(m_openFile, 0, Qt::AlignLeft);
    connect(m_text, &QTextBrowser::anchorClicked, this, &DetailsPane::linkFollowed);
    connect(m_openFile, &QPushButton::clicked, this,
            [this] { Q_EMIT fileAsked(m_record.kind, m_record.identifier); });
    showText({});
}

void DetailsPane::showRecord(const DetailedRecord& record)
{
    const bool isSame =
        record.record.kind == m_record.kind && record.record.identifier == m_record.identifier;
    if (!isSame || record.page != m_page) {
        const int place = isSame ? m_text->verticalScrollBar()->value() : 0;
        setPage(record.page);
        m_text->verticalScrollBar()->setValue(place);
    }
    m_record = record.record;
    m_openFile->setVisible(record.hasFile);
    m_picture->showFile(record.file);
}

void DetailsPane::showText(const QString& text)
{
    m_record = {};
    m_openFile->hide();
    m_picture->showFile({});
    setPage(QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()));
}

void DetailsPane::setPage(const QString& html)
{
    m_page = html;
    m_text->setHtml(html);
    // never narrower than it was: the values stay where they are from record to record
    m_captionWidth = std::max(m_captionWidth, widestCaption(*m_text->document(), m_text->font()));
    m_captionWidth = std::min(m_captionWidth, widestCaptions);
    alignSheetValues(*m_text->document(),
                     QTextLength(QTextLength::FixedLength, m_captionWidth + captionPadding),
                     QTextLength(QTextLength::VariableLength, 0));
}

void DetailsPane::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    // the colour of links is part of the text
    if (event->type() == QEvent::PaletteChange) setPage(m_page);
}
