// SPDX-License-Identifier: GPL-3.0-or-later

#include "PseudoLocale.h"

#include "Portrait.h"
#include "support/Testing.h"
#include "widgets/ElidedLabel.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTextDocumentFragment>
#include <QTextEdit>
#include <QXmlStreamReader>

namespace {

/// Texts of Qt itself, which come from Qt's own translations.
const QSet<QString> qtContexts{u"QPlatformTheme"_s, u"QShortcut"_s, u"QLineEdit"_s, u"QTabBar"_s,
                               u"QWidgetTextControl"_s};

QString transformed(const QString& source)
{
    static const std::map<QChar, QString> accents{
        {u'a', u"áá"_s}, {u'e', u"éé"_s}, {u'i', u"íí"_s}, {u'o', u"óó"_s}, {u'u', u"úú"_s}, {u'y', u"ýý"_s},
        {u'A', u"Áá"_s}, {u'E', u"Éé"_s}, {u'I', u"Íí"_s}, {u'O', u"Óó"_s}, {u'U', u"Úú"_s}, {u'Y', u"Ýý"_s}};
    // what must stay: a placeholder, a tag
    static const QRegularExpression kept(u"%L?(?:\\d+|n)|<[^>]*>"_s);
    QString text(u'[');
    for (qsizetype at = 0; at < source.size(); ++at) {
        const auto match = kept.match(source, at, QRegularExpression::NormalMatch,
                                      QRegularExpression::AnchorAtOffsetMatchOption);
        if (match.hasMatch()) {
            text += match.captured();
            at += match.capturedLength() - 1;
            continue;
        }
        const auto accent = accents.find(source[at]);
        text += accent == accents.end() ? QString(source[at]) : accent->second;
    }
    return text + u']';
}

QString plain(QString text)
{
    if (Qt::mightBeRichText(text)) text = QTextDocumentFragment::fromHtml(text).toPlainText();
    return text;
}

/// What assistive technology is told of a widget and of what it paints.
void addAccessible(QAccessibleInterface& element, QStringList& texts)
{
    for (const QAccessible::Text kind : {QAccessible::Name, QAccessible::Description, QAccessible::Help})
        texts << element.text(kind);
    for (int i = 0; i < std::min(element.childCount(), 200); ++i) {
        QAccessibleInterface* child = element.child(i);
        if (child != nullptr && child->object() == nullptr) addAccessible(*child, texts);
    }
}

void addModel(const QAbstractItemModel& model, QStringList& texts)
{
    for (int column = 0; column < model.columnCount(); ++column) {
        for (const int role : {Qt::DisplayRole, Qt::ToolTipRole}) {
            texts << model.headerData(column, Qt::Horizontal, role).toString();
            for (int row = 0; row < model.rowCount(); ++row)
                texts << model.index(row, column).data(role).toString();
        }
    }
}

/// The texts that one widget holds, seen or not.
QStringList textsOf(QWidget& widget)
{
    QStringList texts{widget.toolTip(), widget.statusTip(), widget.whatsThis()};
    if (widget.isWindow()) texts << widget.windowTitle();
    if (const auto* label = qobject_cast<QLabel*>(&widget)) texts << label->text();
    if (const auto* button = qobject_cast<QAbstractButton*>(&widget)) texts << button->text();
    if (const auto* box = qobject_cast<QGroupBox*>(&widget)) texts << box->title();
    if (const auto* line = qobject_cast<QLineEdit*>(&widget)) texts << line->placeholderText();
    if (const auto* menu = qobject_cast<QMenu*>(&widget)) texts << menu->title();
    if (const auto* edit = qobject_cast<QTextEdit*>(&widget)) texts << edit->toPlainText();
    if (const auto* combo = qobject_cast<QComboBox*>(&widget)) addModel(*combo->model(), texts);
    if (const auto* view = qobject_cast<QAbstractItemView*>(&widget)) {
        if (view->model() != nullptr) addModel(*view->model(), texts);
    }
    if (const auto* tabs = qobject_cast<QTabBar*>(&widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            texts << tabs->tabText(i) << tabs->tabToolTip(i);
    }
    if (QAccessibleInterface* element = QAccessible::queryAccessibleInterface(&widget))
        addAccessible(*element, texts);
    return texts;
}

/// How much wider and higher a control must be for the whole of its text.
QSize lackOf(const QWidget& widget)
{
    // a text of any length is cut on purpose there, and shown whole as a tool-tip
    if (qobject_cast<const ElidedLabel*>(&widget) != nullptr) return {};
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label != nullptr && label->wordWrap())
        return {0, label->heightForWidth(label->width()) - label->height()};
    const bool isText = label != nullptr
                            ? label->pixmap().isNull() && !label->text().isEmpty()
                            : qobject_cast<const QCheckBox*>(&widget) != nullptr ||
                                  widget.inherits("QPushButton") || widget.inherits("QRadioButton");
    if (isText) return widget.minimumSizeHint() - widget.size();
    if (const auto* box = qobject_cast<const QGroupBox*>(&widget))
        return {box->fontMetrics().horizontalAdvance(box->title()) - box->width(), 0};
    if (const auto* tabs = qobject_cast<const QTabBar*>(&widget))
        return {tabs->tabRect(tabs->count() - 1).right() - tabs->width(), 0};
    return {};
}

std::string described(const QWidget& widget)
{
    return widget.metaObject()->className() + (' ' + widget.objectName().toStdString());
}

} // namespace

