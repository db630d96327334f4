// SPDX-License-Identifier: GPL-3.0-or-later

#include "Portrait.h"

#include "support/Testing.h"

#include <QtWidgets>

namespace {

template <typename Widget>
std::unique_ptr<QWidget> make()
{
    return std::make_unique<Widget>();
}

/// A new widget of the nearest Qt class that a widget derives from.
const QWidget& plainLike(const QWidget& widget)
{
    static const std::map<QByteArray, std::unique_ptr<QWidget> (*)()> makers = {
        {"QCheckBox", make<QCheckBox>},
        {"QComboBox", make<QComboBox>},
        {"QDialog", make<QDialog>},
        {"QFrame", make<QFrame>},
        {"QGraphicsView", make<QGraphicsView>},
        {"QGroupBox", make<QGroupBox>},
        {"QLabel", make<QLabel>},
        {"QLineEdit", make<QLineEdit>},
        {"QListView", make<QListView>},
        {"QListWidget", make<QListWidget>},
        {"QMainWindow", make<QMainWindow>},
        {"QPlainTextEdit", make<QPlainTextEdit>},
        {"QPushButton", make<QPushButton>},
        {"QRadioButton", make<QRadioButton>},
        {"QScrollArea", make<QScrollArea>},
        {"QScrollBar", make<QScrollBar>},
        {"QSplitter", make<QSplitter>},
        {"QStackedWidget", make<QStackedWidget>},
        {"QStatusBar", make<QStatusBar>},
        {"QTabWidget", make<QTabWidget>},
        {"QTextBrowser", make<QTextBrowser>},
        {"QToolBar", make<QToolBar>},
        {"QToolButton", make<QToolButton>},
        {"QTreeView", make<QTreeView>},
        {"QWidget", make<QWidget>},
    };
    static std::map<QByteArray, std::unique_ptr<QWidget>> plain;
    const QMetaObject* type = widget.metaObject();
    while (!makers.contains(type->className()))
        type = type->superClass();
    std::unique_ptr<QWidget>& known = plain[type->className()];
    if (known == nullptr) known = makers.at(type->className())();
    return *known;
}

/// What depends on the fonts, the screen or the moment, or is told in another way.
bool isLeftOut(const QString& property)
{
    static const QRegularExpression names(
        u"^(objectName|modal|geometry|.*[gG]eometry|pos|x|y|width|height|size|rect|childrenRect.*|sizeHint|"
        u"minimumSizeHint|(minimum|maximum|base)(Size|Width|Height)|sizeIncrement|font|palette|cursor|focus|"
        u"isActiveWindow|visible|hidden|underMouse|.*cursorPosition|cursorPosition|html|markdown|iconSize|"
        u"maximum|pageStep|value|sliderPosition|frameWidth|locale|windowIcon|fullScreen|maximized|minimized|"
        u"acceptableInput|blockCount|documentTitle|sceneRect|transform|currentIndex|count|handleWidth|"
        u"isSliderDown|sliderDown|down|windowModified|displayText|plainText_|selectedText|document|"
        u"selectionStart|iconText|hasSelectedText|undoAvailable|redoAvailable|isUndoAvailable|"
        u"isRedoAvailable|"
        u"modified|"
        u"updatesEnabled|windowFilePath|sizePolicy|movable|floating|indent|margin)$"_s);
    return names.match(property).hasMatch();
}

QString textOf(const QMetaProperty& property, const QVariant& value)
{
    if (property.isFlagType()) return QLatin1StringView(property.enumerator().valueToKeys(value.toInt()));
    if (property.isEnumType()) return QLatin1StringView(property.enumerator().valueToKey(value.toInt()));
    if (value.typeId() == QMetaType::QIcon) return value.value<QIcon>().isNull() ? u"none"_s : u"some"_s;
    if (value.typeId() == QMetaType::QPixmap) return value.value<QPixmap>().isNull() ? u"none"_s : u"some"_s;
    if (value.typeId() == QMetaType::QKeySequence)
        return value.value<QKeySequence>().toString(QKeySequence::PortableText);
    return value.toString().replace(u'\n', u"\\n"_s);
}

QStringList differences(const QObject& object, const QObject& plain)
{
    QStringList found;
    const QMetaObject& type = *plain.metaObject();
    for (int i = 0; i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        const QString name = QLatin1StringView(property.name());
        if (isLeftOut(name) || !property.isReadable()) continue;
        const QString text = textOf(property, property.read(&object));
        if (text != textOf(property, property.read(&plain))) found << name + u'=' + text;
    }
    return found;
}

QStringList coloursOf(const QWidget& widget)
{
    QStringList found;
    const QPalette around = widget.isWindow() ? QApplication::palette() : widget.parentWidget()->palette();
    const QMetaEnum roles = QMetaEnum::fromType<QPalette::ColorRole>();
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
        const QColor colour = widget.palette().color(QPalette::Active, QPalette::ColorRole(role));
        if (colour != around.color(QPalette::Active, QPalette::ColorRole(role)))
            found << QLatin1StringView(roles.valueToKey(role)) + u'=' + colour.name(QColor::HexArgb);
    }
    return found;
}

