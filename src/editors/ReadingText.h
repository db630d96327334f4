#pragma once

#include <QTextEdit>

/// What a locked line or drop-down holds, laid over it as text that wraps, so that nothing is cut off: always
/// over a drop-down, over a line only while its text does not fit. The field grows with it. Its parent is the
/// field.
class ReadingText final : public QTextEdit
{
    Q_OBJECT

public:
    /// Lays a text over a QLineEdit or QComboBox that holds its text already.
    static void showOver(QWidget& field);

    /// Takes it away again, if there is one.
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
