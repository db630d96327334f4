// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "Journey.h"

/// A journey that edits records. `form` is the editor's name, `rows` a file of the rows to begin with.
class EditorJourney : public ::testing::Test
{
protected:
    EditorJourney(const char* form, const char* rows) : m_form(form) { journey.database.runFile(rows); }

    void start(const char* view)
    {
        journey.start();
        journey.trigger(view);
    }

    /// Makes a row the current one, as the keyboard does.
    void choose(int row) { journey.list().setCurrentIndex(journey.list().model()->index(row, 0)); }

    void inEditor(const char* command, const std::function<void(OpenDialog&)>& work)
    {
        journey.inDialog(m_form, command, work);
    }

    void editFirst(const std::function<void(OpenDialog&)>& work)
    {
        choose(0);
        inEditor("mnuRecordEdit", work);
    }

    std::string rows(const char* statement) { return journey.rows(statement); }
    ScriptedMessages& messages() { return journey.desktop.messages; }

    Journey journey;

private:
    const char* m_form;
};