/// What is not among the properties: size limits, the font beside that around, a buddy, the policy of sizes.
QStringList traitsOf(const QWidget& widget, const QWidget& plain)
{
    QStringList found;
    if (widget.minimumWidth() > 0) found << u"has minimumWidth"_s;
    // a line to be read is as high as its text needs
    if (widget.minimumHeight() > 0 && qobject_cast<const QLineEdit*>(&widget) == nullptr)
        found << u"has minimumHeight"_s;
    if (widget.maximumWidth() < QWIDGETSIZE_MAX) found << u"has maximumWidth"_s;
    if (widget.maximumHeight() < QWIDGETSIZE_MAX) found << u"has maximumHeight"_s;
    const auto policy = [](const QWidget& of) {
        const QMetaEnum names = QMetaEnum::fromType<QSizePolicy::Policy>();
        const QSizePolicy now = of.sizePolicy();
        return QLatin1StringView(names.valueToKey(now.horizontalPolicy())) + u'/' +
               QLatin1StringView(names.valueToKey(now.verticalPolicy())) +
               (now.hasHeightForWidth() ? u" height for width"_s : QString());
    };
    if (policy(widget) != policy(plain)) found << u"sizePolicy="_s + policy(widget);
    if (widget.cursor().shape() != Qt::ArrowCursor && widget.testAttribute(Qt::WA_SetCursor))
        found << u"cursor=%1"_s.arg(widget.cursor().shape());
    const QFont& around = widget.isWindow() ? QApplication::font() : widget.parentWidget()->font();
    if (widget.font().bold() != around.bold()) found << u"bold"_s;
    if (widget.font().italic() != around.italic()) found << u"italic"_s;
    const double larger = widget.font().pointSizeF() / around.pointSizeF();
    if (std::abs(larger - 1) > 0.02) found << u"font×%1"_s.arg(larger, 0, 'f', 1);
    if (const auto* label = qobject_cast<const QLabel*>(&widget);
        label != nullptr && label->buddy() != nullptr)
        found << u"buddy="_s + label->buddy()->objectName();
    return found;
}

QString rowOf(const QAbstractItemModel& model, int row, int column)
{
    const QModelIndex index = model.index(row, column);
    QString text = index.data().toString();
    const auto add = [&text, &index](int role, const char* name) {
        const QVariant value = index.data(role);
        if (value.isNull()) return;
        text += u' ' + QString::fromLatin1(name);
        if (value.canConvert<QString>() && value.toString() != index.data().toString())
            text += u'=' + value.toString();
        if (value.canConvert<QBrush>()) text += u'=' + value.value<QBrush>().color().name();
    };
    add(Qt::DecorationRole, "icon");
    add(Qt::CheckStateRole, "check");
    add(Qt::ToolTipRole, "tip");
    add(Qt::AccessibleTextRole, "accessible");
    add(Qt::TextAlignmentRole, "aligned");
    add(Qt::ForegroundRole, "colour");
    return text.replace(u'\n', u"\\n"_s);
}

/// The header, the first rows and the choice of a list or drop-down.
QStringList rowsOf(const QWidget& widget)
{
    QStringList found;
    const QAbstractItemModel* model = nullptr;
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) model = combo->model();
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) model = view->model();
    if (model == nullptr) return found;
    const auto* tree = qobject_cast<const QTreeView*>(&widget);
    for (int column = 0; tree != nullptr && column < model->columnCount(); ++column) {
        const auto header = [model, column](int role) {
            return model->headerData(column, Qt::Horizontal, role);
        };
        // the last one takes what is left of the window
        const bool isLast = column == model->columnCount() - 1;
        found << u"column "_s + header(Qt::DisplayRole).toString() +
                     (header(Qt::DecorationRole).isNull() ? QString() : u" icon"_s) + u" tip "_s +
                     header(Qt::ToolTipRole).toString() + u" width "_s +
                     (isLast ? u"left"_s : QString::number(tree->columnWidth(column)));
    }
    constexpr int shownRows = 20;
    for (int row = 0; row < std::min(model->rowCount(), shownRows); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells << rowOf(*model, row, column);
        found << u"row "_s + cells.join(u" | "_s);
    }
    return found;
}

