// SPDX-License-Identifier: GPL-3.0-or-later

#include "search/EventDateCriterion.h"

#include "util/DateTimeText.h"
#include "views/clsEventFilter.h"

#include <QBoxLayout>
#include <QDateEdit>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QTimeEdit>

namespace {

constexpr int firstYear = 100;

} // namespace

EventDateCriterion::EventDateCriterion(const QString& stem, const QString& caption, QWidget* parent)
    : CriterionBox(stem, caption, parent)
{
    const clsEventFilter range;
    m_startDate = makeDate(QStringLiteral("eventStartDate"), tr("First start date"), range.startDate);
    m_startTime = makeTime(QStringLiteral("eventStartTime"), tr("Earliest start time"), range.startTime);
    m_endDate = makeDate(QStringLiteral("eventEndDate"), tr("Last start date"), range.endDate);
    m_endTime = makeTime(QStringLiteral("eventEndTime"), tr("Latest start time"), range.endTime);

    auto* grid = new QGridLayout;
    grid->addWidget(new QLabel(tr("Starts from"), frame()), 0, 0);
    grid->addWidget(m_startDate, 0, 1);
    grid->addWidget(new QLabel(tr("to"), frame()), 0, 2);
    grid->addWidget(m_endDate, 0, 3);
    grid->addWidget(new QLabel(tr("each day between"), frame()), 1, 0);
    grid->addWidget(m_startTime, 1, 1);
    grid->addWidget(new QLabel(tr("and"), frame()), 1, 2);
    grid->addWidget(m_endTime, 1, 3);
    grid->setColumnStretch(4, 1);
    grid->addWidget(countLabel(), 2, 0, 1, 5);
    grid->setRowStretch(3, 1);
    frameLayout()->addLayout(grid);
    showCount(tr("Dates are month, day and year; times are of 24 hours."));
}

QDateEdit* EventDateCriterion::makeDate(const QString& name, const QString& description, const QString& text)
{
    auto* edit = new QDateEdit(frame());
    edit->setObjectName(name);
    edit->setAccessibleName(description);
    edit->setDisplayFormat(QStringLiteral("MM/dd/yyyy"));
    edit->setMinimumDate(QDate(firstYear, 1, 1));
    edit->setCalendarPopup(true);
    edit->setDate(DateTimeText::readDate(text).value_or(QDate()));
    connect(edit, &QDateEdit::dateChanged, this, &EventDateCriterion::changed);
    return edit;
}

QTimeEdit* EventDateCriterion::makeTime(const QString& name, const QString& description, const QString& text)
{
    auto* edit = new QTimeEdit(frame());
    edit->setObjectName(name);
    edit->setAccessibleName(description);
    edit->setDisplayFormat(QStringLiteral("HH:mm"));
    edit->setTime(DateTimeText::readTime(text).value_or(QTime()));
    connect(edit, &QTimeEdit::timeChanged, this, &EventDateCriterion::changed);
    return edit;
}

void EventDateCriterion::writeTo(clsAdvSearch& search) const
{
    search.eventStartDate = m_startDate->date();
    search.eventStartTime = m_startTime->time();
    search.eventEndDate = m_endDate->date();
    search.eventEndTime = m_endTime->time();
}

void EventDateCriterion::readFrom(const clsAdvSearch& search)
{
    m_startDate->setDate(search.eventStartDate);
    m_startTime->setTime(search.eventStartTime);
    m_endDate->setDate(search.eventEndDate);
    m_endTime->setTime(search.eventEndTime);
}
