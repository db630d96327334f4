// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSet>
#include <QTranslator>

class QWidget;

/// A language made from the template for translators: each text in brackets, with its vowels accented and
/// doubled, which makes it longer by about two fifths. Placeholders, mnemonics and markup stay. A text that
/// is missing from the template stays as it is, and so is found. It is the program's language as long as it
/// lives.
class PseudoLocale final : public QTranslator
{
public:
    /// Throws if the template cannot be read.
    explicit PseudoLocale(const QString& translationTemplate);
    ~PseudoLocale() override;

    /// Lets the words of a text, such as those of a record, be seen as they are.
    void allow(const QString& text);

    /// Fails the test for each word of a text that was not transformed, but for the letter of a key.
    void expectTranslated(const QString& text, const char* where) const;

    /// The same for all that a window and its menus show or tell, and for texts that are cut off.
    void expectTranslated(QWidget& window, const char* where) const;

    [[nodiscard]] bool isEmpty() const override { return m_texts.isEmpty(); }
    QString translate(const char* context, const char* source, const char* disambiguation,
                      int number) const override;

private:
    void expectWhole(QWidget& window, const char* where) const;

    QSet<QPair<QString, QString>> m_texts; ///< context and source
    QSet<QString> m_allowed;
};