QString describe(const QWidget& widget)
{
    const QWidget& plain = plainLike(widget);
    QStringList parts{widget.objectName() + u" ("_s + QLatin1StringView(plain.metaObject()->className()) +
                      u')'};
    if (widget.isHidden() && !widget.isWindow()) parts << u"hidden"_s;
    parts << differences(widget, plain) << traitsOf(widget, plain) << coloursOf(widget);
    return parts.join(u"; "_s);
}

/// Qt's own parts of a widget have names that begin with `qt_`, or none and nothing to say.
bool isOfQt(const QWidget& widget)
{
    static const QStringList inner{u"QAbstractScrollAreaScrollBarContainer"_s,
                                   u"QScrollBar"_s,
                                   u"QHeaderView"_s,
                                   u"QTabBar"_s,
                                   u"QComboBoxPrivateContainer"_s,
                                   u"QSplitterHandle"_s,
                                   u"QSizeGrip"_s,
                                   u"QToolBarExtension"_s,
                                   u"QToolBarSeparator"_s,
                                   u"QMenuBarExtension"_s,
                                   u"QTipLabel"_s};
    return widget.objectName().startsWith(u"qt_") ||
           (widget.objectName().isEmpty() &&
            inner.contains(QString::fromLatin1(widget.metaObject()->className()))) ||
           qobject_cast<const QMenu*>(&widget) != nullptr ||
           (widget.parentWidget() != nullptr && widget.inherits("QFrame") &&
            widget.parentWidget()->inherits("QLineEdit"));
}

void addWidget(QStringList& lines, const QWidget& widget, int depth);

/// The parts of the timeline that wait for an event; how many there are depends on the room for them.
bool isSpare(const QWidget& widget)
{
    static const QRegularExpression names(u"^(tlLabel|imgInstantEvent|uCurrentTimeLabel)\\("_s);
    return names.match(widget.objectName()).hasMatch();
}

/// A distance, unless it is the style's own, which follows the font.
QString distance(int pixels, QStyle::PixelMetric usual, const QLayout& layout)
{
    const QWidget* around = layout.parentWidget();
    const bool isUsual = pixels == around->style()->pixelMetric(usual, nullptr, around);
    return isUsual ? u"usual"_s : QString::number(pixels);
}

QString marginsOf(const QLayout& layout)
{
    const QMargins margins = layout.contentsMargins();
    const QStringList distances{distance(margins.left(), QStyle::PM_LayoutLeftMargin, layout),
                                distance(margins.top(), QStyle::PM_LayoutTopMargin, layout),
                                distance(margins.right(), QStyle::PM_LayoutRightMargin, layout),
                                distance(margins.bottom(), QStyle::PM_LayoutBottomMargin, layout),
                                distance(layout.spacing(), QStyle::PM_LayoutVerticalSpacing, layout)};
    QString text = QLatin1StringView(layout.metaObject()->className()) + u": margins and spacing "_s +
                   distances.join(u' ');
    if (const auto* grid = qobject_cast<const QGridLayout*>(&layout)) {
        for (int column = 0; column < grid->columnCount(); ++column)
            text += (column == 0 ? u", columns "_s : u" "_s) + QString::number(grid->columnStretch(column));
        for (int row = 0; row < grid->rowCount(); ++row)
            text += (row == 0 ? u", rows "_s : u" "_s) + QString::number(grid->rowStretch(row));
    }
    return text;
}

void addLayout(QStringList& lines, const QLayout& layout, int depth)
{
    const QString begin(qsizetype{2} * depth, u' ');
    lines << begin + marginsOf(layout);
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem& item = *layout.itemAt(i);
        QString place;
        if (const auto* grid = qobject_cast<const QGridLayout*>(&layout)) {
            int at[4];
            grid->getItemPosition(i, &at[0], &at[1], &at[2], &at[3]);
            place = u" at %1,%2 over %3,%4"_s.arg(at[0]).arg(at[1]).arg(at[2]).arg(at[3]);
        } else if (const auto* box = qobject_cast<const QBoxLayout*>(&layout);
                   box != nullptr && box->stretch(i) > 0) {
            place = u" stretch %1"_s.arg(box->stretch(i));
        }
        if (item.alignment() != 0) place += u" aligned %1"_s.arg(item.alignment().toInt());
        if (!place.isEmpty() || item.spacerItem() != nullptr)
            lines << begin + u"-"_s + (item.spacerItem() != nullptr ? u" space"_s : QString()) + place;
        if (item.layout() != nullptr) addLayout(lines, *item.layout(), depth + 1);
        if (item.widget() != nullptr) addWidget(lines, *item.widget(), depth + 1);
    }
}

