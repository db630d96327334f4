// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/RecordKind.h"

#include <QObject>
#include <QStringList>

class ElidedLabel;
class LinkButton;
class QLabel;
class QMainWindow;
class QStatusBar;
class QWidget;

/// The status bar: the view's caption, what was changed last, a notice, how far the files are read, the
/// number of selected rows and that of all rows.
class StatusLine final : public QObject
{
    Q_OBJECT

public:
    /// The panels become part of the window's status bar.
    explicit StatusLine(QMainWindow& window);

    /// Shows the caption of a view and its number of rows; clears what showSaved() and
    /// showNotice() showed.
    void showView(const QString& caption, const QString& count);

    /// Shows another number of rows of the same view.
    void showCount(const QString& count);

    /// Says that a record was saved, and whether the list's filter hides it, until another view is shown.
    void showSaved(RecordKind kind, const QString& name, bool isHidden);

    /// Says that records were deleted and offers to take it back, until another view is shown. `undo` is the
    /// name of that command.
    void showDeleted(RecordKind kind, const QStringList& names, const QString& undo);

    /// Says what was changed, until another view is shown; nothing if the text is empty.
    void showChange(const QString& text);

    /// Says something that the user has to know of the view, until another is shown.
    void showNotice(const QString& text);

    void showSelected(std::size_t rows);

    /// Says how far the files are read, whatever view is shown, and offers `link` beside it; nothing if the
    /// text is empty. `explanation` is the tool-tip of the link.
    void showReading(const QString& text, const QString& link, const QString& explanation);

Q_SIGNALS:
    void undoAsked();
    void readingLinkFollowed();

private:
    void addReading(QStatusBar& bar);

    QLabel* m_view;
    QWidget* m_change; ///< holds the two below
    ElidedLabel* m_saved;
    LinkButton* m_undo;
    ElidedLabel* m_notice;
    QWidget* m_reading; ///< holds the two below
    QLabel* m_progress;
    LinkButton* m_readingLink;
    QLabel* m_selection;
    QLabel* m_status;
    bool m_hasChange = false; ///< whether the panel of the last change has something to say
};
