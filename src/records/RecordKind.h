#pragma once

#include <array>

/// The kinds of record that a collection keeps.
enum class RecordKind
{
    Document,
    Event,
    Organization
};

/// Every kind, in the order in which a search of all shows them.
inline constexpr std::array recordKinds{RecordKind::Document, RecordKind::Event, RecordKind::Organization};
