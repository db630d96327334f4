// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editors/ControlValues.h"

#include <functional>
#include <utility>
#include <vector>

/// Which control of a form shows which member of a record. Controls are filled and read in the order in which
/// they were bound; they must outlive the binding.
template <typename Record>
class FormBinding
{
public:
    /// Binds a control to a member, and returns the control. `ControlValues` knows the kinds of both.
    template <typename Control, typename Member>
    Control* bind(Control* control, Member Record::*member)
    {
        add([control, member](const Record& record) { ControlValues::show(*control, record.*member); },
            [control, member](Record& record) { ControlValues::take(*control, record.*member); });
        return control;
    }

    /// Binds a control that shows or takes its value in a way of its own.
    void add(std::function<void(const Record&)> show, std::function<void(Record&)> take)
    {
        m_controls.push_back({std::move(show), std::move(take)});
    }

    void show(const Record& record) const
    {
        for (const Bound& each : m_controls)
            each.show(record);
    }

    void take(Record& record) const
    {
        for (const Bound& each : m_controls)
            each.take(record);
    }

private:
    struct Bound
    {
        std::function<void(const Record&)> show;
        std::function<void(Record&)> take;
    };

    std::vector<Bound> m_controls;
};
