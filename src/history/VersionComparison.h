// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "history/ComparedFields.h"

#include <QWidget>

#include <vector>

class QCheckBox;
class QTextCursor;
class QTextEdit;
class QTextTable;

/// Two versions of a record and what the user is told of them.
struct ComparedVersions
{
    RecordKind kind = RecordKind::Document;
    QString title; ///< what stands above the two; may be empty
    QString olderHeading;
    VersionContent older;
    QString newerHeading;
    VersionContent newer;
    bool hasOlder = true; ///< false for the first version of all, which is shown as it is
};

/// Shows versions of records side by side, a field to a row: the older one at the left, the newer one at the
/// right. Words that were removed are struck out, words that were added underlined, both on a ground of their
/// own; links that were added or
/// removed have "+" or "−" before their names. A check box leaves out what is equal.
class VersionComparison final : public QWidget
{
    Q_OBJECT

public:
    explicit VersionComparison(QWidget* parent);

    /// Shows the two versions of one record, or of several records one below the other.
    void compare(ComparedVersions versions);
    void compare(std::vector<ComparedVersions> records);

    /// Shows a text in place of versions.
    void tell(const QString& text);

protected:
    void changeEvent(QEvent* event) override;

private:
    void draw();
    QStringList drawRecord(QTextCursor& cursor, const ComparedVersions& record);
    void drawField(QTextTable& table, const ComparedField& field, bool hasOlder) const;
    void drawTexts(QTextTable& table, int row, const ComparedField& field) const;
    void drawLinks(QTextTable& table, int row, const ComparedField& field) const;

    QTextEdit* m_text;
    QCheckBox* m_onlyDifferences;
    std::vector<ComparedVersions> m_shown;
    QString m_told;
};
