// SPDX-License-Identifier: GPL-3.0-or-later

#include "CommandLine.h"

#include "util/Error.h"

#include <QCoreApplication>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace console {

namespace {

const QString jsonOption = u"--json"_s;
const QString helpOption = u"--help"_s;

constexpr qsizetype optionWidth = 15;
constexpr qsizetype usageWidth = 28;

const std::vector<Option>& optionsOfAll()
{
    static const std::vector<Option> all{{jsonOption, u"prints the result as one JSON document"_s},
                                         {u"-h, --help"_s, u"prints this text"_s}};
    return all;
}

[[noreturn]] void refuse(const QString& what)
{
    throw Error(EINVAL, what);
}

QString usageOf(const Command& command)
{
    QString usage = command.name;
    for (const Option& option : command.options)
        usage += u" ["_s + option.name + u']';
    return usage + u' ' + command.operands.join(u' ');
}

/// What a long name is followed by stands below it, in the same column.
QString lineOf(const QString& name, const QString& text, qsizetype width)
{
    QString line = u"  "_s + name.leftJustified(width);
    if (name.size() > width - 2) line = u"  "_s + name + u'\n' + QString(width + 2, u' ');
    return line + text + u'\n';
}

QString helpOf(const Command& command)
{
    QString text = u"Usage: orvik-tool "_s + usageOf(command) + u" [--json]\n"_s + command.summary + u".\n"_s;
    if (!command.description.isEmpty()) text += u'\n' + command.description + u'\n';
    text += u'\n';
    for (const Option& option : command.options)
        text += lineOf(option.name, option.text, optionWidth);
    for (const Option& option : optionsOfAll())
        text += lineOf(option.name, option.text, optionWidth);
    return text;
}

QString helpOfAll()
{
    QString text = u"Usage: orvik-tool COMMAND [OPTION]... ARGUMENT...\n"
                   "Works with collections of Orvik Database without a window.\n\n"_s;
    for (const Command& command : allCommands())
        text += lineOf(usageOf(command), command.summary, usageWidth);
    text += u"\nCOLLECTION is the folder of a collection or the database in it.\n"
            "KIND is documents, events or organizations; a record is KIND:ID, such as events:7.\n\n"_s;
    for (const Option& option : optionsOfAll())
        text += lineOf(option.name, option.text, optionWidth);
    text += lineOf(u"--version"_s, u"prints the version"_s, optionWidth);
    return text +
           u"\norvik-tool COMMAND --help tells more of a command. The exit status is 0 if all is well, "
           "1 if\na check found something, 2 after an error.\n"_s;
}

const Command& commandOf(const QString& name)
{
    const std::vector<Command>& all = allCommands();
    const auto found =
        std::find_if(all.begin(), all.end(), [&name](const Command& each) { return each.name == name; });
    if (found == all.end()) {
        if (name == jsonOption) refuse(u"%1 comes after the command; see orvik-tool --help."_s.arg(name));
        refuse(name.startsWith(u'-') ? u"There is no option %1; see orvik-tool --help."_s.arg(name)
                                     : u"There is no command %1; see orvik-tool --help."_s.arg(name));
    }
    return *found;
}

/// Several words for the last operand are one, with blanks between them.
void setOperands(const Command& command, const QStringList& words, Invocation& called)
{
    const qsizetype number = command.operands.size();
    const bool takesMore = command.operands.back().endsWith(u"..."_s);
    if (words.size() < number) {
        refuse(u"%1 is missing; see orvik-tool %2 --help."_s.arg(
            QString(command.operands[words.size()]).remove(u"..."_s), command.name));
    }
    if (words.size() > number && !takesMore)
        refuse(u"%1 is too much; see orvik-tool %2 --help."_s.arg(words[number], command.name));
    called.operands = words.first(number - 1) << words.sliced(number - 1).join(u' ');
    for (qsizetype i = 0; i < number; ++i) {
        if (called.operands[i].trimmed().isEmpty())
            refuse(u"%1 is empty."_s.arg(QString(command.operands[i]).remove(u"..."_s)));
    }
}

} // namespace

CommandLine CommandLine::read(const QStringList& arguments)
{
    CommandLine line;
    const QString first = arguments.value(0);
    if (first.isEmpty()) refuse(u"A command is missing; see orvik-tool --help."_s);
    if (first == helpOption || first == u"-h"_s) line.text = helpOfAll();
    if (first == u"--version"_s)
        line.text = u"Orvik Database %1\n"_s.arg(QCoreApplication::applicationVersion());
    if (!line.text.isEmpty()) return line;

    const Command& command = commandOf(first);
    QStringList words;
    bool areOptionsOver = false;
    for (const QString& argument : arguments.sliced(1)) {
        const bool isOption = !areOptionsOver && argument.size() > 1 && argument.startsWith(u'-');
        if (!isOption) {
            words << argument;
        } else if (argument == u"--"_s) {
            areOptionsOver = true;
        } else if (argument == helpOption || argument == u"-h"_s) {
            line.text = helpOf(command);
            return line;
        } else if (argument == jsonOption) {
            line.called.isJson = true;
        } else if (std::any_of(command.options.begin(), command.options.end(),
                               [&argument](const Option& each) { return each.name == argument; })) {
            line.called.options << argument;
        } else {
            refuse(u"%1 has no option %2; see orvik-tool %1 --help."_s.arg(command.name, argument));
        }
    }
    setOperands(command, words, line.called);
    line.command = &command;
    return line;
}

} // namespace console
