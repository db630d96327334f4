// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "check/CollectionCheck.h"
#include "platform/Platform.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <memory>

class FindingsModel;
class QLabel;
class QProgressBar;
class QPushButton;
class QTreeView;
class QVBoxLayout;

/// The modal dialog that checks a collection and shows what was found. The checks are made in steps between
/// the events of the window. Lives for one opening.
class frmCheck final : public QDialog
{
    Q_OBJECT

public:
    /// What the dialog works with. The references must outlive it.
    struct Surroundings
    {
        Platform platform;
        QString database;                    ///< the file of the open database
        const ProgramFolder& folder;         ///< of that database
        std::function<QString()> unwritable; ///< why nothing can be changed; empty if it can
        std::function<void(RecordKind kind, qint64 identifier, QWidget& over)> view; ///< shows a record
    };

    frmCheck(Surroundings surroundings, QWidget* parent);

    /// Shows the dialog, which begins with the structure at once, until the user closes it.
    void showCheck();

    void done(int result) override;

Q_SIGNALS:
    /// SQLite cannot read the database wholly; `cause` is the first thing that it found.
    void damageFound(const QString& cause);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeTree();
    void makeButtons(QVBoxLayout& column);
    QPushButton* makeButton(const char* name, const QString& text, const QString& toolTip,
                            void (frmCheck::*command)());
    void layOut(QVBoxLayout* buttons);
    void begin(CheckScope scope);
    void checkAgain();
    void checkFiles();
    void stop();
    void end();
    void goOn();
    void showFinished();
    void showProgress();
    void enableButtons();
    [[nodiscard]] QModelIndex selected() const;
    [[nodiscard]] QString hindranceOfStep() const;
    void takeStep();
    [[nodiscard]] bool findFile(const Finding& finding);
    [[nodiscard]] bool putAside(const Finding& finding);
    void copyFindings();

    Surroundings m_at;
    FindingsModel* m_model;
    std::unique_ptr<CollectionCheck> m_check; ///< that is being made
    CheckScope m_scope = CheckScope::Structure;
    std::size_t m_made = 0; ///< how many of its checks were made when they were shown last
    QTimer m_timer;
    QTreeView* tvwChecks = nullptr;
    QPushButton* cmdStep = nullptr;
    QPushButton* cmdCopy = nullptr;
    QPushButton* cmdCheckAgain = nullptr;
    QPushButton* cmdCheckFiles = nullptr;
    QPushButton* cmdStop = nullptr;
    QProgressBar* m_bar = nullptr;
    QLabel* lblOutcome = nullptr;
};
