// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "widgets/LineEdit.h"

#include <QUrl>

/// A line for a web address. While it is read-only, the address looks like a link and a click or the
/// space bar asks to open it.
class AddressEdit final : public LineEdit
{
    Q_OBJECT

public:
    explicit AddressEdit(QWidget* parent);

    /// The address as a link; invalid if the text is no web address.
    [[nodiscard]] QUrl link() const;

Q_SIGNALS:
    void opened(const QUrl& link);

protected:
    void changeEvent(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] bool isLink() const;
    void showAsLinkOrText();
};
