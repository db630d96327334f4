// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/AccessibleItems.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <QWidget>

#include <map>

namespace {

/// One item of a widget.
class ItemInterface final : public QAccessibleInterface
{
public:
    ItemInterface(QWidget* widget, int item) : m_widget(widget), m_item(item) {}

    [[nodiscard]] bool isValid() const override
    {
        return m_widget != nullptr && m_item < items().accessibleItemCount();
    }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_widget);
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && isValid() ? items().accessibleItemName(m_item) : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override
    {
        if (!isValid()) return {};
        const QRect local = items().accessibleItemRect(m_item);
        return {m_widget->mapToGlobal(local.topLeft()), local.size()};
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state;
        state.focusable = true;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.focused = m_widget->hasFocus() && items().accessibleCurrentItem() == m_item;
        state.offscreen = !m_widget->rect().intersects(items().accessibleItemRect(m_item));
        return state;
    }

private:
    [[nodiscard]] const AccessibleItems& items() const
    {
        return *dynamic_cast<const AccessibleItems*>(m_widget.data());
    }

    QPointer<QWidget> m_widget;
    int m_item;
};

/// The widget with its items as children, each made when it is asked for.
class ListInterface final : public QAccessibleWidget
{
public:
    explicit ListInterface(QWidget* widget) : QAccessibleWidget(widget, QAccessible::List) {}
    ~ListInterface() override
    {
        for (const auto& [item, identifier] : m_children)
            QAccessible::deleteAccessibleInterface(identifier);
    }

    [[nodiscard]] int childCount() const override
    {
        return hasItems() ? items().accessibleItemCount() : QAccessibleWidget::childCount();
    }
    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        if (!hasItems()) return QAccessibleWidget::child(index);
        if (index < 0 || index >= childCount()) return nullptr;
        const auto known = m_children.find(index);
        if (known != m_children.end()) return QAccessible::accessibleInterface(known->second);
        auto* item = new ItemInterface(widget(), index);
        m_children[index] = QAccessible::registerAccessibleInterface(item);
        return item;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* wanted) const override
    {
        for (const auto& [item, identifier] : m_children) {
            if (QAccessible::accessibleInterface(identifier) == wanted) return item;
        }
        return hasItems() ? -1 : QAccessibleWidget::indexOfChild(wanted);
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        if (!hasItems()) return QAccessibleWidget::childAt(x, y);
        const QPoint point = widget()->mapFromGlobal(QPoint(x, y));
        for (int item = childCount() - 1; item >= 0; --item) {
            if (items().accessibleItemRect(item).contains(point)) return child(item);
        }
        return nullptr;
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        return hasItems() ? child(items().accessibleCurrentItem()) : QAccessibleWidget::focusChild();
    }

private:
    [[nodiscard]] bool hasItems() const { return !items().accessibleShowsWidgets(); }
    [[nodiscard]] const AccessibleItems& items() const
    {
        return *dynamic_cast<const AccessibleItems*>(widget());
    }

    mutable std::map<int, QAccessible::Id> m_children;
};

QAccessibleInterface* interfaceOf(const QString& /*className*/, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    return widget != nullptr && dynamic_cast<AccessibleItems*>(object) != nullptr ? new ListInterface(widget)
                                                                                  : nullptr;
}

} // namespace

void AccessibleItems::install()
{
    // installing a factory twice has no effect
    QAccessible::installFactory(interfaceOf);
}
