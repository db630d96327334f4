// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/VersionComparison.h"

#include "history/ComparedText.h"

#include <QCheckBox>
#include <QEvent>
#include <QScrollBar>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>

using Kind = DifferenceRun::Kind;

namespace {

constexpr int captionColumn = 0;
constexpr int olderColumn = 1;

/// The last column; without an older version it comes right after the captions.
int newerColumn(const QTextTable& table)
{
    return table.columns() - 1;
}

QTextTable& addTable(QTextCursor& cursor, bool hasOlder)
{
    QTextTableFormat format;
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorder(1);
    format.setBorderCollapse(true);
    format.setCellPadding(4);
    format.setHeaderRowCount(1);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    const auto percent = [](double share) { return QTextLength(QTextLength::PercentageLength, share); };
    QList<QTextLength> widths{percent(16), percent(84)};
    if (hasOlder) widths = {percent(16), percent(42), percent(42)};
    format.setColumnWidthConstraints(widths);
    return *cursor.insertTable(1, static_cast<int>(widths.size()), format);
}

std::vector<DifferenceRun> runsOf(const ComparedField& field)
{
    const QString& older = field.older->text;
    const QString& newer = field.newer->text;
    if (!field.isDifferent()) return {{Kind::Equal, newer}};
    // two entries may have the same name; dates and the like are read as wholes
    if (field.field.form == FieldForm::Text) return WordDifferences::between(older, newer);
    return {{Kind::Removed, older}, {Kind::Added, newer}};
}

bool hasLink(const std::vector<NamedLink>& links, qint64 key)
{
    return std::any_of(links.begin(), links.end(), [key](const NamedLink& link) { return link.key == key; });
}

bool isEmpty(const std::optional<FieldContent>& content)
{
    return !content || (content->text.isEmpty() && content->links.empty());
}

} // namespace

VersionComparison::VersionComparison(QWidget* parent)
    : QWidget(parent),
      m_text(new QTextEdit(this)),
      m_onlyDifferences(new QCheckBox(tr("Only &differences"), this))
{
    m_text->setObjectName(QStringLiteral("rtbComparison"));
    m_text->setAccessibleName(tr("Comparison"));
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_onlyDifferences->setObjectName(QStringLiteral("chkOnlyDifferences"));
    m_onlyDifferences->setChecked(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_onlyDifferences, 0, Qt::AlignLeft);
    connect(m_onlyDifferences, &QCheckBox::toggled, this, &VersionComparison::draw);
}

void VersionComparison::compare(ComparedVersions versions)
{
    std::vector<ComparedVersions> records;
    records.push_back(std::move(versions));
    compare(std::move(records));
}

void VersionComparison::compare(std::vector<ComparedVersions> records)
{
    m_told.clear();
    m_shown = std::move(records);
    draw();
    m_text->verticalScrollBar()->setValue(0);
}

void VersionComparison::tell(const QString& text)
{
    m_told = text;
    m_shown.clear();
    draw();
}

void VersionComparison::draw()
{
    m_text->clear();
    QTextCursor cursor(m_text->document());
    cursor.beginEditBlock();
    QStringList differences;
    for (const ComparedVersions& record : m_shown)
        differences << drawRecord(cursor, record);
    cursor.insertText(m_told);
    cursor.endEditBlock();
    m_text->setAccessibleDescription(differences.isEmpty() ? m_told
                                                           : tr("Differs: %1").arg(differences.join(u", ")));
    m_text->moveCursor(QTextCursor::Start);
}

/// Returns the captions of the fields that differ.
QStringList VersionComparison::drawRecord(QTextCursor& cursor, const ComparedVersions& record)
{
    const ComparedText text(palette());
    const bool isFirst = &record == &m_shown.front();
    if (!isFirst || !record.title.isEmpty()) {
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        cursor.insertText(record.title, bold);
        cursor.insertBlock();
    }
    QTextTable& table = addTable(cursor, record.hasOlder);
    text.writeHeading(table, 0, captionColumn, tr("Field"));
    if (record.hasOlder) text.writeHeading(table, 0, olderColumn, record.olderHeading);
    text.writeHeading(table, 0, newerColumn(table), record.newerHeading);
    QStringList differences;
    QStringList notKept;
    for (ComparedField& field : ComparedFields(record.kind).compare(record.older, record.newer)) {
        if (!record.hasOlder) {
            field.older.reset();
            if (!m_onlyDifferences->isChecked() || !isEmpty(field.newer)) drawField(table, field, false);
            continue;
        }
        if (field.isDifferent()) differences << field.field.caption;
        if (field.older.has_value() != field.newer.has_value()) notKept << field.field.caption;
        const bool isShown = field.isDifferent() || !m_onlyDifferences->isChecked();
        if (isShown && (field.older || field.newer)) drawField(table, field, true);
    }
    differences.removeDuplicates();
    notKept.removeDuplicates();
    cursor.movePosition(QTextCursor::End);
    if (differences.isEmpty() && record.hasOlder) cursor.insertText(tr("No field differs.") + u'\n');
    if (!notKept.isEmpty() && m_onlyDifferences->isChecked())
        cursor.insertText(tr("Not kept in one of the two: %1").arg(notKept.join(u", ")) + u'\n');
    return differences;
}

void VersionComparison::drawField(QTextTable& table, const ComparedField& field, bool hasOlder) const
{
    const ComparedText text(palette());
    const int row = table.rows();
    table.appendRows(1);
    text.writeLine(table, row, captionColumn, field.field.caption);
    field.hasLinks() ? drawLinks(table, row, field) : drawTexts(table, row, field);
    if (!field.older && hasOlder) text.writeNote(table, row, olderColumn, tr("not kept"));
    if (!field.newer) text.writeNote(table, row, newerColumn(table), tr("not kept"));
}

void VersionComparison::drawTexts(QTextTable& table, int row, const ComparedField& field) const
{
    const ComparedText text(palette());
    if (!field.older || !field.newer) {
        if (field.older) text.writeLine(table, row, olderColumn, field.older->text);
        if (field.newer) text.writeLine(table, row, newerColumn(table), field.newer->text);
        return;
    }
    std::vector<DifferenceRun> runs = runsOf(field);
    if (m_onlyDifferences->isChecked()) runs = ComparedText::shortened(std::move(runs));
    text.writeRuns(table, row, olderColumn, runs, Kind::Removed);
    text.writeRuns(table, row, newerColumn(table), runs, Kind::Added);
}

void VersionComparison::drawLinks(QTextTable& table, int row, const ComparedField& field) const
{
    const ComparedText text(palette());
    const auto write = [&](int column, const std::optional<FieldContent>& own,
                           const std::optional<FieldContent>& other, Kind kind) {
        if (!own) return;
        for (const NamedLink& link : own->links) {
            const bool isEqual = !other || hasLink(other->links, link.key);
            if (isEqual && other && m_onlyDifferences->isChecked()) continue;
            const Kind shown = isEqual ? Kind::Equal : kind;
            text.writeLink(table, row, column, link.name, shown);
        }
    };
    write(olderColumn, field.older, field.newer, Kind::Removed);
    write(newerColumn(table), field.newer, field.older, Kind::Added);
}

void VersionComparison::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) draw();
}
