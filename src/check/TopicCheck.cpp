// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/TopicCheck.h"

#include "check/CheckTexts.h"
#include "util/Error.h"

namespace {

constexpr std::size_t mostTold = 1000;

} // namespace

void TopicCheck::hinder(const Error& reason)
{
    if (m_result.hindrance.isEmpty()) m_result.hindrance = reason.description();
}

void TopicCheck::finish()
{
    if (m_untold > 0) m_result.findings.push_back({CheckTexts::tr("There are %n more.", nullptr, m_untold)});
    m_untold = 0;
    m_result.isDone = true;
}

void TopicCheck::add(Finding finding)
{
    if (isFull())
        ++m_untold;
    else
        m_result.findings.push_back(std::move(finding));
}

bool TopicCheck::isFull() const
{
    return m_result.findings.size() >= mostTold;
}
