// SPDX-License-Identifier: GPL-3.0-or-later

#include "files/WebPage.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QUrl>

#include <algorithm>

namespace {

bool isLatin1(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x100; });
}

/// The bytes that a page may hold for a name.
QByteArrayList writtenForms(const QString& name)
{
    // browsers leave these signs as they are in an address
    const QString address = QString::fromLatin1(QUrl::toPercentEncoding(name, "!$&'()*+,;=:@"));
    QByteArrayList forms;
    for (const QString& form : {name, name.toHtmlEscaped(), address, address.toHtmlEscaped()}) {
        forms << form.toUtf8();
        if (isLatin1(form)) forms << form.toLatin1();
    }
    return forms;
}

} // namespace

std::string WebPage::withFolderRenamed(const std::string& page, const QStringList& names,
                                       const QString& newName)
{
    QByteArrayList forms;
    for (const QString& name : names) {
        for (const QByteArray& form : writtenForms(name)) {
            if (!forms.contains(form)) forms << form;
        }
    }
    QByteArray content = QByteArray::fromStdString(page);
    for (const QByteArray& form : forms)
        content.replace(form, newName.toUtf8());
    return content.toStdString();
}
