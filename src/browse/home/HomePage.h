// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/RecordKind.h"

#include <QWidget>

class HomeButton;
class QHBoxLayout;
class QLabel;

/// The home page: a picture button for each kind of record, for the search and for the user's guide.
class HomePage final : public QWidget
{
    Q_OBJECT

public:
    explicit HomePage(QWidget* parent);

    /// Sets the line below the title.
    void setSubtitle(const QString& text);

Q_SIGNALS:
    /// The user wants all records of a kind.
    void recordsChosen(RecordKind kind);

    /// The user wants to search by keywords.
    void searchChosen();

    /// The user wants the user's guide.
    void helpChosen();

private:
    HomeButton& addButton(const QString& picture, const QString& caption, const QString& explanation);
    void addKind(RecordKind kind, const QString& picture, const QString& caption, const QString& explanation);

    QLabel* m_subtitle;
    QHBoxLayout* m_buttons;
    int m_count = 0; ///< of the buttons
};
