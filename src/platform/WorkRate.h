// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/SteppedWork.h"

#include <QString>

#include <deque>

/// How fast work goes on and how long it will still take, from how far it was at the moments of the last
/// seconds.
class WorkRate
{
public:
    /// Notes how far the work is; the moments, in milliseconds, do not go back.
    void note(qint64 moment, const WorkBytes& bytes);

    /// For the user, such as `12 MB/s, about 2 minutes left`. It is made anew once a second at most, and is
    /// empty as long as nothing can be said.
    [[nodiscard]] const QString& text() const { return m_text; }

private:
    struct Sample
    {
        qint64 moment;
        qint64 done;
    };

    [[nodiscard]] QString textNow(qint64 all) const;

    std::deque<Sample> m_samples; ///< of the last seconds
    qint64 m_said = 0;            ///< the moment that the text was made for
    QString m_text;
};
