// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/FileHints.h"

#include "util/FileStrings.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Extensions that belong together, and the words for them in the names of file types.
struct Family
{
    QStringList extensions;
    QStringList words;
    int knownType; ///< the type of the first eight that stands for it; 0 for none
};

const std::vector<Family>& families()
{
    static const std::vector<Family> all{
        {{u"pdf"_s}, {u"pdf"_s, u"acrobat"_s}, 2},
        {{u"htm"_s, u"html"_s, u"mht"_s, u"mhtml"_s}, {u"html"_s, u"htm"_s, u"web"_s}, 4},
        {{u"doc"_s, u"docx"_s, u"odt"_s, u"rtf"_s}, {u"word"_s, u"doc"_s, u"rtf"_s}, 3},
        {{u"xls"_s, u"xlsx"_s, u"ods"_s, u"csv"_s}, {u"excel"_s, u"spreadsheet"_s}, 8},
        {{u"ppt"_s, u"pptx"_s, u"odp"_s}, {u"powerpoint"_s, u"presentation"_s}, 5},
        {{u"txt"_s}, {u"text"_s, u"txt"_s}, 7},
        {{u"jpg"_s, u"jpeg"_s, u"png"_s, u"gif"_s, u"bmp"_s, u"tif"_s, u"tiff"_s},
         {u"picture"_s, u"pictures"_s, u"image"_s, u"images"_s, u"photo"_s, u"photos"_s, u"photograph"_s,
          u"photographs"_s},
         6},
        {{u"mp3"_s, u"wav"_s, u"ogg"_s, u"wma"_s}, {u"sound"_s, u"audio"_s}, 0},
        {{u"mp4"_s, u"avi"_s, u"mpg"_s, u"mpeg"_s, u"mov"_s, u"wmv"_s},
         {u"video"_s, u"movie"_s, u"film"_s},
         0},
    };
    return all;
}

FileStrings partsOf(const QString& path)
{
    FileStrings parts;
    parts.CrackFileName(QString(path).replace(u'/', u'\\'));
    return parts;
}

/// The words of a type's name, in lower case.
QStringList wordsOf(const QString& typeName)
{
    static const QRegularExpression noWord(u"\\W+"_s, QRegularExpression::UseUnicodePropertiesOption);
    return typeName.toLower().split(noWord);
}

QStringList wordsFor(const QString& extension)
{
    QStringList words{extension};
    for (const Family& family : families()) {
        if (family.extensions.contains(extension)) words << family.words;
    }
    return words;
}

} // namespace

std::optional<qint64> FileHints::fileType(const QString& path, const std::vector<ListEntry>& types)
{
    const QString extension = partsOf(path).extension().toLower();
    if (extension.isEmpty()) return std::nullopt;
    const QStringList words = wordsFor(extension);
    std::optional<qint64> found;
    for (const ListEntry& type : types) {
        const QStringList named = wordsOf(type.display);
        const bool isMeant = std::any_of(named.begin(), named.end(),
                                         [&](const QString& each) { return words.contains(each); });
        if (!isMeant) continue;
        if (found) return std::nullopt;
        found = type.key;
    }
    return found;
}

int FileHints::knownType(int type, const QString& name)
{
    const QStringList named = wordsOf(name);
    for (const Family& family : families()) {
        const bool isMeant = std::any_of(named.begin(), named.end(), [&family](const QString& each) {
            return family.words.contains(each) || family.extensions.contains(each);
        });
        if (isMeant) return family.knownType;
    }
    return type;
}

QString FileHints::title(const QString& path)
{
    static const QRegularExpression hyphen(u"(?<![0-9])-|-(?![0-9])"_s);
    QString title = partsOf(path).baseName();
    return title.replace(u'_', u' ').replace(hyphen, u" "_s).simplified();
}
