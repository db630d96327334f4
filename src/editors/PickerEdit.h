// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "widgets/LineEdit.h"

#include <QDate>

#include <optional>

class QAction;

/// A line for an optional date or time. When it is left, what can be read takes its usual form; what cannot
/// stays as typed, with a mark that says so. The up and down keys count the part at the cursor.
class PickerEdit : public LineEdit
{
    Q_OBJECT

public:
    /// Whether the line is empty or can be read.
    [[nodiscard]] bool isAcceptable() const;

    /// Shows a text as it is, with the mark if it cannot be read.
    void showText(const QString& text);

protected:
    /// `whatIsExpected` completes the sentence of the mark, such as `a date like 09/11/2001`.
    PickerEdit(const QString& placeholder, const QString& whatIsExpected, QChar separator, QWidget* parent);

    /// What was typed, in its usual form; std::nullopt if it cannot be read.
    [[nodiscard]] virtual std::optional<QString> normalForm(const QString& typed) const = 0;

    /// The value `steps` on, counted in its part of that number (from 0).
    [[nodiscard]] virtual QString stepped(int part, int steps) const = 0;

    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeNormalForm();
    void showMark();
    void step(int steps);
    void selectPart(int part);

    QChar m_separator;
    QAction* m_mark;
};

/// A date from the year 100 to 9999, or none. A button opens a calendar.
class OptionalDateEdit final : public PickerEdit
{
    Q_OBJECT

public:
    explicit OptionalDateEdit(QWidget* parent);

    /// std::nullopt if the line is empty or cannot be read.
    [[nodiscard]] std::optional<QDate> date() const;
    void setDate(const std::optional<QDate>& date);

protected:
    [[nodiscard]] std::optional<QString> normalForm(const QString& typed) const override;
    [[nodiscard]] QString stepped(int part, int steps) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void openCalendar();

    QAction* m_calendar;
};

/// A time of day to the minute, or none.
class OptionalTimeEdit final : public PickerEdit
{
    Q_OBJECT

public:
    explicit OptionalTimeEdit(QWidget* parent);

protected:
    [[nodiscard]] std::optional<QString> normalForm(const QString& typed) const override;
    [[nodiscard]] QString stepped(int part, int steps) const override;
};
