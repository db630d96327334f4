// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstdint>

/// A colour of the palette; its parts range from 0 to 255.
struct PaletteColour
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
};

/// The sixteen colours of the functions, from black to white.
inline constexpr std::array<PaletteColour, 16> colourPalette{{{0, 0, 0},
                                                              {0, 0, 255},
                                                              {0, 128, 0},
                                                              {255, 0, 0},
                                                              {0, 0, 128},
                                                              {128, 0, 128},
                                                              {0, 128, 128},
                                                              {192, 192, 192},
                                                              {128, 128, 128},
                                                              {128, 128, 0},
                                                              {0, 255, 0},
                                                              {255, 255, 0},
                                                              {128, 0, 0},
                                                              {255, 0, 255},
                                                              {0, 255, 255},
                                                              {255, 255, 255}}};
