// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/PickerEdit.h"

#include "util/DateTimeText.h"

#include <QAction>
#include <QCalendarWidget>
#include <QIcon>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace {

constexpr int monthPart = 0;
constexpr int dayPart = 1;
constexpr int hourPart = 0;
constexpr int secondsOfMinute = 60;
constexpr int secondsOfHour = 60 * secondsOfMinute;

const QDate firstDay(100, 1, 1);
const QDate lastDay(9999, 12, 31);

} // namespace

PickerEdit::PickerEdit(const QString& placeholder, const QString& whatIsExpected, QChar separator,
                       QWidget* parent)
    : LineEdit(parent), m_separator(separator), m_mark(new QAction(this))
{
    setPlaceholderText(placeholder);
    setClearButtonEnabled(true);
    m_mark->setIcon(QIcon::fromTheme(QStringLiteral("data-warning")));
    m_mark->setToolTip(tr("This is not %1.").arg(whatIsExpected));
    addAction(m_mark, TrailingPosition);
    m_mark->setVisible(false);
    connect(this, &QLineEdit::editingFinished, this, &PickerEdit::takeNormalForm);
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (isAcceptable()) showMark();
    });
}

bool PickerEdit::isAcceptable() const
{
    return text().trimmed().isEmpty() || normalForm(text()).has_value();
}

void PickerEdit::showText(const QString& text)
{
    setText(text);
    showMark();
}

void PickerEdit::takeNormalForm()
{
    showMark();
    const std::optional<QString> normal = normalForm(text());
    if (normal && *normal != text()) setText(*normal);
}

void PickerEdit::showMark()
{
    m_mark->setVisible(!isAcceptable());
}

void PickerEdit::keyPressEvent(QKeyEvent* event)
{
    if (!isReadOnly() && event->modifiers() == Qt::NoModifier &&
        (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)) {
        step(event->key() == Qt::Key_Up ? 1 : -1);
        return;
    }
    LineEdit::keyPressEvent(event);
}

void PickerEdit::changeEvent(QEvent* event)
{
    LineEdit::changeEvent(event);
    if (event->type() == QEvent::ReadOnlyChange) setClearButtonEnabled(!isReadOnly());
}

void PickerEdit::step(int steps)
{
    if (!normalForm(text())) return;
    const int cursor = hasSelectedText() ? selectionStart() : cursorPosition();
    const auto part = static_cast<int>(QStringView(text()).left(cursor).count(m_separator));
    setText(stepped(part, steps));
    selectPart(part);
}

void PickerEdit::selectPart(int part)
{
    const QStringList parts = text().split(m_separator);
    qsizetype begin = 0;
    for (int i = 0; i < part && i < parts.size(); ++i)
        begin += parts[i].size() + 1;
    setSelection(static_cast<int>(begin), static_cast<int>(parts.value(part).size()));
}

OptionalDateEdit::OptionalDateEdit(QWidget* parent)
    : PickerEdit(tr("mm/dd/yyyy"), tr("a date such as 09/11/2001"), u'/', parent),
      m_calendar(
          new QAction(QIcon::fromTheme(QStringLiteral("view-calendar")), tr("Choose from a calendar"), this))
{
    m_calendar->setToolTip(tr("Choose from a calendar (Alt+Down)"));
    addAction(m_calendar, TrailingPosition);
    connect(m_calendar, &QAction::triggered, this, &OptionalDateEdit::openCalendar);
}

std::optional<QDate> OptionalDateEdit::date() const
{
    return DateTimeText::readDate(text());
}

void OptionalDateEdit::setDate(const std::optional<QDate>& date)
{
    setText(date ? DateTimeText::programDate(*date) : QString());
}

std::optional<QString> OptionalDateEdit::normalForm(const QString& typed) const
{
    const auto date = DateTimeText::readDate(typed);
    return date ? std::optional(DateTimeText::programDate(*date)) : std::nullopt;
}

QString OptionalDateEdit::stepped(int part, int steps) const
{
    const QDate before = *date();
    const QDate after = part == monthPart ? before.addMonths(steps)
                        : part == dayPart ? before.addDays(steps)
                                          : before.addYears(steps);
    return DateTimeText::programDate(qBound(firstDay, after, lastDay));
}

void OptionalDateEdit::keyPressEvent(QKeyEvent* event)
{
    const bool opens =
        event->key() == Qt::Key_F4 || (event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier);
    if (opens && !isReadOnly()) {
        openCalendar();
        return;
    }
    PickerEdit::keyPressEvent(event);
}

void OptionalDateEdit::changeEvent(QEvent* event)
{
    PickerEdit::changeEvent(event);
    if (event->type() == QEvent::ReadOnlyChange) m_calendar->setVisible(!isReadOnly());
}

void OptionalDateEdit::openCalendar()
{
    auto* calendar = new QCalendarWidget(this);
    calendar->setObjectName(QStringLiteral("calendar"));
    calendar->setWindowFlags(Qt::Popup);
    calendar->setAttribute(Qt::WA_DeleteOnClose);
    calendar->setDateRange(firstDay, lastDay);
    if (const auto chosen = date()) calendar->setSelectedDate(*chosen);
    auto* close = new QAction(calendar);
    close->setShortcut(Qt::Key_Escape);
    calendar->addAction(close);
    connect(close, &QAction::triggered, calendar, &QWidget::close);
    const auto take = [this, calendar](QDate day) {
        setDate(day);
        calendar->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, take);
    connect(calendar, &QCalendarWidget::activated, this, take);

    const QRect room = screen()->availableGeometry();
    const QSize size = calendar->sizeHint();
    QPoint place = mapToGlobal(rect().bottomLeft());
    if (place.y() + size.height() > room.bottom()) place = mapToGlobal(QPoint(0, -size.height()));
    place.setX(qBound(room.left(), place.x(), room.right() - size.width()));
    calendar->move(place);
    calendar->show();
    calendar->setFocus();
}

OptionalTimeEdit::OptionalTimeEdit(QWidget* parent)
    : PickerEdit(tr("hh:mm"), tr("a time such as 13:05"), u':', parent)
{
}

std::optional<QString> OptionalTimeEdit::normalForm(const QString& typed) const
{
    const auto time = DateTimeText::readTime(typed);
    return time ? std::optional(DateTimeText::programTime(*time)) : std::nullopt;
}

QString OptionalTimeEdit::stepped(int part, int steps) const
{
    return DateTimeText::programTime(DateTimeText::readTime(text())->addSecs(
        steps * (part == hourPart ? secondsOfHour : secondsOfMinute)));
}
