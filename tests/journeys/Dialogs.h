// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/ScriptedPlatform.h"

#include <QDialog>

/// A modal dialog that is open, driven and looked at by the object names of its parts.
class OpenDialog
{
public:
    explicit OpenDialog(QDialog& dialog) : m_dialog(dialog) {}

    template <typename Widget>
    Widget& find(const char* objectName)
    {
        auto* widget = m_dialog.findChild<Widget*>(QString::fromUtf8(objectName));
        if (widget == nullptr) throw std::runtime_error(std::string("no such part: ") + objectName);
        return *widget;
    }

    /// Types over what a field holds, key by key.
    void type(const char* field, const QString& text);

    void click(const char* button);
    void press(Qt::Key key);

    /// Works in the dialog of that name that a button opens.
    void inDialog(const char* name, const char* button, const std::function<void(OpenDialog&)>& work);

    /// The text of a line, of a text of several lines, of a drop-down or a button; the items of a list,
    /// joined by `|`, those with a tick with `*` before them; the rows of a table, values joined by `|` and
    /// rows by line ends, the selected ones after `*`.
    std::string text(const char* field);

    /// Turns the tick of an item by its text, with the space bar.
    void tick(const char* list, const QString& item);

    void choose(const char* dropDown, const QString& entry);

    std::string title() const { return m_dialog.windowTitle().toStdString(); }

    /// The name of the part that has the focus.
    std::string focus() const;

    QDialog& dialog() { return m_dialog; }

private:
    QDialog& m_dialog;
};

/// Leaves an editor in which something was changed, by Cancel.
void discard(OpenDialog& dialog, ScriptedMessages& messages);

/// Answers the dialog for a new entry of a list, which a button opens, with a name.
void addEntry(OpenDialog& window, const char* button, const QString& name);

/// Runs `open`, which opens a modal dialog of that name and returns when it is closed, and `work` while it is
/// open. Work that leaves it open, and a dialog that never opens, fail the test.
void inDialog(const char* name, const std::function<void()>& open,
              const std::function<void(OpenDialog&)>& work);
