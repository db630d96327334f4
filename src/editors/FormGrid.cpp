// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/FormGrid.h"

#include "widgets/LineEdit.h"
#include "widgets/TextEdit.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

namespace {

constexpr int linesOfText = 3;

QLabel* captionFor(const QString& caption, QWidget* field, QWidget* form)
{
    auto* label = new QLabel(caption, form);
    // the key of a caption reaches only a widget that takes the focus itself
    while (field->focusProxy() != nullptr)
        field = field->focusProxy();
    label->setBuddy(field);
    if (field->accessibleName().isEmpty()) {
        field->setAccessibleName(QString(caption).remove(u'&').remove(u':'));
    }
    return label;
}

} // namespace

FormGrid::FormGrid(QWidget* form, int pairs) : m_form(form), m_layout(new QGridLayout(form)), m_pairs(pairs)
{
    for (int pair = 0; pair < pairs; ++pair)
        m_layout->setColumnStretch(2 * pair + 1, 1);
}

void FormGrid::makeRoom(int pairs)
{
    if (m_pair + pairs > m_pairs) endRow();
}

void FormGrid::endRow()
{
    if (m_pair == 0) return;
    ++m_row;
    m_pair = 0;
}

QLabel* FormGrid::add(const QString& caption, QWidget* field, int pairs)
{
    makeRoom(pairs);
    QLabel* label = captionFor(caption, field, m_form);
    m_layout->addWidget(label, m_row, 2 * m_pair);
    m_layout->addWidget(field, m_row, 2 * m_pair + 1, 1, 2 * pairs - 1);
    m_pair += pairs;
    return label;
}

void FormGrid::addTall(const QString& caption, QWidget* field, int stretch)
{
    endRow();
    m_layout->addWidget(captionFor(caption, field, m_form), m_row++, 0, 1, 2 * m_pairs);
    m_layout->setRowStretch(m_row, stretch);
    m_layout->addWidget(field, m_row++, 0, 1, 2 * m_pairs);
}

void FormGrid::addPlain(QWidget* field, int pairs)
{
    makeRoom(pairs);
    m_layout->addWidget(field, m_row, 2 * m_pair + 1, 1, 2 * pairs - 1);
    m_pair += pairs;
}

QLineEdit* FormGrid::line(const char* name, const QString& caption, int pairs)
{
    auto* field = new LineEdit(m_form);
    field->setObjectName(QString::fromLatin1(name));
    add(caption, field, pairs);
    return field;
}

QPlainTextEdit* FormGrid::text(const char* name, const QString& caption, int stretch)
{
    auto* field = new TextEdit(m_form);
    field->setObjectName(QString::fromLatin1(name));
    field->setTabChangesFocus(true);
    field->setMinimumHeight(field->fontMetrics().lineSpacing() * linesOfText + 2 * field->frameWidth() +
                            static_cast<int>(2 * field->document()->documentMargin()));
    addTall(caption, field, stretch);
    return field;
}

QCheckBox* FormGrid::check(const char* name, const QString& caption)
{
    auto* field = new QCheckBox(caption, m_form);
    field->setObjectName(QString::fromLatin1(name));
    addPlain(field);
    return field;
}
