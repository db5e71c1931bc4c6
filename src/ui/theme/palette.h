#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace morvane {

// An sRGB colour and its alpha.
struct PaletteValue {
    std::uint32_t rgb = 0;  // 0xRRGGBB
    double alpha = 1;
};

// A named colour: its value in the light appearance and in the dark one.
struct PaletteColor {
    std::string_view name;
    PaletteValue light;
    PaletteValue dark;
};

// Every colour of the window, each named for what it is used for.
inline constexpr std::array palette{
    PaletteColor{"surface", {0xFBFBFA, 1}, {0x1D1E1E, 1}},  // window background, footer bar
    PaletteColor{"well", {0xF5F5F3, 1}, {0x222424, 1}},     // sunken panels
    PaletteColor{"card", {0xFFFFFF, 1}, {0x262828, 1}},  // card background, an unticked check box
    PaletteColor{"cardEdge", {0x000000, 0.07}, {0xFFFFFF, 0.07}},   // card outline
    PaletteColor{"hairline", {0x000000, 0.075}, {0xFFFFFF, 0.08}},  // dividers
    PaletteColor{"rowHover", {0x000000, 0.035}, {0xFFFFFF, 0.04}},  // a hovered or open row
    PaletteColor{
        "trackFill", {0x000000, 0.06}, {0xFFFFFF, 0.07}},  // empty part of a `ProgressTrack`
    PaletteColor{
        "segmentTrack", {0x000000, 0.065}, {0xFFFFFF, 0.09}},       // behind a `SegmentedControl`
    PaletteColor{"segmentThumb", {0xFFFFFF, 1}, {0xFFFFFF, 0.16}},  // selected segment
    PaletteColor{
        "checkEdge", {0x000000, 0.24}, {0xFFFFFF, 0.3}},     // outline of an unticked check box
    PaletteColor{"ink", {0x1D1D1F, 1}, {0xF1F1F2, 1}},       // primary text
    PaletteColor{"inkSoft", {0x64646A, 1}, {0xA4A6A9, 1}},   // secondary text
    PaletteColor{"inkFaint", {0x8E8E93, 1}, {0x808386, 1}},  // tertiary text, paths
    PaletteColor{"accent", {0xCA3500, 1}, {0xFF6E32, 1}},  // buttons, ticks, links, the Apps slice
    PaletteColor{"onAccent", {0xFFFFFF, 1}, {0x2A0C00, 1}},          // marks drawn on `accent`
    PaletteColor{"accentTint", {0xCA3500, 0.09}, {0xFF6E32, 0.15}},  // icon tile background
    PaletteColor{
        "accentTintStrong", {0xCA3500, 0.1}, {0xFF6E32, 0.18}},  // emphasised tinted surface
    PaletteColor{"warm", {0xF6EEDD, 1}, {0x37312A, 1}},  // warm banner and illustration background
    PaletteColor{"warmInk", {0x8A6A33, 1}, {0xE6CC9B, 1}},          // marks and text on `warm`
    PaletteColor{"safeFill", {0x169650, 0.11}, {0x4ADE80, 0.14}},   // badge of `safe`
    PaletteColor{"safeInk", {0x137A43, 1}, {0x6EE79B, 1}},          // badge text of `safe`
    PaletteColor{"regenFill", {0x6E6E7D, 0.11}, {0xAAAAB9, 0.15}},  // badge of `regenerates`
    PaletteColor{"regenInk", {0x55555F, 1}, {0xC2C2CC, 1}},         // badge text of `regenerates`
    PaletteColor{"reviewFill", {0xF4E9D1, 1}, {0xE6C891, 0.14}},    // badge of `review`
    PaletteColor{"reviewInk", {0x7A5820, 1}, {0xE8CB92, 1}},        // badge text of `review`
    PaletteColor{"diskMedia", {0x5F7FA0, 1}, {0x7F9CBC, 1}},        // Photos & Video slice
    PaletteColor{"diskDocuments", {0xF29A6E, 1}, {0xFFAD85, 1}},    // Documents slice
    PaletteColor{"diskDeveloper", {0x2FBF71, 1}, {0x4FD08A, 1}},    // Developer slice
    PaletteColor{"diskSystem", {0xA7ADB2, 1}, {0x7F868B, 1}},       // macOS & System slice
    PaletteColor{"diskOther", {0xCFD2D4, 1}, {0x565C60, 1}},        // Other slice
};

// The colours of a list of segments without names of their own, in turn.
inline constexpr std::array<std::string_view, 6> segmentColors{
    "accent", "diskMedia", "diskDeveloper", "diskDocuments", "diskSystem", "diskOther"};

}  // namespace morvane
