// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class LineEdit;
class QLabel;

/// The field above a list with the words that narrow it, and beside it how many rows they leave.
class FilterField final : public QWidget
{
    Q_OBJECT

public:
    explicit FilterField(QWidget* parent);

    /// Shows words without emitting `typed`.
    void setWords(const QString& words);

    /// Shows how many rows are left, with room for `widest`; nothing if the text is empty.
    void setCount(const QString& count, const QString& widest);

    /// Lets the user type. What is there is marked, so that the first key replaces it.
    void begin();

    [[nodiscard]] bool isTypedIn() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The user changed the words.
    void typed(const QString& words);

    /// The user is done with the words and wants to go to the rows.
    void left();

private:
    LineEdit* m_words;
    QLabel* m_count;
};
