#pragma once

#include "search/CriterionBox.h"

class QDateEdit;
class QTimeEdit;

/// The criterion of the first and last date, and of the times of day, at which events start.
class EventDateCriterion final : public CriterionBox
{
    Q_OBJECT

public:
    EventDateCriterion(const QString& stem, const QString& caption, QWidget* parent);

    /// The dates are no list: there are no items.
    [[nodiscard]] clsAdvSearch::Items items() const override { return {}; }
    void setItems(const clsAdvSearch::Items& /*items*/) override {}

    /// Takes the dates and times into a search, or shows those of one.
    void writeTo(clsAdvSearch& search) const;
    void readFrom(const clsAdvSearch& search);

private:
    QDateEdit* makeDate(const QString& name, const QString& description, const QString& text);
    QTimeEdit* makeTime(const QString& name, const QString& description, const QString& text);

    QDateEdit* m_startDate;
    QTimeEdit* m_startTime;
    QDateEdit* m_endDate;
    QTimeEdit* m_endTime;
};
