#pragma once

#include <QCheckBox>

/// A check box whose text goes on in another line if the box is narrower than it.
class WrappingCheckBox final : public QCheckBox
{
    Q_OBJECT

public:
    WrappingCheckBox(const QString& text, QWidget* parent);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int besideText() const;
    [[nodiscard]] QString wrapped(int width) const;
};
