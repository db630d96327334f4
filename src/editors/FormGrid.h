// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

/// Lays out the fields of a form, each with a caption whose key brings the focus to it. The order in which
/// fields are added is the order of the tab key.
class FormGrid
{
public:
    /// `pairs` of a caption and a field stand side by side.
    FormGrid(QWidget* form, int pairs);

    [[nodiscard]] QGridLayout* layout() const { return m_layout; }

    /// Puts a field into the next free place, as wide as so many pairs; if the row has no room for it, begins
    /// the next. Returns the caption.
    QLabel* add(const QString& caption, QWidget* field, int pairs = 1);

    /// A field below its caption, over the whole width, that takes the height that is left.
    void addTall(const QString& caption, QWidget* field, int stretch = 1);

    /// A field without a caption of its own, in the column of the fields.
    void addPlain(QWidget* field, int pairs = 1);

    QLineEdit* line(const char* name, const QString& caption, int pairs = 1);
    QPlainTextEdit* text(const char* name, const QString& caption, int stretch = 1);
    QCheckBox* check(const char* name, const QString& caption);

    void endRow();

private:
    void makeRoom(int pairs);

    QWidget* m_form;
    QGridLayout* m_layout;
    int m_pairs;
    int m_row = 0;
    int m_pair = 0;
};
