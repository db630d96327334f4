// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QFile>
#include <QHash>
#include <QString>

/// Which files a check that was given up has read already, so that the next one goes on there. They are notes
/// and no more: if they cannot be kept or read, every file is read.
class ReadNotes
{
public:
    /// What a file was when it was read.
    struct State
    {
        qint64 size = 0;
        qint64 modified = 0; ///< milliseconds since 1970
        QByteArray sha256;   ///< that it was compared with; empty if there was none

        bool operator==(const State&) const = default;
    };

    /// Reads the notes in a file; without a file name, nothing is kept.
    explicit ReadNotes(const QString& file);

    /// Whether a file was read in that state and was what it should be.
    [[nodiscard]] bool has(const QString& name, const State& state) const
    {
        return m_known.value(name) == state;
    }

    void add(const QString& name, const State& state);

    /// Removes the notes: the check came to its end, so that the next one reads everything.
    void remove();

private:
    QFile m_file;
    QHash<QString, State> m_known;
};
