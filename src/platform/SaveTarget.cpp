// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/SaveTarget.h"

#include "platform/FileDialogs.h"
#include "platform/Messages.h"
#include "platform/Platform.h"
#include "platform/PlatformTexts.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

QString SaveTarget::choose(const Platform& platform, const QString& title, const QString& proposed,
                           const QString& filter, const QStringList& endings)
{
    QString chosen = platform.fileDialogs.saveFile(title, proposed, filter);
    const bool isWhole = std::ranges::any_of(
        endings, [&](const QString& ending) { return chosen.endsWith(ending, Qt::CaseInsensitive); });
    if (chosen.isEmpty() || isWhole) return chosen;
    const QString file = chosen + endings.front();
    // the dialog has asked about the name that was typed
    const bool mayReplace =
        !QFileInfo::exists(file) || platform.messages.ask(PlatformTexts::tr("%1 already exists.\n\n"
                                                                            "Do you want to replace it?")
                                                              .arg(QDir::toNativeSeparators(file)),
                                                          Question::Loss);
    return mayReplace ? file : QString();
}

QString SaveTarget::nameFor(const QString& text)
{
    constexpr qsizetype mostBytes = 200; // of the 255 that file systems allow, some are for the ending
    const auto isForbidden = [](QChar character) {
        return character.category() == QChar::Other_Control ||
               QStringLiteral("\\/:*?\"<>|").contains(character);
    };
    QString name = text;
    std::ranges::replace_if(name, isForbidden, u' ');
    name = name.simplified();
    while (name.startsWith(u'.'))
        name.remove(0, 1);
    while (name.toUtf8().size() > mostBytes)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    // Windows drops blanks and points at the end
    while (name.endsWith(u'.') || name.endsWith(u' '))
        name.chop(1);
    return name;
}
