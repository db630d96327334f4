// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

Translations::Translations(const QLocale& locale, const QString& folder)
{
    const QString separator = QStringLiteral("_");
    if (!m_program.load(locale, QStringLiteral("orvik"), separator, folder)) return;
    QCoreApplication::installTranslator(&m_program);
    // Qt's texts alone would leave a window in two languages
    if (m_qt.load(locale, QStringLiteral("qtbase"), separator,
                  QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qt);
}
