// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTranslator>

class QLocale;

/// The texts in a language of the user, as long as this lives: those of the program and of Qt. Without a
/// translation of the program's texts, all texts stay English.
class Translations
{
public:
    /// `folder` holds the program's translations, `orvik_<language>.qm`.
    Translations(const QLocale& locale, const QString& folder);

private:
    QTranslator m_qt;
    QTranslator m_program;
};