bool isInLayout(const QLayout* layout, const QWidget* widget)
{
    for (int i = 0; layout != nullptr && i < layout->count(); ++i) {
        QLayoutItem& item = *layout->itemAt(i);
        if (item.widget() == widget || isInLayout(item.layout(), widget)) return true;
    }
    return false;
}

void addWidget(QStringList& lines, const QWidget& widget, int depth)
{
    if (isOfQt(widget) && widget.objectName() != u"qt_scrollarea_viewport" &&
        widget.objectName() != u"qt_tabwidget_stackedwidget")
        return;
    const bool isPage = widget.parentWidget() != nullptr &&
                        widget.parentWidget()->objectName() == u"qt_tabwidget_stackedwidget";
    if (widget.isHidden() && isSpare(widget)) return;
    const QString begin(qsizetype{2} * depth, u' ');
    lines << begin + describe(widget);
    if (widget.isHidden() && !isPage && !widget.isWindow()) return;
    for (const QString& row : rowsOf(widget))
        lines << begin + u"  "_s + row;
    if (const auto* tabs = qobject_cast<const QTabWidget*>(&widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            lines << begin + u"  tab "_s + tabs->tabText(i) + u" tip "_s + tabs->tabToolTip(i) +
                         (tabs->isTabEnabled(i) ? QString() : u" disabled"_s) +
                         (tabs->currentIndex() == i ? u" current"_s : QString());
    }
    const bool isQtsLayout = qobject_cast<const QMainWindow*>(&widget) != nullptr ||
                             qobject_cast<const QToolBar*>(&widget) != nullptr ||
                             qobject_cast<const QStatusBar*>(&widget) != nullptr ||
                             qobject_cast<const QMenuBar*>(&widget) != nullptr;
    const QLayout* layout = isQtsLayout ? nullptr : widget.layout();
    if (layout != nullptr) addLayout(lines, *layout, depth + 1);
    for (const auto* part : widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (!part->isWindow() && !isInLayout(layout, part)) addWidget(lines, *part, depth + 1);
    }
}

void addCommands(QStringList& lines, const QWidget& window)
{
    static const QAction plain;
    QStringList commands;
    for (const QAction* action : window.findChildren<QAction*>()) {
        if (action->objectName().isEmpty() || action->objectName().startsWith(u"_q_")) continue;
        QStringList keys;
        for (const QKeySequence& key : action->shortcuts())
            keys << key.toString(QKeySequence::PortableText);
        commands << u"command "_s + action->objectName() + u": "_s +
                        differences(*action, plain).join(u"; "_s) + u"; keys "_s + keys.join(u' ');
    }
    for (const QShortcut* key : window.findChildren<QShortcut*>())
        commands << u"key "_s + key->key().toString(QKeySequence::PortableText);
    for (const QMenu* menu : window.findChildren<QMenu*>()) {
        QStringList entries;
        for (const QAction* entry : menu->actions())
            entries << (entry->isSeparator() ? u"--"_s : entry->text());
        if (!menu->objectName().isEmpty())
            commands << u"menu "_s + menu->objectName() + u' ' + menu->title() + u": "_s +
                            entries.join(u" | "_s);
    }
    commands.sort();
    lines << commands;
}

QString tabOrderOf(const QWidget& window)
{
    QStringList names;
    for (const QWidget* part = window.nextInFocusChain(); part != &window; part = part->nextInFocusChain()) {
        if (part->window() == &window && (part->focusPolicy() & Qt::TabFocus) != 0 &&
            part->isVisibleTo(&window) && part->isEnabled() && !isOfQt(*part))
            names << part->objectName();
    }
    return u"Tab: "_s + names.join(u' ');
}

} // namespace

QStringList portraitOf(const QWidget& window)
{
    QStringList lines;
    addWidget(lines, window, 0);
    addCommands(lines, window);
    lines << tabOrderOf(window);
    return lines;
}
