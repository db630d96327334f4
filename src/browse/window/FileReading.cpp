// SPDX-License-Identifier: GPL-3.0-or-later

#include "browse/window/FileReading.h"

#include "browse/window/StatusLine.h"
#include "filetext/FileTextIndex.h"
#include "filetext/IndexedDocuments.h"
#include "platform/EndedProcess.h"
#include "state/ProgramState.h"
#include "util/Error.h"
#include "util/ReadableLine.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>
#include <array>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto idleTime = 1s;
constexpr auto repetition = 10min;
constexpr qint64 unnoticed = 1000; ///< milliseconds of a reading that are not worth a word

bool isOfUser(const QEvent& event)
{
    constexpr std::array kinds{QEvent::KeyPress, QEvent::MouseButtonPress, QEvent::Wheel};
    return std::find(kinds.begin(), kinds.end(), event.type()) != kinds.end();
}

} // namespace

FileReading::FileReading(const Platform& platform, ProgramState& state, StatusLine& status, QObject* parent)
    : QObject(parent), m_platform(platform), m_state(state), m_status(status)
{
    if (m_platform.programs.isEmpty()) return;
    m_idle.setSingleShot(true);
    m_idle.setInterval(idleTime);
    m_repeat.setInterval(repetition);
    connect(&m_idle, &QTimer::timeout, this, &FileReading::begin);
    connect(&m_step, &QTimer::timeout, this, &FileReading::readNames);
    connect(&m_repeat, &QTimer::timeout, this, &FileReading::lookForChanges);
    connect(&m_status, &StatusLine::readingLinkFollowed, this, &FileReading::followLink);
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState applicationState) {
                if (applicationState == Qt::ApplicationActive) lookForChanges();
            });
    qApp->installEventFilter(this);
    m_repeat.start();
}

FileReading::~FileReading()
{
    endProgram();
}

void FileReading::lookForChanges()
{
    if (!m_platform.programs.isEmpty() && m_shown != Shown::Pause) m_idle.start();
}

void FileReading::stop()
{
    endProgram();
    show(Shown::Nothing);
}

bool FileReading::eventFilter(QObject* watched, QEvent* event)
{
    if (m_idle.isActive() && isOfUser(*event)) m_idle.start();
    return QObject::eventFilter(watched, event);
}

/// What is asked for while the program runs, or while a dialog is open, is done afterwards: a dialog may be
/// about to replace the database and its files.
void FileReading::begin()
{
    const bool isRunning = m_program && m_program->state() != QProcess::NotRunning;
    const bool isBusy = m_step.isActive() || isRunning || QApplication::activeModalWidget() != nullptr;
    if (isBusy) {
        m_idle.start();
        return;
    }
    const DatabaseSession& session = m_state.session;
    if (session.isReadOnly() || !QFileInfo::exists(session.fileName())) return;
    m_names.clear();
    m_documents = indexedDocuments();
    m_step.start(0ms);
}

void FileReading::readNames()
{
    try {
        for (const HeldRow& row : m_documents->next(m_state.session))
            m_names += textOf(row, u"FileLocation").toUtf8() + '\0';
    } catch (const Error&) {
        // whatever the user does next reports it
        m_step.stop();
        return;
    }
    if (!m_documents->isDone()) return;
    m_step.stop();
    startProgram();
}

void FileReading::startProgram()
{
    m_progress.clear();
    m_runTime.start();
    m_program = std::make_unique<QProcess>();
    connect(m_program.get(), &QProcess::readyReadStandardOutput, this, &FileReading::takeProgress);
    connect(m_program.get(), &QProcess::finished, this, &FileReading::end);
    connect(m_program.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) end();
    });
    m_program->start(m_platform.programs + QStringLiteral("/orvik-index"),
                     {FileTextIndex::pathOf(m_state.session.fileName()),
                      m_state.folder.folderPath(ProgramFolders::documents)});
    m_program->write(m_names);
    m_program->closeWriteChannel();
    m_names.clear();
}

void FileReading::takeProgress()
{
    const QByteArray line = m_program->readAllStandardOutput().trimmed().split('\n').back();
    const QByteArrayList numbers = line.split(' ');
    if (numbers.size() != 2) return;
    const QLocale locale;
    m_progress = tr("%1 of %2")
                     .arg(locale.toString(numbers[0].toLongLong()), locale.toString(numbers[1].toLongLong()));
    if (m_runTime.hasExpired(unnoticed)) show(Shown::Progress);
}

/// The program has ended by itself, or could not be started.
void FileReading::end()
{
    const QString cause = failure();
    show(cause.isEmpty() ? Shown::Nothing : Shown::Failure, cause);
}

/// Why the program did not do its work; empty if it did.
QString FileReading::failure()
{
    if (m_program->error() == QProcess::FailedToStart)
        return tr("The program that reads them is not installed: %1").arg(m_program->program());
    if (m_program->exitStatus() == QProcess::NormalExit && m_program->exitCode() == 0) return {};
    const QString said = QString::fromUtf8(m_program->readAllStandardError().trimmed());
    return said.isEmpty() ? tr("The program that reads them failed.") : readableLine(said);
}

void FileReading::followLink()
{
    const Shown before = m_shown;
    endProgram();
    show(before == Shown::Progress ? Shown::Pause : Shown::Nothing);
    if (m_shown == Shown::Nothing) begin();
}

void FileReading::endProgram()
{
    m_idle.stop();
    m_step.stop();
    endProcess(std::move(m_program));
}

void FileReading::show(Shown what, const QString& failure)
{
    m_shown = what;
    switch (what) {
    case Shown::Nothing:
        m_status.showReading({}, {}, {});
        break;
    case Shown::Progress:
        m_status.showReading(tr("Reading files: %1").arg(m_progress), tr("Pause"),
                             tr("The texts of the files are read so that a search finds words in them"));
        break;
    case Shown::Pause:
        m_status.showReading(tr("Reading paused: %1").arg(m_progress), tr("Continue"), {});
        break;
    case Shown::Failure:
        m_status.showReading(tr("The files could not be read."), tr("Try Again"), failure);
        break;
    }
}