PseudoLocale::PseudoLocale(const QString& translationTemplate)
{
    QFile file(translationTemplate);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("the template cannot be read");
    QXmlStreamReader xml(&file);
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == u"name") context = xml.readElementText();
        if (xml.name() == u"source") m_texts.insert({context, xml.readElementText()});
    }
    QCoreApplication::installTranslator(this);
}

PseudoLocale::~PseudoLocale()
{
    QCoreApplication::removeTranslator(this);
}

QString PseudoLocale::translate(const char* context, const char* source, const char* /*disambiguation*/,
                                int /*number*/) const
{
    const QString contextName = QString::fromUtf8(context);
    const QString text = QString::fromUtf8(source);
    const bool isKnown = qtContexts.contains(contextName) || m_texts.contains({contextName, text});
    return isKnown ? transformed(text) : QString();
}

void PseudoLocale::allow(const QString& text)
{
    static const QRegularExpression noLetters(u"\\P{L}+"_s);
    for (const QString& word : text.split(noLetters, Qt::SkipEmptyParts))
        m_allowed.insert(word);
}

void PseudoLocale::expectTranslated(const QString& text, const char* where) const
{
    static const QRegularExpression words(u"\\p{L}+"_s);
    static const QRegularExpression vowel(u"[aeiouyAEIOUY]"_s);
    const QString shown = plain(text).remove(u'&');
    for (const QRegularExpressionMatch& match : words.globalMatch(shown)) {
        const QString word = match.captured();
        EXPECT_TRUE(word.size() == 1 || !word.contains(vowel) || m_allowed.contains(word))
            << where << ": " << qPrintable(word) << " in " << qPrintable(text);
    }
}

void PseudoLocale::expectTranslated(QWidget& window, const char* where) const
{
    QSet<QString> seen;
    const auto expect = [&](const QString& text, const std::string& place) {
        if (text.isEmpty() || seen.contains(text)) return;
        seen.insert(text);
        expectTranslated(text, place.c_str());
    };
    QList<QWidget*> widgets = window.findChildren<QWidget*>();
    widgets.prepend(&window);
    for (QWidget* widget : widgets) {
        const std::string place = where + (": " + described(*widget));
        for (const QString& text : textsOf(*widget))
            expect(text, place);
    }
    for (const QAction* action : window.findChildren<QAction*>()) {
        const std::string place = where + (": " + action->objectName().toStdString());
        for (const QString& text :
             {action->text(), action->iconText(), action->toolTip(), action->statusTip()})
            expect(text, place);
    }
    const QStringList painted = textsPaintedBy(window);
    EXPECT_FALSE(painted.isEmpty()) << where;
    for (const QString& text : painted)
        expect(text, where + std::string(": painted"));
    expectWhole(window, where);
}

void PseudoLocale::expectWhole(QWidget& window, const char* where) const
{
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible()) continue;
        const QSize lack = lackOf(*widget);
        EXPECT_TRUE(lack.width() <= 0 && lack.height() <= 0)
            << where << ": " << described(*widget) << " lacks " << lack.width() << 'x' << lack.height();
    }
}
