// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "search/CriterionBox.h"

class QDateEdit;
class QTimeEdit;

/// The criterion of the dates and the times of day between which events start.
class EventDateCriterion final : public CriterionBox
{
    Q_OBJECT

public:
    EventDateCriterion(const QString& stem, const QString& caption, QWidget* parent);

    /// The dates are not a list, so there are no items.
    [[nodiscard]] clsAdvSearch::Items items() const override { return {}; }
    void setItems(const clsAdvSearch::Items& /*items*/) override {}

    /// Copies the dates and times to a search.
    void writeTo(clsAdvSearch& search) const;

    /// Shows the dates and times of a search.
    void readFrom(const clsAdvSearch& search);

private:
    QDateEdit* makeDate(const QString& name, const QString& description, const QString& text);
    QTimeEdit* makeTime(const QString& name, const QString& description, const QString& text);

    QDateEdit* m_startDate;
    QTimeEdit* m_startTime;
    QDateEdit* m_endDate;
    QTimeEdit* m_endTime;
};
