#pragma once

/// Rows on which a statement that is right and one that is nearly right answer differently: reserved rows,
/// deleted ones and ones without a status, repeated links, missing keys, letters of both cases and with
/// accents, times with seconds, and places that are known twice.
extern const char* const statementRows;
