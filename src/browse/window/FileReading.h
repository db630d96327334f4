// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "data/TableScan.h"
#include "platform/Platform.h"

#include <QElapsedTimer>
#include <QObject>
#include <QProcess>
#include <QTimer>

#include <memory>
#include <optional>

class StatusLine;
struct ProgramState;

/// Keeps the index of the files' texts up to date while the user does nothing, by a program of its own, and
/// shows in the status line how far that is. Lives as long as the window.
///
/// A file that another program changed is noticed once the user comes back from there, or some minutes later.
/// A collection that cannot be written to is left alone.
class FileReading final : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    FileReading(const Platform& platform, ProgramState& state, StatusLine& status, QObject* parent);
    ~FileReading() override;

    /// To be called once another database is open, after a change to it, and if its files may have changed.
    void lookForChanges();

    /// Ends the program, and the user's pause; what it has read stays.
    void stop();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void begin();
    void readNames();
    void startProgram();
    void takeProgress();
    void end();
    void followLink();
    void endProgram();
    [[nodiscard]] QString failure();

    /// What the status line shows.
    enum class Shown
    {
        Nothing,
        Progress,
        Pause,
        Failure
    };
    void show(Shown what, const QString& failure = {});

    Platform m_platform;
    ProgramState& m_state;
    StatusLine& m_status;
    QTimer m_idle;   ///< runs out once the user has done nothing for a while
    QTimer m_step;   ///< reads names between two events
    QTimer m_repeat; ///< looks for changes that nobody told of
    std::optional<TableScan> m_documents;
    QByteArray m_names;                  ///< each with a NUL byte behind it
    std::unique_ptr<QProcess> m_program; ///< once it was started, and until somebody ends it
    QElapsedTimer m_runTime;
    QString m_progress; ///< such as `12 of 305`
    Shown m_shown = Shown::Nothing;
};
