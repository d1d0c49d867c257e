#pragma once
#include <array>

#include "core/controls.h"

namespace melvane {

/// Colour of a track's notes while it is the current one, tracks 0 to 12.
inline constexpr std::array<Colour, 13> trackColours{{{255, 0, 0},
                                                      {0, 0, 255},
                                                      {0, 255, 0},
                                                      {255, 0, 255},
                                                      {0, 255, 255},
                                                      {255, 128, 0},
                                                      {255, 255, 0},
                                                      {192, 192, 255},
                                                      {192, 0, 192},
                                                      {255, 128, 255},
                                                      {192, 0, 0},
                                                      {0, 0, 192},
                                                      {192, 192, 0}}};

/// Colour of a track's notes while another one is current. The pairs are odd, and stay so.
inline constexpr std::array<Colour, 13> trackPaleColours{{{192, 192, 255},
                                                          {255, 192, 255},
                                                          {255, 192, 192},
                                                          {192, 255, 192},
                                                          {192, 255, 255},
                                                          {192, 192, 255},
                                                          {255, 192, 255},
                                                          {238, 204, 170},
                                                          {255, 192, 192},
                                                          {255, 255, 192},
                                                          {184, 250, 210},
                                                          {192, 255, 255},
                                                          {192, 255, 255}}};

}  // namespace melvane
