// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <cstdint>

/// An identifier as the editors and the pick list hold it. Throws Error 6, `Overflow`, beyond 16 bits.
std::int16_t recordIdentifier(qint64 identifier);
