// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QWidget>

#include <vector>

class HomeButton;
class QHBoxLayout;
class QLabel;
class QPushButton;

/// The home page: a picture button for each kind of record, for the search and for the user's guide.
class HomePage final : public QWidget
{
    Q_OBJECT

public:
    explicit HomePage(QWidget* parent);

    /// Sets the line below the title.
    void setSubtitle(const QString& text);

    /// Shows or hides what a user without a database can begin with. `noSample` says why there is no sample
    /// to look at; it is empty if there is one.
    void setBeginning(bool isShown, const QString& noSample);

    /// A database to go to.
    struct Link
    {
        QString name; ///< what is handed back if it is chosen
        QString caption;
        QString tip;
    };

    /// Shows the first few of other databases that were opened lately.
    void setRecent(const std::vector<Link>& databases);

Q_SIGNALS:
    /// The user wants all records of a kind.
    void recordsChosen(RecordKind kind);

    /// The user wants to search by keywords.
    void searchChosen();

    /// The user wants the user's guide.
    void helpChosen();

    /// The user wants a new collection, to open a database, the sample, or a recent database.
    void newChosen();
    void openChosen();
    void sampleChosen();
    void recentChosen(const QString& name);

private:
    HomeButton& addButton(const QString& picture, const QString& caption, const QString& explanation);
    void addKind(RecordKind kind, const QString& picture, const QString& caption, const QString& explanation);

    void makeBeginning();

    QLabel* m_subtitle;
    QWidget* m_beginning;
    QPushButton* m_sample = nullptr;
    QWidget* m_recent;
    QHBoxLayout* m_buttons;
    int m_count = 0; ///< of the buttons
};
