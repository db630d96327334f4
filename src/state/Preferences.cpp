// SPDX-License-Identifier: GPL-3.0-or-later

#include "state/Preferences.h"

#include "platform/StdREG.h"

#include <array>
#include <utility>

namespace {

constexpr QStringView yes = u"Yes";
constexpr QStringView no = u"No";

constexpr std::array<std::pair<ViewKind, QStringView>, 4> pages{
    {{ViewKind::Home, u"Home"},
     {ViewKind::Documents, u"Documents"},
     {ViewKind::Events, u"Events"},
     {ViewKind::Organizations, u"Organizations"}}};

bool isSame(const QString& text, QStringView word)
{
    return word.compare(text, Qt::CaseInsensitive) == 0;
}

void takeFlag(bool& flag, const QString& text)
{
    if (isSame(text, yes)) flag = true;
    if (isSame(text, no)) flag = false;
}

QString flagText(bool flag)
{
    return (flag ? yes : no).toString();
}

void takePage(ViewKind& page, const QString& text)
{
    for (const auto& [kind, word] : pages)
        if (isSame(text, word)) page = kind;
}

QString pageText(ViewKind page)
{
    QString text;
    for (const auto& [kind, word] : pages)
        if (kind == page) text = word.toString();
    return text;
}

void takePercent(int& percent, const QString& text)
{
    const int number = text.toInt();
    if (number >= Preferences::smallestTextSize && number <= Preferences::largestTextSize) percent = number;
}

/// A value: its name in the settings, its text there, and how a text is taken. A text that cannot be
/// understood leaves the value as it is.
struct Value
{
    QStringView name;
    QString (*text)(const Preferences& preferences);
    void (*take)(Preferences& preferences, const QString& text);
};

constexpr std::array values{
    Value{u"StartDatabase", [](const Preferences& p) { return p.startDatabase; },
          [](Preferences& p, const QString& text) { p.startDatabase = text; }},
    Value{u"StartPage", [](const Preferences& p) { return pageText(p.startPage); },
          [](Preferences& p, const QString& text) { takePage(p.startPage, text); }},
    Value{u"AskOnExit", [](const Preferences& p) { return flagText(p.asksOnExit); },
          [](Preferences& p, const QString& text) { takeFlag(p.asksOnExit, text); }},
    Value{u"ListTextSize", [](const Preferences& p) { return QString::number(p.listTextSize); },
          [](Preferences& p, const QString& text) { takePercent(p.listTextSize, text); }},
    Value{u"FourDigitYears", [](const Preferences& p) { return flagText(p.fourDigitYears); },
          [](Preferences& p, const QString& text) { takeFlag(p.fourDigitYears, text); }},
    Value{u"CollectionsPlace", [](const Preferences& p) { return p.collectionsPlace; },
          [](Preferences& p, const QString& text) { p.collectionsPlace = text; }},
    Value{u"DataDiscFolder", [](const Preferences& p) { return p.discFolders.data; },
          [](Preferences& p, const QString& text) { p.discFolders.data = text; }},
    Value{u"PhotosDiscFolder", [](const Preferences& p) { return p.discFolders.photos; },
          [](Preferences& p, const QString& text) { p.discFolders.photos = text; }},
};

} // namespace

Preferences Preferences::read(SettingsStore& settings)
{
    const StdREG key(settings);
    Preferences preferences;
    for (const Value& value : values)
        value.take(preferences, key.GetRegString(QString(), value.name.toString()));
    return preferences;
}

void Preferences::write(SettingsStore& settings, const Preferences& before) const
{
    StdREG key(settings);
    for (const Value& value : values) {
        const QString text = value.text(*this);
        if (text != value.text(before)) key.WriteRegString(QString(), value.name.toString(), text);
    }
}
