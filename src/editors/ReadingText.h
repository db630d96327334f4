// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTextEdit>

/// The text of a locked line or drop-down, laid over it and wrapped so that nothing is cut off: always over a
/// drop-down, over a line only while its text does not fit. The field grows with it and is its parent.
class ReadingText final : public QTextEdit
{
    Q_OBJECT

public:
    /// `field` is a QLineEdit or QComboBox that has its text already.
    static void showOver(QWidget& field);

    static void remove(QWidget& field);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ReadingText(QWidget& field, const QString& text, bool isLine);
    void fit();
    void setTopMargin(int top);

    QWidget& m_field;
    bool m_isLine;
};
