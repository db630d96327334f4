// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

/// The tone that wakes up weather radio receivers, 1050 Hz, as a WAV file of three seconds.
QByteArray warningTone();
