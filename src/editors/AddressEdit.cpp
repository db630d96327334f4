// SPDX-License-Identifier: GPL-3.0-or-later

#include "editors/AddressEdit.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>

AddressEdit::AddressEdit(QWidget* parent) : LineEdit(parent)
{
    connect(this, &QLineEdit::textChanged, this, &AddressEdit::showAsLinkOrText);
}

QUrl AddressEdit::link() const
{
    const QString typed = text().trimmed();
    QUrl url(typed);
    if (url.scheme().isEmpty() && typed.contains(u'.')) url = QUrl(QStringLiteral("http://") + typed);
    const bool isWeb = url.scheme() == QStringLiteral("http") || url.scheme() == QStringLiteral("https");
    return isWeb && url.isValid() && !url.host().isEmpty() ? url : QUrl();
}

bool AddressEdit::isLink() const
{
    return isReadOnly() && link().isValid();
}

void AddressEdit::changeEvent(QEvent* event)
{
    LineEdit::changeEvent(event);
    if (event->type() == QEvent::ReadOnlyChange) showAsLinkOrText();
}

void AddressEdit::showAsLinkOrText()
{
    const bool asLink = isLink();
    QFont shown = font();
    if (shown.underline() == asLink) return;
    shown.setUnderline(asLink);
    setFont(shown);
    QPalette shades = palette();
    shades.setColor(QPalette::Text,
                    parentWidget()->palette().color(asLink ? QPalette::Link : QPalette::Text));
    setPalette(shades);
    setCursor(asLink ? Qt::PointingHandCursor : Qt::IBeamCursor);
    setToolTip(asLink ? tr("Open this address") : QString());
}

void AddressEdit::mouseReleaseEvent(QMouseEvent* event)
{
    LineEdit::mouseReleaseEvent(event);
    const bool isClick = event->button() == Qt::LeftButton && rect().contains(event->pos());
    if (isClick && !hasSelectedText() && isLink()) Q_EMIT opened(link());
}

void AddressEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && isLink()) {
        Q_EMIT opened(link());
        return;
    }
    LineEdit::keyPressEvent(event);
}
