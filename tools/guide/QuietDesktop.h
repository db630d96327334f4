// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "opening/DatabaseConverter.h"
#include "platform/Clock.h"
#include "platform/FileAttributes.h"
#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "platform/OtherWindows.h"
#include "platform/Platform.h"
#include "platform/Printing.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"
#include "platform/Volumes.h"
#include "platform/WorkRunner.h"

#include <QCoreApplication>

#include <cstdio>
#include <map>

/// A desktop without a user: says Yes to every question, chooses no file, opens nothing and keeps its
/// settings to itself. What the program says goes to the error output, since no picture is meant to need it.
class QuietDesktop final : public Messages,
                           public SettingsStore,
                           public FileDialogs,
                           public DatabaseConverter,
                           public WorkRunner,
                           public Shell
{
public:
    void show(const QString& text) override { std::fprintf(stderr, "message: %s\n", qPrintable(text)); }
    [[nodiscard]] bool ask(const QString& text, Question /*about*/) override
    {
        std::fprintf(stderr, "question: %s\n", qPrintable(text));
        return true;
    }
    [[nodiscard]] std::optional<int> choose(const QString& text, const QStringList& /*answers*/) override
    {
        std::fprintf(stderr, "question: %s\n", qPrintable(text));
        return std::nullopt;
    }
    void beep() override {}

    [[nodiscard]] QString value(const QString& path) const override
    {
        const auto found = m_values.find(path);
        return found == m_values.end() ? QString() : found->second;
    }
    void setValue(const QString& path, const QString& value) override { m_values[path] = value; }

    [[nodiscard]] QString openFile(const QString& /*title*/, const QString& /*filter*/) override
    {
        return {};
    }
    [[nodiscard]] QString saveFile(const QString& /*title*/, const QString& /*proposed*/,
                                   const QString& /*filter*/) override
    {
        return {};
    }
    [[nodiscard]] QString chooseFolder(const QString& /*title*/, const QString& /*start*/) override
    {
        return {};
    }
    [[nodiscard]] Result convert(const QString& /*source*/, const QString& /*target*/,
                                 bool /*replace*/) override
    {
        return {};
    }
    [[nodiscard]] bool run(SteppedWork& /*work*/) override { return false; }
    [[nodiscard]] bool open(const QUrl& /*url*/) override { return false; }
    [[nodiscard]] bool start(const QString& /*program*/, const QString& /*file*/) override { return false; }

    [[nodiscard]] Platform platform()
    {
        return {*this,
                *this,
                m_fileAttributes,
                *this,
                m_clock,
                m_volumes,
                *this,
                m_otherWindows,
                *this,
                m_printing,
                QCoreApplication::applicationDirPath()};
    }

private:
    std::map<QString, QString> m_values;
    SystemFileAttributes m_fileAttributes;
    SystemClock m_clock;
    SystemVolumes m_volumes;
    NoOtherWindows m_otherWindows;
    NoPrinting m_printing;
};
