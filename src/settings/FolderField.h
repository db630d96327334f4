// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class FileDialogs;
class QLabel;
class QLineEdit;

/// A line for the path of a folder, which is typed or chosen in a dialog. Says beneath it that there is no
/// such folder, but does not insist on one: it may be on a drive that is not there now.
class FolderField final : public QWidget
{
    Q_OBJECT

public:
    /// `name` is the end of the object names of its parts, as `Place` in `txtPlace`; `title` says which
    /// folder it is, to screen readers and in the dialog. The dialogs must outlive the field.
    FolderField(const QString& name, const QString& title, FileDialogs& dialogs, QWidget* parent);

    void setFolder(const QString& folder);

    /// What is shown while the field is empty.
    void setHint(const QString& hint);

    /// The path, stripped of what a file manager or a terminal puts around it.
    [[nodiscard]] QString folder() const;

private:
    void choose();
    void check();

    FileDialogs& m_dialogs;
    QString m_title;
    QLineEdit* m_path;
    QLabel* m_note;
};
